# The rows of the package's registry tables, read from the sources of what the module itself registers: the scripts of
# the classes and the IDL. A row is a hash: key (below HKEY_LOCAL_MACHINE), name and value (texts with %MODULE%), and
# type: string or integer.
package RegistryRows;
use strict;
use warnings;
use File::Glob ':bsd_glob';

# Where a package for all users has the classes. HKCR would mean the same, but depend on how it is installed.
my %roots = (HKCR => 'Software\\Classes\\', HKLM => '');

# Texts stay bytes, UTF-8, as paths are.
sub read_text {
    my ($path) = @_;
    open(my $in, '<:raw', $path) or die "$path: $!\n";
    local $/;
    return <$in>;
}

# The scripts in the order in which the module applies them: that of their resources.
sub script_paths {
    my ($source) = @_;
    my @names = read_text("$source/res/qptools.rc") =~ /^\d+\s+REGISTRY\s+"([^"]+)"/mg;
    die "$source/res/qptools.rc: it has no registry scripts\n" unless @names;
    return map { "$source/server/$_" } @names;
}

# A token is a reference to a quoted text, or a word.
sub tokens {
    my ($text, $path) = @_;
    my @tokens;
    while ($text =~ /\G\s*(?:'((?:[^']|'')*)'|([^\s']\S*))/gc) {
        my ($quoted, $word) = ($1, $2);
        push @tokens, defined $quoted ? \($quoted =~ s/''/'/gr) : $word;
    }
    die "$path: a quote is not closed\n" if $text =~ /\G\s*\S/gc;
    return \@tokens;
}

sub is_word {
    my ($tokens, $word) = @_;
    return @$tokens && !ref $tokens->[0] && lc $tokens->[0] eq lc $word;
}

sub take_name {
    my ($tokens) = @_;
    my $token = shift @$tokens;
    die "a name expected\n" if !defined $token || $token =~ /^[{}=]$/;
    return ref $token ? $$token : $token;
}

# "= s 'text'" or "= d '1'": the pair of type and value; nothing if there is no "=".
sub take_data {
    my ($tokens) = @_;
    return unless is_word($tokens, '=');
    shift @$tokens;
    my $type = { s => 'string', d => 'integer' }->{ lc take_name($tokens) } or die "'s' or 'd' expected after '='\n";
    my $value = take_name($tokens);
    return ($type, $type eq 'integer' && $value =~ /^0x/i ? hex $value : $value);
}

# Adds the rows of one node to $rows. For Windows Installer the name '*' means that the key is created without a value and
# removed with its subkeys, '+' that it is created and stays. A key that ForceRemove marks is deleted before, too.
sub take_node {
    my ($tokens, $around, $rows) = @_;
    my ($kind) = grep { is_word($tokens, $_) } qw(NoRemove ForceRemove Delete val);
    shift @$tokens if defined $kind;
    $kind //= 'key';
    my $name = take_name($tokens);
    my ($type, $value) = take_data($tokens);
    if ($kind eq 'val') {
        die "'=' expected after the name of a value\n" unless defined $type;
        push @{ $rows->{values} }, { key => $around, name => $name, type => $type, value => $value };
        return;
    }
    my $key = $around =~ /\\$/ || $around eq '' ? "$around$name" : "$around\\$name";
    push @{ $rows->{removed} }, $key if $kind eq 'ForceRemove' || $kind eq 'Delete';
    push @{ $rows->{values} }, { key => $key, name => '*' } if $kind eq 'ForceRemove';
    push @{ $rows->{values} }, { key => $key, type => $type, value => $value } if defined $type;
    my $before = @{ $rows->{values} };
    take_block($tokens, $key, $rows) if is_word($tokens, '{');
    return if defined $type || $kind eq 'ForceRemove' || $kind eq 'Delete' || $before < @{ $rows->{values} };
    push @{ $rows->{values} }, { key => $key, name => $kind eq 'NoRemove' ? '+' : '*' };
}

sub take_block {
    my ($tokens, $around, $rows) = @_;
    shift @$tokens;
    until (is_word($tokens, '}')) {
        die "'}' expected\n" unless @$tokens;
        take_node($tokens, $around, $rows);
    }
    shift @$tokens;
}

sub add_script {
    my ($path, $rows) = @_;
    my $tokens = tokens(read_text($path), $path);
    while (@$tokens) {
        my $root = $roots{ take_name($tokens) };
        die "$path: a package for all users writes to HKCR and HKLM alone\n" unless defined $root;
        die "$path: '{' expected after the root key\n" unless is_word($tokens, '{');
        eval { take_block($tokens, $root, $rows); 1 } or die "$path: $@";
    }
}

# What RegisterTypeLib writes. The flags are those of the IDL, none, and LIBFLAG_FHASDISKIMAGE: the library is a file.
sub add_type_library {
    my ($source, $folder, $rows) = @_;
    for my $path (map { glob("$source/$_/*.idl") } qw(server host)) {
        # RegisterTypeLib registers such interfaces, too.
        die "$path: an Automation interface needs rows of its own\n"
            if read_text($path) =~ /\b(?:oleautomation|dual|dispinterface)\b/;
    }
    my ($id, $major, $minor, $title) = read_text("$source/server/qptools.idl") =~
        /\[uuid\(([0-9A-F-]{36})\),\s*version\((\d+)\.(\d+)\),\s*helpstring\("([^"]*)"\)\]\s*library\b/
        or die "$source/server/qptools.idl: no library with uuid, version and helpstring found\n";
    my $key = sprintf('%sTypeLib\\{%s}\\%x.%x', $roots{HKCR}, $id, $major, $minor);
    push @{ $rows->{values} }, map { { key => "$key$_->[0]", type => 'string', value => $_->[1] } }
        ['', $title], ['\\0\\win64', '%MODULE%'], ['\\FLAGS', 8], ['\\HELPDIR', $folder];
}

# rows(SOURCE, FOLDER): the hash of values and removed, the keys to be deleted first. FOLDER is that of the module.
sub rows {
    my ($source, $folder) = @_;
    my $rows = { values => [], removed => [] };
    add_script($_, $rows) for script_paths($source);
    add_type_library($source, $folder, $rows);
    return $rows;
}

1;
