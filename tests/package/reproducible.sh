#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds the Debian packages again, in another folder, time zone and language and with other rights for new files, and
# expects the bytes of the first time.
#
# usage: reproducible.sh FOLDER_OF_PACKAGES
set -eu
here=$(cd "$(dirname "$0")" && pwd)
packages=$(cd "$1" && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

(
    umask 077
    TZ=Pacific/Auckland LC_ALL=C.UTF-8 "$here/../../debian/build.sh" "$folder/another"
)
status=0
for file in "$packages"/*.deb "$packages"/*.dsc "$packages"/*.tar.*; do
    cmp "$file" "$folder/another/$(basename "$file")" || status=1
done
exit "$status"
