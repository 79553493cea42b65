#!/bin/sh
# SPDX-License-Identifier: MIT
# Runs a script in a system made for it, of the same release as this one, with the packages and a C compiler installed
# and nothing else. The system is gone afterwards, and this one is not touched.
#
# usage: fresh_system.sh FOLDER_OF_PACKAGES SCRIPT
#
# Exit status 0: the script ended well; 1: it did not, or the packages cannot be installed; 3: no such system can be
# made here, for want of mmdebstrap, a mirror or the permission.
set -eu
packages=$1 script=$2
if ! command -v mmdebstrap >/dev/null; then
    echo 'mmdebstrap is missing'
    exit 3
fi
# shellcheck source=/dev/null
release=$(. /etc/os-release && echo "$VERSION_CODENAME")

notes=$(mktemp -d)
trap 'rm -rf "$notes"' EXIT

# The hook runs outside of the new system, whose root it is given, but not always as a user who may look into the
# folders of the caller. It notes how far it came.
cp "$packages"/libqv8numeric*.deb "$script" "$notes"
cat > "$notes/hook" <<END
#!/bin/sh
set -eu
touch '$notes/made'
cp '$notes'/*.deb '$notes/$(basename "$script")' "\$1/tmp"
chroot "\$1" sh -c 'dpkg --install /tmp/*.deb && /tmp/$(basename "$script")'
touch '$notes/done'
END
chmod -R a+rwX,u+x "$notes"
chmod a+x "$notes/hook"

# --dpkgopt: there is nothing to lose that would have to be on the disk.
mmdebstrap --variant=essential --include=gcc,libc6-dev,pkgconf --dpkgopt=force-unsafe-io \
    --customize-hook="$notes/hook \"\$1\" >&2" "$release" /dev/null || true

if [ -e "$notes/done" ]; then
    exit 0
fi
[ -e "$notes/made" ] || exit 3
exit 1
