# What the packages contain besides the project's own code: where it comes from, its licence and its notices. The texts
# are those of the Debian packages that the build took it from, read when the packages are made.
package Components;
use strict;
use warnings;
use Cwd 'realpath';

my $copyrights = $ENV{QP_COPYRIGHTS} // '/usr/share/doc';
my $exception = 'GPL-3.0-or-later WITH GCC-exception-3.1';
my @gcc_notice = (
    [ 'copyright', qr/^GCC is Copyright/, qr/^version\.$/ ],
    [ 'copyright', qr/^GCC RUNTIME LIBRARY EXCEPTION$/, qr/^requirements of the license of GCC\.$/ ],
);

# package    the Debian package
# files      which of its files a linker takes; a component without files is named by whoever ships it
# licence    in SPDX's words; without one, that of the stanzas
# passages   what of a text file is the notice: the file, its first line and its last
# stanzas    what of a copyright file in stanzas is the notice: the first file names of each
my @table = (
    {
        id => 'libgcc',
        name => 'GCC runtime library (libgcc)',
        package => 'gcc-mingw-w64-x86-64-posix',
        files => qr/^(libgcc|libgcc_eh)\.a$|^crt(begin|end)\.o$/,
        licence => $exception,
        passages => \@gcc_notice,
    },
    {
        id => 'libstdcxx',
        name => 'GNU C++ library (libstdc++)',
        package => 'g++-mingw-w64-x86-64-posix',
        files => qr/^libstdc\+\+\.a$/,
        licence => $exception,
        passages => [
            @gcc_notice,
            [
                '/usr/lib/gcc/x86_64-w64-mingw32/12-posix/include/c++/bits/stl_vector.h',
                qr/Copyright \(c\) 1994$/, qr/without express or implied warranty\.$/
            ],
            [
                '/usr/lib/gcc/x86_64-w64-mingw32/12-posix/include/c++/bits/stl_vector.h',
                qr/Copyright \(c\) 1996$/, qr/without express or implied warranty\.$/
            ],
        ],
    },
    {
        id => 'winpthreads',
        name => 'POSIX threads of mingw-w64 (winpthreads)',
        package => 'mingw-w64-x86-64-dev',
        files => qr/^lib(win)?pthread\.a$/,
        stanzas => [
            'mingw-w64-libraries/winpthreads/*', 'mingw-w64-libraries/winpthreads/include/pthread.h',
            'mingw-w64-libraries/winpthreads/src/clock.c',
        ],
    },
    {
        id => 'mingw-w64',
        name => 'C runtime of mingw-w64',
        package => 'mingw-w64-x86-64-dev',
        files => qr/\.[ao]$/,
        # The module has all but qnan.c and its like, which the programs of the check kit have.
        stanzas => [
            '*', 'mingw-w64-crt/crt/*', 'mingw-w64-crt/gdtoa/*', 'mingw-w64-crt/gdtoa/qnan.c',
            'mingw-w64-crt/misc/basename.c',
        ],
    },
    {
        id => 'googletest',
        name => 'GoogleTest',
        package => 'googletest',
        stanzas => ['*'],
    },
    {
        id => 'sqlite',
        name => 'SQLite',
        package => 'libsqlite3-dev',
        stanzas => ['*'],
    },
);

# The programs of the check kit have these besides what is linked into the module.
my @kit = qw(winpthreads googletest sqlite);

# Licences by their names in Debian and in SPDX.
my %spdx = (
    'ZPL-2.1' => 'ZPL-2.1',
    'expat' => 'MIT',
    'BSD-C3' => 'BSD-3-Clause',
    'BSD-3-clause-Lockless' => 'BSD-3-Clause',
);

sub lines_of {
    my ($file) = @_;
    open my $in, '<:encoding(UTF-8)', $file
        or die "$file is missing: it has the notice of what is linked in\n";
    my @lines = <$in>;
    return @lines;
}

sub copyright_file { return "$copyrights/$_[0]{package}/copyright" }

# The lines of a file from one to another, without the marks of a comment.
sub passage {
    my ($file, $first, $last) = @_;
    my ($inside, @found);
    for (lines_of($file)) {
        s{^ \*( |$)}{}m;
        $inside = 1 if /$first/;
        push @found, $_ if $inside;
        return join '', @found if $inside && /$last/;
    }
    die "$file has changed: there is no notice from '$first' to '$last'\n";
}

# The stanzas of a copyright file: fields by name.
sub stanzas {
    my ($file) = @_;
    my @stanzas;
    for my $text (split /\n\s*\n/, join '', lines_of($file)) {
        my %fields = map { /^(\S+?):\s*(.*)$/s ? ($1 => $2) : () } split /\n(?=\S)/, $text;
        push @stanzas, \%fields;
    }
    return @stanzas;
}

