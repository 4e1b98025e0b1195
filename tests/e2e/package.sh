#!/usr/bin/env bash
# Builds the Debian package from a build tree, unpacks it into a throw-away
# root and starts the installed program from there on a virtual X screen.
#
#   tests/e2e/package.sh BUILD_DIR
#
# Checks the package's files and Depends, then that the installed vistarro
# shows its main window, of the class that its desktop entry names, creates the
# store in the user's config folder and ends from File > Exit. The package goes to $E2E_OUT (kept); lintian is run by
# scripts/package.sh on a release build, not here.
set -euo pipefail

if [ $# -ne 1 ]; then
  echo "usage: $0 BUILD_DIR" >&2
  exit 2
fi
build=$(realpath "$1")
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

REQUIRED_TOOLS="cpack dpkg-deb dpkg-shlibdeps xprop"
# shellcheck source=lib.sh
source "$here/lib.sh"
# shellcheck source=album.sh
source "$here/album.sh"

# --- The package. ------------------------------------------------------------
(cd "$build" && timeout 300 cpack -B "$work/deb" >"$work/cpack.log" 2>&1) ||
  fail "cpack failed: $(cat "$work/cpack.log")"
deb=$(ls "$work"/deb/vistarro_*_amd64.deb 2>/dev/null | head -1)
[ -n "$deb" ] || fail "cpack made no vistarro_<version>_amd64.deb: $(ls "$work/deb")"
cp "$deb" "$out/"
step "package $(basename "$deb"), $(stat -c %s "$deb") bytes"

depends=$(dpkg-deb -f "$deb" Depends)
step "Depends: $depends"
for library in libqt6widgets6 libqt6gui6 libqt6printsupport6 libsqlite3-0 libc6; do
  grep -q "\b$library\b" <<<"$depends" || fail "Depends lacks $library: $depends"
done

root="$work/root"
dpkg-deb -x "$deb" "$root"
id=$(basename "$(ls "$root"/usr/share/applications/*.desktop)" .desktop)
for file in usr/bin/vistarro usr/bin/vistarro-store usr/bin/vistarro-info usr/bin/vistarro-print \
  "usr/share/applications/$id.desktop" "usr/share/metainfo/$id.metainfo.xml" \
  "usr/share/icons/hicolor/scalable/apps/$id.svg" "usr/share/icons/hicolor/48x48/apps/$id.png" \
  usr/share/man/man1/vistarro.1.gz usr/share/man/man1/vistarro-store.1.gz \
  usr/share/man/man1/vistarro-info.1.gz usr/share/man/man1/vistarro-print.1.gz \
  usr/share/doc/vistarro/copyright; do
  [ -s "$root/$file" ] || fail "the package lacks /$file"
done
step "the package holds the programs, the desktop entry ($id), icon, metadata, manual pages and copyright"

# --- The installed program. ------------------------------------------------
vistarro="$root/usr/bin/vistarro"
[ ! -e "$store" ] || fail "the store exists before the first start"
start_app
[ -s "$store" ] || fail "the installed program did not create the store at $store"
# The desktop ties the window to its menu entry (and icon) by the window's class.
wm_class=$(sed -n 's/^StartupWMClass=//p' "$root/usr/share/applications/$id.desktop")
xprop -id "$window" WM_CLASS | grep -q ", \"$wm_class\"\$" ||
  fail "the window's class ($(xprop -id "$window" WM_CLASS)) is not the desktop entry's StartupWMClass ($wm_class)"
shot package-main
stop_app
[ "$("$root/usr/bin/vistarro-store" dump | grep -c 'Files Location')" -ge 1 ] ||
  fail "the installed vistarro-store does not read the folder back from the store"
step "passed"
