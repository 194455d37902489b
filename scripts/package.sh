#!/bin/bash
# package.sh [preset]: builds the Debian package of the program, and says where it lies. The preset is `release` if none
# is named.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

preset=${1:-release}
build=build/$preset
scripts/install-packages.sh build package
# A tool that was missing when the build was configured is looked for once more.
if [ -f "$build"/CMakeCache.txt ] && grep -q '^RSVG_CONVERT.*NOTFOUND' "$build"/CMakeCache.txt; then
    cmake -U RSVG_CONVERT "$build" >/dev/null
fi
scripts/build.sh "$preset" pintalux64 icons >&2

work=$build/package
root=$work/root
documents=$root/usr/share/doc/pintalux64
rm -rf "$work"
mkdir -p "$work"/debian "$root"/DEBIAN
umask 022
DESTDIR=$root cmake --install "$build" --prefix /usr --strip >/dev/null
find "$root"/usr/share/man -name '*.1' -exec gzip -9n {} +
install -d "$documents"
gzip -9nc "$build"/packaging/changelog >"$documents"/changelog.gz
{
    cat packaging/copyright
    sed -n '/^Permission/,$p' LICENSE | sed 's/^$/./; s/^/ /'
} >"$documents"/copyright
chmod 644 "$documents"/*
find "$root"/usr -type d -exec chmod 755 {} +

version=$(dpkg-parsechangelog --file "$build"/packaging/changelog --show-field Version)
architecture=$(dpkg --print-architecture)
# What the program is linked to, as the packages of this system call it.
printf 'Source: pintalux64\n\nPackage: pintalux64\nArchitecture: any\n' >"$work"/debian/control
libraries=$(cd "$work" && dpkg-shlibdeps -O root/usr/bin/pintalux64 | sed -n 's/^shlibs:Depends=//p')
sed -e "s/@VERSION@/$version/" -e "s/@ARCHITECTURE@/$architecture/" -e "s/@LIBRARIES@/$libraries/" \
    -e "s/@SIZE@/$(du -sk --exclude=DEBIAN "$root" | cut -f1)/" packaging/control.in >"$root"/DEBIAN/control
(cd "$root" && find usr -type f -print0 | sort -z | xargs -0 md5sum) >"$root"/DEBIAN/md5sums

package=$work/pintalux64_${version}_$architecture.deb
dpkg-deb --root-owner-group -Zxz --build "$root" "$package" >/dev/null
echo "$package"
