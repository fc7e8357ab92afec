#!/usr/bin/env perl
# Checks a bill of materials against the form SPDX 2.3 and against the packages beside it: check-bill.pl FILE
# Prints each error; the exit code is 1 if there is one.
use strict;
use warnings;
use Digest::SHA;
use JSON::PP;

my ($file) = @ARGV;
my ($folder, $version) = $file =~ m{^(.*)/qptools-([\d.]+)\.spdx\.json$} or die "$file has another name\n";
my $errors = 0;

sub check {
    my ($holds, $what) = @_;
    return if $holds;
    print "$what\n";
    $errors++;
}

sub fields {
    my ($object, $what, %wanted) = @_;
    for my $name (sort keys %wanted) {
        my $value = $object->{$name};
        check(scalar(defined $value && !ref $value && $value =~ /^(?:$wanted{$name})$/s), "$what: $name is '" . ($object->{$name} // '') . "'");
    }
}

open my $in, '<:raw', $file or die "$file: $!\n";
my $bill = JSON::PP->new->utf8->decode(join '', <$in>);

fields($bill, 'document',
    spdxVersion => 'SPDX-2\.3',
    dataLicense => 'CC0-1\.0',
    SPDXID => 'SPDXRef-DOCUMENT',
    name => "qptools-\Q$version\E",
    documentNamespace => 'urn:uuid:[0-9a-f]{8}-[0-9a-f]{4}-5[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}');
fields($bill->{creationInfo}, 'creationInfo', created => '\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ');
check(join('|', @{ $bill->{creationInfo}{creators} }) eq "Tool: qptools-package-$version", 'another creator');

# Licences: SPDX's own that occur here, and those whose text the document has.
my %licences = map { $_ => 1 } qw(GPL-3.0-or-later GCC-exception-3.1 ZPL-2.1 MIT BSD-3-Clause NOASSERTION);
my %own_licences;
for my $licence (@{ $bill->{hasExtractedLicensingInfos} }) {
    fields($licence, 'licence', licenseId => 'LicenseRef-[A-Za-z0-9.-]+', extractedText => '.{40,}');
    $own_licences{ $licence->{licenseId} }++;
}

sub check_licence {
    my ($text, $what) = @_;
    for my $name (split / (?:AND|WITH) /, $text) {
        check($licences{$name} || $own_licences{$name}, "$what: unknown licence $name");
        $own_licences{$name} = 'used' if $own_licences{$name};
    }
}

my (%packages, %by_file);
for my $package (@{ $bill->{packages} }) {
    my $what = $package->{name} // 'a package';
    fields($package, $what,
        SPDXID => 'SPDXRef-[A-Za-z0-9.-]+',
        name => '.+',
        versionInfo => '\d.*',
        downloadLocation => 'NOASSERTION',
        licenseConcluded => '.+',
        licenseDeclared => '.+',
        copyrightText => '.+',
        primaryPackagePurpose => 'LIBRARY|ARCHIVE|INSTALL');
    check(JSON::PP::is_bool($package->{filesAnalyzed}) && !$package->{filesAnalyzed}, "$what: files are said to be listed");
    check(!$packages{ $package->{SPDXID} }, "$what: its identifier is there twice");
    check_licence($package->{$_}, $what) for qw(licenseConcluded licenseDeclared);
    $packages{ $package->{SPDXID} } = $package;
    $by_file{ $package->{packageFileName} } = $package if $package->{packageFileName};
}
check($own_licences{$_} eq 'used', "$_ is the licence of nothing") for sort keys %own_licences;

# Every package that is delivered, and no other, with its checksums.
opendir my $listing, $folder or die "$folder: $!\n";
my @delivered = sort grep { /\.(zip|msi)$/ } readdir $listing;
my @described = sort grep { $_ ne 'qptools.dll' } keys %by_file;
check("@delivered" eq "@described", "delivered: @delivered; described: @described");

sub check_sums {
    my ($package, $bytes, $where) = @_;
    my %sums = map { $_->{algorithm} => $_->{checksumValue} } @{ $package->{checksums} };
    check(join(' ', sort keys %sums) eq 'SHA1 SHA256', "$where: other checksums");
    check(($sums{SHA1} // '') eq Digest::SHA::sha1_hex($bytes), "$where: SHA1");
    check(($sums{SHA256} // '') eq Digest::SHA::sha256_hex($bytes), "$where: SHA256");
}

sub output {
    open my $pipe, '-|', @_ or die "$_[0]: $!\n";
    binmode $pipe;
    return join '', <$pipe>;
}

my (%relations, %contains_module);
for my $relation (@{ $bill->{relationships} }) {
    my ($from, $type, $to) = @$relation{qw(spdxElementId relationshipType relatedSpdxElement)};
    check($from eq 'SPDXRef-DOCUMENT' || $packages{$from}, "a relation of $from, which is nothing");
    check($packages{$to}, "a relation to $to, which is nothing");
    push @{ $relations{"$from $type"} }, $to;
    $contains_module{ $packages{$from}{packageFileName} } = 1 if $type eq 'CONTAINS' && $to eq 'SPDXRef-Module';
}
for my $name (@delivered) {
    open my $content, '<:raw', "$folder/$name" or die "$name: $!\n";
    check_sums($by_file{$name}, join('', <$content>), $name) if $by_file{$name};
    check($by_file{$name}{versionInfo} eq $version, "$name: another version");
    check(scalar(grep { $_ eq $by_file{$name}{SPDXID} } @{ $relations{'SPDXRef-DOCUMENT DESCRIBES'} }), "$name is not described");
    next if $name =~ /\.msi$/; # its test unpacks it
    my ($module) = grep { m{(^|/)qptools\.dll$} } split /\n/, output('unzip', '-Z1', "$folder/$name");
    check(!!$module == !!$contains_module{$name}, "$name: whether it contains the module");
    check_sums($by_file{'qptools.dll'}, output('unzip', '-p', "$folder/$name", $module), "$name, $module") if $module;
}

my %components = map { $_ => $packages{$_}{name} } grep { /^SPDXRef-Component-/ } keys %packages;
my $linked = join ' ', map { s/^SPDXRef-Component-//r } @{ $relations{'SPDXRef-Module STATIC_LINK'} };
check($linked eq 'libgcc libstdcxx mingw-w64', "linked in: $linked");
for my $id (sort keys %components) {
    fields($packages{$id}, $id, licenseConcluded => '(?!NOASSERTION).+', copyrightText => '(?!NOASSERTION).*Copyright.*');
    my $name = $packages{$id}{externalRefs}[0]{referenceLocator} // '';
    check(scalar($name =~ m{^pkg:deb/debian/[a-z0-9%.-]+@[A-Za-z0-9.%~-]+$}i), "$id: its origin is '$name'");
    my @users = grep { my $key = $_; grep { $_ eq $id } @{ $relations{$key} } } keys %relations;
    check(scalar @users, "$id is part of nothing");
}
for my $id (grep { !$components{$_} } sort keys %packages) {
    fields($packages{$id}, $id, licenseConcluded => 'NOASSERTION', licenseDeclared => 'NOASSERTION', copyrightText => 'NOASSERTION');
}
exit($errors ? 1 : 0);
