# Gives an installation package its code and its time: stamp.pl MSI CODE SECONDS
# wixl invents the one and takes the present as the other. Both stand in the summary information, a property set; they are
# replaced there, in place.
use strict;
use warnings;

my ($path, $code, $seconds) = @ARGV;
my ($revision, $created, $saved) = (9, 12, 13);
my ($text, $time) = (30, 64);

open(my $in, '<:raw', $path) or die "$path: $!\n";
my $data = do { local $/; <$in> };
close($in);

# The format identifier of the summary information, and after it the offset of the properties.
my $format = pack('H*', 'e0859ff2f94f6810ab9108002b27b3d9');
my @found;
push @found, $-[0] while $data =~ /\xfe\xff\x00\x00.{20}\x01\x00\x00\x00\Q$format\E/sg;
die "$path: one summary information expected, there are " . @found . "\n" unless @found == 1;
my $set = $found[0];
my $section = $set + unpack('V', substr($data, $set + 44, 4));
my ($size, $count) = unpack('V2', substr($data, $section, 8));
my %offsets = unpack('V*', substr($data, $section + 8, 8 * $count));

# replace(PROPERTY, TYPE, BYTES): the property keeps its length.
sub replace {
    my ($property, $type, $bytes) = @_;
    my $at = $section + ($offsets{$property} // die "$path: property $property is missing\n");
    die "$path: property $property has another type\n" unless unpack('V', substr($data, $at, 4)) == $type;
    my $head = $type == $text ? 8 : 4;
    die "$path: property $property has another length\n"
        if $type == $text && unpack('V', substr($data, $at + 4, 4)) != length($bytes) + 1;
    substr($data, $at + $head, length($bytes)) = $bytes;
}

# Units of 100 ns since 1601.
my $stamp = pack('Q<', ($seconds + 11_644_473_600) * 10_000_000);
replace($revision, $text, $code);
replace($_, $time, $stamp) for $created, $saved;

open(my $out, '>:raw', $path) or die "$path: $!\n";
print {$out} $data;
close($out) or die "$path: $!\n";
