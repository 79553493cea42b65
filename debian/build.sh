#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds the Debian packages of the work tree, as it stands but without files that git does not track, in a folder that
# is made anew. Nothing is written anywhere else. The bytes of the packages depend on the sources alone.
#
# usage: build.sh FOLDER
set -eu
umask 022
source=$(cd "$(dirname "$0")/.." && pwd)
rm -rf "$1"
mkdir -p "$1"
folder=$(cd "$1" && pwd)
cd "$source"

version=$(dpkg-parsechangelog -S Version)
SOURCE_DATE_EPOCH=$(dpkg-parsechangelog -S Timestamp)
export SOURCE_DATE_EPOCH
name=qv8numeric-${version%-*}
orig=$folder/qv8numeric_${version%-*}.orig.tar.gz

# Every file of the sources, ended by NULs; in a source archive, all but what is built.
sources() {
    if [ -n "$(git ls-files 2>/dev/null)" ]; then
        git ls-files -z
    else
        find . ! -type d ! -path './build*/*' ! -path '*/__pycache__/*' -printf '%P\0'
    fi
}

# pack FILE_OF_NAMES ARCHIVE: an archive that does not tell who made it when.
pack() {
    tar --create --file="$2" --mtime="@$SOURCE_DATE_EPOCH" --mode=u=rwX,go=rX \
        --owner=0 --group=0 --numeric-owner --transform="s,^,$name/,S" --no-recursion --null --files-from="$1"
}

sources | LC_ALL=C sort --zero-terminated > "$folder/sources"
grep --null-data --invert-match '^debian/' "$folder/sources" > "$folder/upstream"
pack "$folder/sources" "$folder/sources.tar"
pack "$folder/upstream" "${orig%.gz}"
gzip --no-name "${orig%.gz}"
tar --extract --file="$folder/sources.tar" --directory="$folder"
rm "$folder/sources" "$folder/upstream" "$folder/sources.tar"

cd "$folder/$name"
export DEB_BUILD_OPTIONS="${DEB_BUILD_OPTIONS:-parallel=$(getconf _NPROCESSORS_ONLN)}"
if ! dpkg-buildpackage --no-sign > ../build.log 2>&1; then
    cat ../build.log >&2
    exit 1
fi
cd "$folder"
ls ./*.deb
