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

# zip_folder FOLDER ARCHIVE: all files of the folder, whose name is the first part of each path, in one order and with one
# time. The names are UTF-8.
zip_folder() {
    local parent name
    parent=$(dirname "$1") name=$(basename "$1")
    find "$1" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +
    find "$1" -type f -exec chmod 644 {} +
    rm -f "$2"
    (cd "$parent" && find "$name" -type f | sort | zip -q -9 -X -D "$2" -@) || die "zip failed for $2"
}
