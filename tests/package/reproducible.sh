#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds the Debian packages again, in another folder, time zone and language and with other rights for new files, and
# expects the bytes of the first time. Not tested again.
#
# usage: reproducible.sh FOLDER_OF_PACKAGES
set -eu
here=$(cd "$(dirname "$0")" && pwd)
packages=$(cd "$1" && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

(
    umask 077
    export TZ=Pacific/Auckland LC_ALL=C.UTF-8
    DEB_BUILD_OPTIONS="nocheck parallel=$(getconf _NPROCESSORS_ONLN)"
    export DEB_BUILD_OPTIONS
    "$here/../../debian/build.sh" "$folder/another" >/dev/null
)
status=0
for file in "$packages"/*.deb "$packages"/*.dsc "$packages"/*.tar.*; do
    cmp "$file" "$folder/another/$(basename "$file")" || status=1
done
[ "$status" -ne 0 ] || echo 'built a second time: the same bytes'
exit "$status"
