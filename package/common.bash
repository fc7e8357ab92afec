# Shared by the steps of package/make.

die() {
    echo "package: $*" >&2
    exit 1
}

# wanted_file FILE...: ends the step unless each of them is there and not empty.
wanted_file() {
    local file
    for file in "$@"; do
        [ -s "$file" ] || die "$file is missing: build it first"
    done
}

# zip_folder FOLDER ARCHIVE [LEVEL]: all files of the folder, whose name is the first part of each path, in one order and with one
# time. The names are UTF-8.
zip_folder() {
    local parent name
    parent=$(dirname "$1") name=$(basename "$1")
    find "$1" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +
    find "$1" -type f -exec chmod 644 {} +
    rm -f "$2"
    (cd "$parent" && find "$name" -type f | sort | zip -q "-${3:-9}" -X -D "$2" -@) || die "zip failed for $2"
}

# check_certificate: ends the step if something is to be signed and cannot be.
check_certificate() {
    [ -n "$QP_CERT" ] || return 0
    local of_certificate of_key
    of_certificate=$(openssl x509 -in "$QP_CERT" -noout -pubkey 2>/dev/null) ||
        die "$QP_CERT is no certificate (PEM)"
    of_key=$(openssl pkey -in "$QP_KEY" -pubout -passin pass: 2>/dev/null) ||
        die "$QP_KEY is no private key (PEM, without a password)"
    [ "$of_certificate" = "$of_key" ] || die "$QP_KEY is not the key of the certificate $QP_CERT"
    openssl x509 -in "$QP_CERT" -noout -ext extendedKeyUsage 2>/dev/null | grep -q 'Code Signing' ||
        die "the certificate $QP_CERT is not one for code signing"
    openssl x509 -in "$QP_CERT" -noout -checkend 0 >/dev/null ||
        die "the certificate $QP_CERT is expired: $(openssl x509 -in "$QP_CERT" -noout -enddate)"
}

# sign FILE DESCRIPTION: signs the file in place, if there is a certificate. A server of time stamps is asked only if
# QP_TIMESTAMP_URL names one. Without it the signature is valid as long as the certificate, and the same each time if
# the key is one of RSA.
sign() {
    [ -n "$QP_CERT" ] || return 0
    local stamp=() said
    [ -z "${QP_TIMESTAMP_URL:-}" ] || stamp=(-ts "$QP_TIMESTAMP_URL")
    rm -f "$1.signed"
    said=$(osslsigncode sign -certs "$QP_CERT" -key "$QP_KEY" -h sha256 -n "$2" -time "$SOURCE_DATE_EPOCH" \
        "${stamp[@]}" -in "$1" -out "$1.signed" 2>&1) || die "cannot sign $1: $said"
    mv "$1.signed" "$1"
}

# windows_text: a text from standard input to standard output, with the version for @VERSION@ and the line ends of Windows.
windows_text() {
    sed -e "s/@VERSION@/$QP_VERSION/g" -e 's/$/\r/'
}
