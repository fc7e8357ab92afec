#!/usr/bin/perl
# Writes the measured part of docs/performance.md from what qp_bench measured, and says whether the limits hold:
#
#   qp_bench --benchmark_repetitions=15 --benchmark_format=csv >bench.csv
#   bench-table.pl bench.csv docs/performance.md
#
# Benchmarks are named subject/contender/rows (the rows may be missing). Of several repetitions the fastest counts:
# other load on the machine only makes a run slower. Everything between the two marker lines of the page is replaced.
# The page is always written; a limit that does not hold is named on standard error, and the exit code is then 3.
use strict;
use warnings;

my ($csv, $page) = @ARGV;
die "usage: bench-table.pl MEASURED.csv PAGE.md\n" unless defined $page;

my ($begin, $end) = ('<!-- measured: begin -->', '<!-- measured: end -->');
my %time;     # {subject}{contender}{rows}: microseconds for one call
my @limits;   # of what, measured, least, most
my %in_micro = (ns => 0.001, us => 1, ms => 1000, s => 1_000_000);

open my $in, '<', $csv or die "$csv: $!\n";
while (my $line = <$in>) {
    next unless $line =~ /^"/;
    my @fields = fields($line);
    my ($name, undef, $real, $cpu, $unit) = @fields;
    next if $name =~ /_(mean|median|stddev|cv)$/;
    die "$csv: $name: $fields[9]\n" if ($fields[8] || '') eq 'true';
    # Subjects that wait for the system are measured in wall-clock time, all others in processor time.
    my $by_clock = $name =~ s{/(real_time|manual_time)$}{};
    $name =~ s{/repeats:\d+$}{};
    my ($subject, $contender, $rows) = split m{/}, $name;
    my $micro = ($by_clock ? $real : $cpu) * $in_micro{$unit};
    my $best = \$time{$subject}{$contender}{defined $rows ? $rows : 0};
    $$best = $micro if !defined $$best || $micro < $$best;
}
close $in;

open my $old, '<', $page or die "$page: $!\n";
my $text = do { local $/; <$old> };
close $old;
my $tables = tables();
$text =~ s/\Q$begin\E.*\Q$end\E/$begin\n\n$tables\n$end/s or die "$page: the marker lines are missing\n";
open my $new, '>', $page or die "$page: $!\n";
print $new $text;
close $new or die "$page: $!\n";

my @broken = grep { !holds($_) } @limits;
print STDERR sprintf("bench-table: %s: %.4f, wanted %s\n", $_->[0], $_->[1], wanted($_)) for @broken;
exit(@broken ? 3 : 0);

sub fields {
    my ($line) = @_;
    chomp $line;
    my @found;
    push @found, defined $1 ? $1 : $2 while $line =~ /\G(?:"((?:[^"]|"")*)"|([^,]*))(?:,|$)/g && @found < 10;
    return @found;
}

sub tables {
    my @walks = ('Deep walk in trees 10 deep', 'Deep walk in trees 10000 deep');
    my @tables = (machine(), beside_floor('GetScriptsForAction', 1.15, 0), beside_floor('GetScriptCommands', 1.3, 10_000),
        one_prompt(2.5), beside_floor('Script picker', 1.3, 10_000), beside_floor('QPSelectDlg', 1.3, 10_000), lookup(1.2),
        (map { beside_floor($_, 1.3, 0) } 'Script action opened', 'List of scripts', 'List of plan types',
            'List of configured types', 'List of macros'),
        (map { beside_floor($_, 1.2, 100_000) } @walks), beside_floor('ApplyEnhanceCopy', 1.15, 100_000),
        beside_floor('Copy dialog opened', 1.3, 0), beside_floor('Bookmarks listed', 1.3, 0),
        lines(), first());
    flat($_, 10_000, 100_000, 0.2) for 'GetScriptsForAction', @walks;
    return join "\n", @tables, limits();
}

# Requires the measured number to be from `least` to `most`.
sub limit {
    my ($what, $measured, $least, $most) = @_;
    push @limits, [$what, $measured, $least, $most];
}

sub holds {
    my ($what, $measured, $least, $most) = @{ $_[0] };
    return $measured >= $least && $measured <= $most;
}

sub wanted {
    my ($what, $measured, $least, $most) = @{ $_[0] };
    return ($least > 0 ? number($least) . ' to ' : 'at most ') . number($most);
}

sub limits {
    return table('Limits', ['', 'measured', 'wanted', 'held'],
        map { [$_->[0], number($_->[1]), wanted($_), holds($_) ? 'yes' : '**no**'] } @limits);
}

