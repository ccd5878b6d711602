#!/usr/bin/env bash
# The package as a user gets it: unpacked into a root whose usr tree is read-only, started offscreen by
# a user other than root with an empty home, until its first window shows. The return files must be
# made in the user's data folder, and nothing written under usr.
set -euo pipefail
build="$1"
fail() { echo "FAIL: $*" >&2; exit 1; }

cmake --build "$build" --target package >/dev/null
deb=$(ls -t "$build"/vorlan_*_amd64.deb | head -n 1)
work=$(mktemp -d)
trap 'chmod -R u+w "$work"; rm -rf "$work"' EXIT
chmod 755 "$work"
dpkg-deb -x "$deb" "$work/root"
usr="$work/root/usr"
home="$work/home"
mkdir "$home"

# Root writes through any permission, so the program runs as nobody when the test runs as root.
as_user=()
if [ "$(id -u)" -eq 0 ]; then
  chown 65534:65534 "$home"
  as_user=(setpriv --reuid=65534 --regid=65534 --clear-groups)
fi
chmod -R a-w "$usr"
listing() { (cd "$work/root" && find usr -printf '%p %s %T@ %m\n' | sort); }
before=$(listing)

version=$(env -i PATH=/usr/bin:/bin "$usr/bin/vorlan" --version)
[ "$version" = "vorlan $(dpkg-deb -f "$deb" Version)" ] || fail "--version says '$version'"

env -i PATH=/usr/bin:/bin HOME="$home" XDG_DATA_HOME="$home/data" XDG_RUNTIME_DIR="$home/run" QT_QPA_PLATFORM=offscreen \
  "${as_user[@]}" "$usr/bin/vorlan" --quit-when-shown || fail "the program did not start and end"
for f in nwForm10DB.mdb Form10Data.mdb TAXDATA.mdb; do
  [ -f "$home/data/Vorlan/$f" ] || fail "$f was not made in the user's data folder"
done
[ "$(listing)" = "$before" ] || fail "something was written under usr: $(diff <(echo "$before") <(listing))"

bash "$(dirname "$0")/no_display_test.sh" "$usr/bin/vorlan" "${as_user[@]}" || fail "the program started without a display"
copyright="$usr/share/doc/vorlan/copyright"
[ -f "$copyright" ] || fail "no /usr/share/doc/vorlan/copyright"
head -n 1 "$copyright" | grep -qx 'Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/' ||
  fail "the copyright file is not in Debian's format"

desktop-file-validate "$usr"/share/applications/*.desktop || fail "desktop entry"
if command -v appstreamcli >/dev/null; then
  appstreamcli validate --no-net "$usr"/share/metainfo/*.metainfo.xml >/dev/null || fail "metainfo"
fi
for font in fonts-smc-meera fonts-liberation2 fonts-dejavu-core libsqlcipher0; do
  dpkg-deb -f "$deb" Depends | grep -q "$font" || fail "Depends lacks $font"
done
echo "package ok: $(basename "$deb")"
