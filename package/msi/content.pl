# Describes what the installation package holds: content.pl SOURCE
# It installs all files of the folder module, and writes the registry rows that are made of the module's SOURCE. To the
# current folder go content.wxi and components.wxi, which qptools.wxs includes, and for msibuild RemoveRegistry.idt and
# mend.sql. Prints the codes of product, upgrade and package.
use strict;
use warnings;
use Digest::SHA qw(sha1 sha1_hex);
use File::Basename qw(basename);
use FindBin;
use lib $FindBin::Bin;
use RegistryRows;

my ($source) = @ARGV;
my $module = 'module';

# Every identifier is derived from a name by way of this one (RFC 4122, version 5). It never changes.
my $namespace = pack('H*', 'c0e6a3b83d1f4f0e9b0c5a7d1b8e4f26');

sub guid {
    my ($name) = @_;
    my @bytes = unpack('C16', sha1($namespace . $name));
    $bytes[6] = $bytes[6] & 0x0f | 0x50;
    $bytes[8] = $bytes[8] & 0x3f | 0x80;
    return sprintf('{%02X%02X%02X%02X-%02X%02X-%02X%02X-%02X%02X-%02X%02X%02X%02X%02X%02X}', @bytes);
}

sub read_bytes {
    my ($path) = @_;
    open(my $in, '<:raw', $path) or die "$path: $!\n";
    local $/;
    return scalar <$in>;
}

sub write_text {
    my ($name, $text) = @_;
    open(my $out, '>:raw', $name) or die "$name: $!\n";
    print {$out} $text;
    close($out) or die "$name: $!\n";
}