sub machine {
    open my $info, '<', '/proc/cpuinfo' or return "On this machine:\n";
    my @speeds = map { /^cpu MHz\s*:\s*([\d.]+)/ ? $1 : () } <$info>;
    close $info;
    return "On this machine:\n" unless @speeds;
    return sprintf "On %d processor%s of %.1f GHz:\n", scalar @speeds, @speeds == 1 ? '' : 's', $speeds[0] / 1000;
}

sub of {
    my ($subject, $contender, $rows) = @_;
    my $found = $time{$subject}{$contender}{$rows || 0};
    die "$csv: $subject/$contender/", $rows || '', " was not measured\n" unless defined $found;
    return $found;
}

sub sizes { return sort { $a <=> $b } keys %{ $time{ $_[0] }{service} } }

sub number {
    my ($value) = @_;
    my $text = $value < 10 ? sprintf('%.2f', $value) : $value < 100 ? sprintf('%.1f', $value) : sprintf('%.0f', $value);
    return count($text);
}

sub count {
    my ($text) = @_;
    1 while $text =~ s/^(\d+)(\d{3})/$1,$2/;
    return $text;
}

sub table {
    my ($title, $head, @rows) = @_;
    my $out = "**$title**\n\n| " . join(' | ', @$head) . " |\n|" . join('|', map { $_ eq '' ? ':---' : '---:' } @$head) . "|\n";
    $out .= '| ' . join(' | ', @$_) . " |\n" for @rows;
    return $out;
}

# `most` times the floor are wanted from `smallest` rows on. A contender "list" is what the filling of a list alone takes.
sub beside_floor {
    my ($subject, $most, $smallest) = @_;
    my $has_list = exists $time{$subject}{list};
    my @rows;
    for my $n (sizes($subject)) {
        my ($service, $floor) = (of($subject, 'service', $n), of($subject, 'floor', $n));
        limit("`$subject`, " . count($n) . ' rows: times the floor', $service / $floor, 0, $most) if $n >= $smallest;
        push @rows, [count($n), number($service), number($floor), sprintf('%.2f', $service / $floor),
            number($service * 1000 / $n), $has_list ? number(of($subject, 'list', $n)) : ()];
    }
    return table("`$subject`", ['rows', 'µs', 'floor, µs', 'times the floor', 'ns a row',
            $has_list ? 'the list alone, µs' : ()], @rows);
}

# One row of the larger result takes as long as one of the smaller, but for that part and for what the floor takes longer:
# memory is slower where more of it is used.
sub flat {
    my ($subject, $small, $large, $part) = @_;
    my ($service, $floor) = map { (of($subject, $_, $large) / $large) / (of($subject, $_, $small) / $small) } 'service', 'floor';
    limit("`$subject`, a row of " . count($large) . ' beside one of ' . count($small) . ', the floor\'s being 1',
        $service / $floor, 1 - $part, 1 + $part);
}

# Repeats of one name cost a second look-up in the map of names, and their names begin alike.
sub one_prompt {
    my ($most) = @_;
    my $subject = 'GetScriptCommands';
    my @rows;
    for my $n (sizes($subject)) {
        my ($different, $same) = (of($subject, 'service', $n), of($subject, 'one prompt', $n));
        limit("`$subject`, " . count($n) . ' rows with one prompt: times as long as all different', $same / $different, 0,
            $most);
        push @rows, [count($n), number($different), number($same), sprintf('%.2f', $same / $different),
            number($same * 1000 / $n)];
    }
    return table("`$subject`, all rows with one prompt",
        ['rows', 'all different, µs', 'all the same, µs', 'times as long', 'ns a row'], @rows);
}

# Beside the same host calls in a bare chain.
sub lookup {
    my ($most) = @_;
    my ($service, $floor) = (of('GetProject', 'service'), of('GetProject', 'floor'));
    limit('`GetProject`: times the floor', $service / $floor, 0, $most);
    return table('`GetProject` of a sub-component item',
        ['', 'µs'], ['`GetProject`', number($service)], ['the same host calls in a bare chain', number($floor)]);
}

sub lines {
    my @rows = map { [$_->[0], number(of('WriteLine', $_->[1])), number(1_000_000 / of('WriteLine', $_->[1]))] }
        ['`WriteLine`', 'service'],
        ['bare append, file opened for each line', 'append, opening the file'],
        ['bare append, file kept open', 'append, file kept open'];
    return table('Lines written to the user action log', ['', 'µs a line', 'lines a second'], @rows);
}

sub first {
    my @rows = map { [$_->[0], number(of('CoCreateInstance', $_->[1]))] }
        ['`QPUserActionLog`', 'service'], ['a class of an empty module', 'empty module'];
    return table('First `CoCreateInstance`, the module being loaded', ['', 'µs'], @rows);
}