sub plain {
    my ($text) = @_;
    $text =~ s/^\s+|\s+$//g;
    return join '', map { /^ ?\.?$/ ? "\n" : s/^\s//r . "\n" } split /\n/, $text;
}

# The stanzas of a component that apply: copyright, the licence's name, its text.
sub applying {
    my ($component) = @_;
    my $file = copyright_file($component);
    my @all = stanzas($file);
    return map {
        my $wanted = $_;
        my ($stanza) = grep { ($_->{Files} // '') =~ /^\Q$wanted\E(\s|$)/ } @all;
        die "$file has changed: no stanza for $wanted\n" if !$stanza;
        my ($licence, $text) = $stanza->{License} =~ /^(\S+)\n?(.*)$/s;
        my @elsewhere = grep { !$_->{Files} } @all;
        ($text) = map { ($_->{License} // '') =~ /^\Q$licence\E\n(.*)/s } @elsewhere if $text !~ /\S/;
        die "$file has changed: no text of $licence\n" if !defined $text || $text !~ /\S/;
        my $copyright = plain($stanza->{Copyright});
        $copyright = '' if $copyright =~ /^public-domain$/;
        $copyright = "Copyright $copyright" if $copyright && $copyright !~ /^Copyright/;
        { copyright => $copyright, licence => $licence, text => plain($text) };
    } @{ $component->{stanzas} };
}

sub version {
    my ($component) = @_;
    my $version = `dpkg-query -W -f '\${Version}' $component->{package}`;
    die "$component->{package} is not installed\n" if $? || !$version;
    return $version;
}

# The texts of a component that its licence wants in the notices.
sub notices {
    my ($component) = @_;
    return grep { $_ } map { $_->{copyright}, $_->{text} } applying($component) if $component->{stanzas};
    return map {
        my ($file, @ends) = @$_;
        passage($file =~ m{^/} ? $file : copyright_file($component), @ends);
    } @{ $component->{passages} };
}

# The licence in SPDX's words, and the texts of those that SPDX does not know, by name.
sub licence {
    my ($component) = @_;
    return ($component->{licence}, {}) if $component->{licence};
    my (@names, %texts);
    for my $stanza (applying($component)) {
        my $name = $spdx{ $stanza->{licence} } // "LicenseRef-$component->{id}-$stanza->{licence}";
        $texts{$name} = $stanza->{text} if $name =~ /^LicenseRef/;
        push @names, $name if !grep { $_ eq $name } @names;
    }
    return (join(' AND ', @names), \%texts);
}

sub copyright {
    my ($component) = @_;
    if ($component->{stanzas}) {
        return join "\n", grep { $_ } map { $_->{copyright} =~ s/\n+$//r } applying($component);
    }
    my $sentence = passage(copyright_file($component), qr/^GCC is Copyright/, qr/Free Software Foundation/);
    return $sentence =~ s/^GCC is |\n+$//gr;
}

# The files of the compiler and its libraries that a link took, with the members of archives, by the map that the linker
# wrote.
sub taken {
    my ($map) = @_;
    my %members;
    for (lines_of($map)) {
        $members{ realpath($1) // $1 }{ $2 // '' } = 1 if m{^LOAD (/\S+\.o)$} || m{^(/\S+\.a)\((\S+)\)$};
    }
    return \%members;
}

# The notices of mingw-w64 are by source file: none of what is taken may be under one that is left out.
sub check_members {
    my ($component, @members) = @_;
    my %chosen = map { $_ => 1 } @{ $component->{stanzas} };
    for my $stanza (stanzas(copyright_file($component))) {
        my @patterns = split ' ', $stanza->{Files} // '';
        next if !@patterns || $chosen{ $patterns[0] };
        for my $pattern (grep { m{^mingw-w64-crt/} } @patterns) {
            my ($source) = $pattern =~ m{([^/]+?)(?:\.[\w*]+)?$};
            my $glob = join '.*', map { quotemeta } split /\*/, $source, -1;
            my ($member) = grep { /-$glob\.o$/ } @members;
            next if !$member;
            die "$member is linked in, and the notice of $pattern is not among those of $component->{id}\n";
        }
    }
}

# The Debian package of each file that is in one.
sub packages_of {
    open my $answers, '-|', 'dpkg-query', '-S', @_ or die "dpkg-query: $!\n";
    return { map { /^([^:]+)(?::\w+)?: (.*)$/ ? ($2 => $1) : () } <$answers> };
}

# What a link took of others, by its map. A file that belongs to no component ends it.
sub linked {
    my ($map) = @_;
    my $members = taken($map);
    my $packages = packages_of(keys %$members);
    my %found;
    for my $file (sort keys %$members) {
        my $name = $file =~ s{.*/}{}r;
        my $package = $packages->{$file} // '';
        my ($component) = grep { $_->{files} && $_->{package} eq $package && $name =~ $_->{files} } @table;
        die "$file is linked in, and no component has it: see package/components\n" if !$component;
        $found{ $component->{id} } = $component;
        check_members($component, keys %{ $members->{$file} }) if $component->{id} eq 'mingw-w64';
    }
    die "$map names nothing that is linked in\n" if !%found;
    return grep { $found{ $_->{id} } } @table;
}

sub of_kit {
    my ($map) = @_;
    my %wanted = map { $_ => 1 } @kit, map { $_->{id} } linked($map);
    return grep { $wanted{ $_->{id} } } @table;
}

1;
