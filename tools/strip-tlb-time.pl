# Removes the build time from a type library, in place: once as text after "Created by WIDL version ... at ", once as a
# number in the record behind that text. The file keeps its length.
use strict;
use warnings;

my ($path) = @ARGV;
open(my $in, '<:raw', $path) or die "$path: $!\n";
my $data = do { local $/; <$in> };
close($in);

my $text = 'Thu Jan 01 00:00:00 1970';
$data =~ s/(Created by WIDL version \S+ at )(.{24})/$1$text/s or die "$path: no creation time found\n";
my $after = $+[0];
# The second custom-data record: its type word (VT_UI4) in the low half of 32 bits, then the time over 4 bytes.
my ($low, $high) = (1_600_000_000, 4_294_967_295);
my $found = 0;
for (my $i = $after; $i + 6 <= length($data) && $i < $after + 16; $i++) {
    my ($type, $time) = unpack('v V', substr($data, $i, 6));
    next unless $type == 19 && $time > $low && $time < $high;
    substr($data, $i + 2, 4) = pack('V', 0);
    $found = 1;
    last;
}
die "$path: no creation number found\n" unless $found;

open(my $out, '>:raw', $path) or die "$path: $!\n";
print {$out} $data;
close($out) or die "$path: $!\n";
