#!/bin/sh
# Installs the build into a scratch root and checks that each file a desktop
# looks for is where it looks and is sound; then that the Debian package holds
# exactly those files and depends on what the programs load.
# Arguments: the build directory, then the programs built.
set -eu
build=$1
shift
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
fail() { echo "$*" >&2; exit 1; }
id=org.example.quintline share=usr/share

for p in "$@"; do [ -z "$p" ] || printf 'usr/bin/%s\n%s/man/man1/%s.1\n' "$p" $share "$p"; done >"$scratch/list"
printf '%s\n' applications/$id.desktop metainfo/$id.metainfo.xml \
  icons/hicolor/scalable/apps/$id.svg icons/hicolor/32x32/apps/$id.png \
  icons/hicolor/128x128/apps/$id.png | sed "s|^|$share/|" >>"$scratch/list"
sort "$scratch/list" >"$scratch/expected"

DESTDIR="$scratch/root" cmake --install "$build" --prefix /usr >/dev/null
cd "$scratch/root"
find usr -type f | sort | diff "$scratch/expected" - || fail "the installed files are not the expected ones"
for p in "$@"; do
  [ -z "$p" ] || [ -x "usr/bin/$p" ] || fail "usr/bin/$p is not executable"
  [ -z "$p" ] || [ -z "$(MANWIDTH=80 man --warnings -l $share/man/man1/$p.1 2>&1 >/dev/null)" ] ||
    fail "the manual page of $p has faults"
done
desktop-file-validate $share/applications/$id.desktop || fail "the desktop entry is refused"
[ -x "usr/bin/$(sed -n 's/^Exec=//p' $share/applications/$id.desktop)" ] || fail "Exec names no program"
grep -qx "Icon=$id" $share/applications/$id.desktop || fail "the desktop entry names another icon"
appstreamcli validate --no-net $share/metainfo/$id.metainfo.xml >/dev/null || fail "metainfo refused"
for size in 32 128; do
  file $share/icons/hicolor/${size}x$size/apps/$id.png | grep -q "PNG image data, $size x $size," ||
    fail "the $size pixel icon is not a $size pixel PNG"
done

cpack --config "$build/CPackConfig.cmake" -G DEB -B "$scratch/package" >/dev/null
deb=$(ls "$scratch"/package/*.deb)
dpkg-deb -x "$deb" "$scratch/unpacked"
(cd "$scratch/unpacked" && find usr -type f | sort) | diff "$scratch/expected" - ||
  fail "the package does not hold the installed files"
depends=", $(dpkg-deb -f "$deb" Depends)"
for needed in libc6 libstdc++6 libqt6widgets6 qt6-qpa-plugins; do
  case "$depends" in *", $needed"*) ;; *) fail "the package does not depend on $needed: ${depends#, }" ;; esac
done
