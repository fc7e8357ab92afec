# The registry of a Wine prefix as text, one line for each key and value: registry.pl PREFIX
# Wine must have ended, so that its files are written. Times of keys are left out. A key that has only subkeys is not in the
# files, so each is added with all keys around it.
use strict;
use warnings;

my ($prefix) = @ARGV;
my %lines;

sub add_file {
    my ($hive, $path) = @_;
    open(my $in, '<', $path) or die "$path: $!\n";
    my $key = '';
    while (my $line = <$in>) {
        $line .= <$in> while $line =~ s/\\\r?\n\z//; # a value over several lines
        if ($line =~ /^\[(.*)\] \d+$/) {
            $key = "$hive\\" . ($1 =~ s/\\\\/\\/gr);
            for (my $around = $key; $around =~ /\\/; $around =~ s/\\[^\\]*\z//) {
                $lines{$around} = 1;
            }
        } elsif ($line =~ /^(?:"|@)/) {
            chomp $line;
            $lines{"$key: $line"} = 1;
        }
    }
}

add_file('HKLM', "$prefix/system.reg");
add_file('HKCU', "$prefix/user.reg");
add_file('HKU\\.Default', "$prefix/userdef.reg");
print "$_\n" for sort keys %lines;
