# Shared by the tests of the packages: NAME-test BUILD_DIR. Sourced, it makes a folder for the test with a blank and letters
# outside ASCII in its name, and goes there.
#
# packages    the packages of this version, next_packages those of the next one
# create_seven  a program that creates the seven classes and says from which module; its head has its arguments
# folder      the test's folder, also as a path of Windows: windows_folder
set -eu
export LC_ALL=C.UTF-8
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
build=$(cd "$1" && pwd)
test_name=$(basename "$0" -test)
packages=$top/build/package
next_packages=$top/build/package-next
create_seven=$build/package_tools/create_seven.exe
version=$(cat "$top/VERSION")
folder="$build/package_tests/$test_name, geprüft 検査"

fail() {
    echo "$test_name: $*" >&2
    exit 1
}

# same WHAT EXPECTED ACTUAL: compares two files.
same() {
    diff "$2" "$3" || fail "$1 is not as expected (<), but (>)"
}

# windows_path PATH
windows_path() {
    echo "Z:${1//\//\\}"
}

# fresh_prefix: the Wine of this test has a new prefix, in which nothing ever ran. It is ended with the test. Until then a
# program that keeps running saves each of the others starting the desktop.
fresh_prefix() {
    local pristine=$build/package_tests/pristine
    (
        flock 9
        [ -e "$pristine/.ready" ] || { QP_WINE_PREFIX=$pristine "$top/tools/wine-run" cmd /c ver && QP_WINE_PREFIX=$pristine "$top/tools/wine-run" --end; } >&2
    ) 9>"$build/package_tests/.lock"
    export QP_WINE_PREFIX="$build/package_tests/$test_name.prefix"
    rm -rf "$QP_WINE_PREFIX"
    cp -a "$pristine" "$QP_WINE_PREFIX"
    trap '"$top/tools/wine-run" --end' EXIT
    wine "$build/bin/wine_keeper.exe" >"$QP_WINE_PREFIX/keeper.log" 2>&1 &
}

wine() {
    "$top/tools/wine-run" "$@"
}

# export_address MODULE NAME: the address of an exported function, if the module is loaded where it prefers.
export_address() {
    x86_64-w64-mingw32-objdump -p "$1" | perl -e '
        my ($wanted, %at, %names, $base) = shift;
        while (<STDIN>) {
            $base = hex $1 if /^ImageBase\s+(\w+)/;
            $at{$1} = hex $2 if /^\s*\[\s*(\d+)\] \+base\[\s*\d+\] (\w+) Export RVA/;
            $names{$2} = $1 if /^\s*\[\s*(\d+)\] (\w+)$/;
        }
        printf "0x%x\n", $base + $at{ $names{$wanted} };' "$2"
}

# The date that Wine gives its display driver at each start.
started='HKLM\\System\\CurrentControlSet\\Control\\Class\\\{4D36E968-E325-11CE-BFC1-08002BE10318\}\\0000: "DriverDateData"='

# state NAME: ends Wine and writes NAME.registry and NAME.files, the whole registry and all files of drive C with their
# check sums.
state() {
    wine --end
    perl "$top/tests/package/registry.pl" "$QP_WINE_PREFIX" | grep -vE "^$started" >"$1.registry"
    (
        cd "$QP_WINE_PREFIX/drive_c"
        find . -mindepth 1 -type d -printf '%P\n'
        find . -type f -exec md5sum {} + | sed 's|^\(.*\)  \./\(.*\)|\2 \1|'
        find . -type l -printf '%P\n'
    ) | sort >"$1.files"
}

# same_state WHAT EXPECTED ACTUAL: compares two states.
same_state() {
    same "$1: the registry" "$2.registry" "$3.registry"
    same "$1: the files" "$2.files" "$3.files"
}

# says WHAT EXPECTED_CODE EXPECTED_LINE COMMAND...: a Windows program prints this one line and ends with this exit code, of
# which only the lowest 8 bits arrive here. Wine's shell prints ? or one byte of an old code page for a letter outside ASCII:
# with cmd all of these are compared as ?.
says() {
    local what=$1 expected_code=$(($2 & 255)) expected=$3 code=0
    shift 3
    wine "$@" >"$folder/output" || code=$?
    echo "$expected" >"$folder/expected"
    if [[ $* == *cmd\ * ]]; then
        LC_ALL=C sed -i 's/[\o200-\o377]/?/g' "$folder/output"
        sed -i 's/[^ -~]/?/g' "$folder/expected"
    fi
    same "$what: the output" "$folder/expected" "$folder/output"
    [ $code = $expected_code ] || fail "$what: the exit code is $code"
}

# windows_texts FILE...: these files of a package are plain text with the line ends of Windows and no word left to replace.
windows_texts() {
    local file
    for file in "$@"; do
        [ "$(grep -c $'\r$' "$file")" = "$(grep -c '' "$file")" ] || fail "$file has other line ends than those of Windows"
        ! tr -d '\r' <"$file" | grep -q '[^ -~]' || fail "$file has letters outside ASCII"
        ! grep -q '@[A-Z]*@' "$file" || fail "$file: a word was not replaced"
    done
}

# readme_names_all: README.txt of this folder lists all files beside it, one in a line.
readme_names_all() {
    find . -type f ! -name README.txt -printf '%P\n' >"$folder/files"
    while read -r file; do
        grep -qF "    ${file//\//\\} " README.txt || fail "README.txt does not name $file"
    done <"$folder/files"
}

# made_again STEPS FILE: these steps of package/make give the same package again, in another folder and at another time.
made_again() {
    "$top/package/make" --only "$1" "$build" again >/dev/null || fail "package/make --only $1 failed"
    cmp "$packages/$2" "again/$2" || fail "$2 is another file when it is made again"
}

[ -d "$packages" ] || fail "there are no packages: run ./dev package"
rm -rf "$folder"
mkdir -p "$folder"
windows_folder=$(windows_path "$folder")
cd "$folder"
