#!/usr/bin/env perl
# A server of time stamps (RFC 3161) on this machine, for tests: time-stamps.pl CERT KEY CA
# Prints its address and answers until it is ended. openssl makes the stamps.
use strict;
use warnings;
use File::Temp 'tempdir';
use IO::Socket::INET;

my ($certificate, $key, $authority) = @ARGV;
my $folder = tempdir(CLEANUP => 1);
my $server = IO::Socket::INET->new(Listen => 5, LocalAddr => '127.0.0.1') or die "no port: $!\n";

sub write_file {
    my ($name, $content) = @_;
    open my $file, '>:raw', "$folder/$name" or die "$name: $!\n";
    print $file $content;
    close $file or die "$name: $!\n";
}

sub answer {
    my ($query) = @_;
    write_file('query', $query);
    system('openssl', 'ts', '-reply', '-config', "$folder/settings", '-queryfile', "$folder/query", '-signer', $certificate,
        '-inkey', $key, '-chain', $authority, '-out', "$folder/reply") == 0 or die "openssl makes no stamp\n";
    open my $reply, '<:raw', "$folder/reply" or die "no reply: $!\n";
    return join '', <$reply>;
}

write_file('settings', <<"END");
[tsa]
default_tsa = local
[local]
serial = $folder/serial
signer_digest = sha256
default_policy = 1.2.3.4
digests = sha1, sha256, sha384, sha512
END
write_file('serial', "01\n");
$| = 1;
print 'http://127.0.0.1:', $server->sockport, "/\n";
while (my $client = $server->accept) {
    binmode $client;
    my $length = 0;
    while (my $line = <$client>) {
        $length = $1 if $line =~ /^Content-Length:\s*(\d+)/i;
        print $client "HTTP/1.1 100 Continue\r\n\r\n" if $line =~ /^Expect:/i;
        last if $line =~ /^\r?\n$/;
    }
    my $query;
    read $client, $query, $length;
    my $reply = answer($query);
    print $client "HTTP/1.0 200 OK\r\nContent-Type: application/timestamp-reply\r\nContent-Length: ", length $reply, "\r\n\r\n", $reply;
    close $client;
}
