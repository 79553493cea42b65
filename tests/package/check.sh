#!/bin/sh
# SPDX-License-Identifier: MIT
# Looks at freshly built Debian packages with lintian and blhc, and at the library in them as at any other build; uses
# them by CMake; and builds the example from them alone, in a fresh system. Nothing is installed here.
#
# usage: check.sh FOLDER_OF_PACKAGES
set -eu
here=$(cd "$(dirname "$0")" && pwd)
tests=$here/..
packages=$(cd "$1" && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export PYTHONDONTWRITEBYTECODE=1

say() {
    printf '\n--- %s\n' "$*"
}

say 'lintian'
# The upload and the debugging symbols have no place for the override that the packages have, with its reason.
lintian --allow-root --suppress-tags bogus-mail-host --display-info --pedantic --fail-on error,warning \
    "$packages"/*.changes

say 'hardening of every compiler call'
blhc --all "$packages/build.log"

say 'the library'
root=$folder/root
for package in "$packages"/*.deb; do
    dpkg-deb --extract "$package" "$root"
done
architecture=$(dpkg-architecture -q DEB_HOST_MULTIARCH)
libraries=$root/usr/lib/$architecture
python3 "$tests/interface/linkage.py" "$libraries/libqv8numeric.so.1"
python3 "$tests/interface/exports.py" "$libraries/libqv8numeric.so.1" "$tests/../src/qv8numeric.map" \
    "$tests/interface/exported_names.txt"
echo 'linkage and exports are right'

say 'the CMake package'
cmake -S "$tests/install/package" -B "$folder/package" -DCMAKE_PREFIX_PATH="$root/usr" \
    -DREQUEST='1 COMPONENTS shared static' -DTARGETS='qv8numeric;static'
cmake --build "$folder/package"
(cd "$folder/package" && ctest --output-on-failure --no-tests=error)

say 'the example, with only the packages present'
"$here/fresh_system.sh" "$packages" "$tests/../debian/tests/example" > "$folder/fresh_system.log" 2>&1 && status=0 ||
    status=$?
case $status in
    0)
        grep 'the same from both libraries' "$folder/fresh_system.log"
        echo 'built and run in a fresh system'
        ;;
    3)
        tail -n 3 "$folder/fresh_system.log"
        echo 'No fresh system can be made here; the packages are only unpacked:'
        PKG_CONFIG_SYSROOT_DIR=$root PKG_CONFIG_LIBDIR=$libraries/pkgconfig LD_LIBRARY_PATH=$libraries \
            "$tests/../debian/tests/example"
        ;;
    *)
        cat "$folder/fresh_system.log"
        exit "$status"
        ;;
esac
