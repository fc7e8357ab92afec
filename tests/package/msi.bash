# Shared by the tests of the installation package, which source it after package.bash. They install copies that lie in the
# test's folder.
#
# msi, next_msi    the packages of this version and of the next one
# module           the installed module
# installed        where the prefix has the installed files
msi=qptools-$version-x64.msi
module='C:\Program Files\qptools\qptools.dll'
[ -e "$packages/$msi" ] || fail "there is no $msi: run ./dev package"

# use_next: the package of the next version is needed, too.
use_next() {
    local found=("$next_packages"/qptools-*-x64.msi)
    [ -e "${found[0]}" ] || fail "there is no package of the next version: run tests/package/next-version"
    next_msi=$(basename "${found[0]}")
    next_version=${next_msi#qptools-}
    next_version=${next_version%-x64.msi}
    cp "$next_packages/$next_msi" .
}

cp "$packages/$msi" .

# What registers no class, and what Wine writes by itself.
bookkeeping=(
    'HKLM\\Software\\Classes\\Installer'                               # advertised products, their features and sources
    'HKLM\\Software\\Microsoft\\Windows\\CurrentVersion\\Installer'    # components, features and properties of products
    'HKLM\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\\{[0-9A-F-]*\}' # the list of programs
)

# What Wine, unlike Windows, leaves when its only product is removed: keys without values, and a folder without files.
left_keys=(
    'HKLM\Software\Classes\Installer'
    'HKLM\Software\Classes\Installer\Features'
    'HKLM\Software\Classes\Installer\Products'
    'HKLM\Software\Classes\Installer\UpgradeCodes'
    'HKLM\Software\Microsoft\Windows\CurrentVersion\Installer\UpgradeCodes'
    'HKLM\Software\Microsoft\Windows\CurrentVersion\Installer\UserData'
    'HKLM\Software\Microsoft\Windows\CurrentVersion\Installer\UserData\S-1-5-18'
    'HKLM\Software\Microsoft\Windows\CurrentVersion\Installer\UserData\S-1-5-18\Components'
    'HKLM\Software\Microsoft\Windows\CurrentVersion\Installer\UserData\S-1-5-18\Products'
)
left_files=(windows/Installer)

# shown STATE: its registry without the book-keeping of Windows Installer.
shown() {
    local pattern
    pattern=$(IFS='|'; echo "${bookkeeping[*]}")
    grep -vE "^($pattern)(\\\\|: |\$)" "$1.registry"
}

# removed WHAT BEFORE AFTER: the state is that of before, and what Wine leaves.
removed() {
    { cat "$2.registry"; printf '%s\n' "${left_keys[@]}"; } | sort -u >expected.registry
    sort -u "$3.registry" >actual.registry
    same "$1: the registry" expected.registry actual.registry
    { cat "$2.files"; printf '%s\n' "${left_files[@]}"; } | sort -u >expected.files
    sort -u "$3.files" >actual.files
    same "$1: the files" expected.files actual.files
}

# msiexec WHAT EXPECTED_CODE ARGUMENT...: runs Windows Installer silently. Of the exit code the lowest 8 bits arrive here.
msiexec() {
    local what=$1 expected=$(($2 & 255)) code=0
    shift 2
    wine msiexec "$@" /qn >output || code=$?
    [ $code = $expected ] || fail "$what: the exit code is $code, not $expected: $(cat output)"
}

# property PACKAGE NAME
property() {
    msiinfo export "$1" Property | tr -d '\r' | awk -F '\t' -v name="$2" '$1 == name { print $2 }'
}

# fresh_installer: a new prefix; `installed` is where it will have the files.
fresh_installer() {
    fresh_prefix
    installed="$QP_WINE_PREFIX/drive_c/Program Files/qptools"
}