sub xml {
    my ($text) = @_;
    my %entities = ('&' => '&amp;', '<' => '&lt;', '>' => '&gt;', '"' => '&quot;');
    return $text =~ s/([&<>"])/$entities{$1}/gr;
}

# A path as an identifier of a table.
sub id {
    my ($path) = @_;
    return $path =~ s/[^A-Za-z0-9.]/_/gr =~ s/^(?![A-Za-z_])/_/r;
}

my %short_names;

# The name of a file or folder in a table: one that is not of the form 8.3 has a short name before it.
sub table_name {
    my ($path) = @_;
    my $name = basename($path);
    return $name if $name =~ /^[A-Za-z0-9_\@-]{1,8}(\.[A-Za-z0-9_-]{1,3})?$/;
    my ($stem, $extension) = uc($name) =~ /^(.*?)(\.[^.]*)?$/;
    $stem = substr($stem =~ s/[^A-Z0-9]//gr, 0, 5) . '~';
    $extension = substr($extension // '', 0, 4);
    my $number = 1;
    $number++ while $short_names{"$stem$number$extension"}++;
    return "$stem$number$extension|$name";
}

# A text of the registry: what Windows Installer would expand stays as it is.
sub formatted {
    my ($text) = @_;
    return join('[#qptools.dll]', map { s/([\[\]])/[\\$1]/gr } split(/%MODULE%/, $text, -1));
}

my $rows = RegistryRows::rows($source, '%FOLDER%');

sub registry_values {
    my ($number, $text) = (0, '');
    for my $row (@{ $rows->{values} }) {
        my $name = defined $row->{name} ? sprintf(' Name="%s"', xml($row->{name})) : '';
        # Of the folder there is no form without a backslash at its end.
        my $value = formatted($row->{value} // '') =~ s/%FOLDER%/[ProgramFiles64Folder]qptools/r;
        $text .= sprintf(qq(<RegistryValue Id="row%03d" Root="HKLM" Key="%s"%s Type="%s" Value="%s"/>\n),
            ++$number, xml($row->{key}), $name, $row->{type} // 'string', xml($value));
    }
    return $text;
}

# The keys that are deleted before they are written. Root 2 is HKEY_LOCAL_MACHINE.
sub removed_keys {
    my $text = join("\r\n", "RemoveRegistry\tRoot\tKey\tName\tComponent_", "s72\ti2\tl255\tL255\ts72",
        "RemoveRegistry\tRemoveRegistry", '');
    my $number = 0;
    $text .= sprintf("row%03d\t2\t%s\t-\tqptools.dll\r\n", ++$number, $_) for @{ $rows->{removed} };
    return $text;
}

my (@components, @sql, $digest);

# The version of an image's version block, and its language; nothing if there is none.
sub image_version {
    my ($bytes) = @_;
    return unless $bytes =~ /^MZ.*\xbd\x04\xef\xfe\x00\x00\x01\x00(.{8})/s;
    my ($minor, $major, $build, $patch) = unpack('v4', $1);
    my $translation = join("\0", split(//, 'Translation'));
    my ($language) = $bytes =~ /\Q$translation\E\0+(..)/s or die "a version block without a language\n";
    return ("$major.$minor.$patch.$build", unpack('v', $language));
}

# One component for each file, so that its identifier never changes. A file with a version is replaced by its version and
# others by their contents, of which wixl wrote the hash.
sub file_xml {
    my ($path) = @_;
    my $bytes = read_bytes("$module/$path");
    my $id = id($path);
    $digest .= "$path " . sha1_hex($bytes) . "\n";
    push @components, $id;
    if (my ($number, $language) = image_version($bytes)) {
        push @sql, "UPDATE `File` SET `Version`='$number', `Language`='$language' WHERE `File`='$id'",
            "DELETE FROM `MsiFileHash` WHERE `File_`='$id'";
    }
    return sprintf(qq(<Component Id="%s" Guid="%s" Win64="yes">\n), $id, guid("component $path"))
        . sprintf(qq(<File Id="%s" Name="%s" Source="%s" KeyPath="yes"/>\n),
            $id, xml(table_name($path)), xml("$module/$path"))
        . ($path eq 'qptools.dll' ? registry_values() : '') . "</Component>\n";
}

sub folder_xml {
    my ($folder) = @_;
    opendir(my $handle, "$module/$folder") or die "$module/$folder: $!\n";
    my $text = '';
    for my $name (sort grep { !/^\.\.?$/ } readdir($handle)) {
        my $path = "$folder$name";
        $text .= -d "$module/$path"
            ? sprintf(qq(<Directory Id="%s" Name="%s">\n%s</Directory>\n),
                id("folder.$path"), xml(table_name($path)), folder_xml("$path/"))
            : file_xml($path);
    }
    return $text;
}

# wixl reads IncludeMaximum, but does not write it. The attributes are VersionMinInclusive and VersionMaxInclusive; they
# are part of the key, so the row is replaced.
push @sql, 'DELETE FROM `Upgrade` WHERE `ActionProperty`=\'OLDER_VERSION\'',
    'INSERT INTO `Upgrade` (`UpgradeCode`, `VersionMin`, `VersionMax`, `Attributes`, `ActionProperty`)'
    . sprintf(" VALUES ('%s', '0.0.0', '%s', 768, 'OLDER_VERSION')", guid('upgrade'), $ENV{QP_VERSION});

my $content = folder_xml('');
my %seen;
$seen{$_}++ and die "two files have the identifier $_\n" for @components;
write_text('content.wxi', "<Include>\n$content</Include>\n");
write_text('components.wxi',
    "<Include>\n" . join('', map { qq(<ComponentRef Id="$_"/>\n) } @components) . "</Include>\n");
write_text('RemoveRegistry.idt', removed_keys());
write_text('mend.sql', join('', map { "$_\n" } @sql));

# Equal contents have equal codes, others have others.
$digest = sha1_hex(join("\n", $digest, $ENV{QP_VERSION},
    map { read_bytes($_) } qw(qptools.wxs qptools.ico content.wxi RemoveRegistry.idt mend.sql)));
print join(' ', guid("product $digest"), guid('upgrade'), guid("package $digest")), "\n";
