#!/usr/bin/env bash
# End-to-end check of the main window on a virtual X screen.
#
#   tests/e2e/run.sh VISTARRO VISTARRO_STORE
#
# Opens Vistarro in a folder of three pictures, adds all of them to the album,
# runs the slide show, removes the first picture again, quits, starts once more,
# and then reads the store back with vistarro-store to see that the album and
# the folder were kept. Screenshots go to $E2E_OUT (a new temporary folder when
# unset) and are kept. Every wait is bounded; any mismatch exits with status 1.
set -euo pipefail

if [ $# -ne 2 ]; then
  echo "usage: $0 VISTARRO VISTARRO_STORE" >&2
  exit 2
fi
vistarro=$(realpath "$1")
store_tool=$(realpath "$2")
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

REQUIRED_TOOLS="python3"
# shellcheck source=lib.sh
source "$here/lib.sh"

# shellcheck source=album.sh
source "$here/album.sh"
prepare_pictures


start_app
shot main-start
focus_main
click_at "${found_row[@]}"
key ctrl+a
key Insert
shot main-added
[ "$(stored 'fPICTURES\Items' Items)" = 3 ] ||
  fail "ctrl+a and Insert on the found list did not add three pictures (see $out/main-added.png)"

# The slide show, then back.
key F12
sleep 1.5
shot show
shown=$(convert "$out/show.png" -format '%[fx:standard_deviation]' info:)
python3 -c "import sys; sys.exit(0 if float(sys.argv[1]) > 0.05 else 1)" "$shown" ||
  fail "the slide show screenshot is nearly uniform (deviation $shown): no picture shown"
key Escape
sleep 0.5

focus_main
click_at "${selected_row[@]}"
# Home makes the first row current whatever the rows' height (the click may land
# on another row when the font is smaller or the window otherwise laid out).
key Home
# The program removes on the release of Delete with Ctrl still down, and
# "xdotool key ctrl+Delete" lets go of Ctrl first: hold it by hand.
timeout 5 xdotool keydown ctrl
timeout 5 xdotool key Delete
timeout 5 xdotool keyup ctrl
sleep 0.4
shot main-removed
if [ -n "$(stored 'fPICTURES\Selection' 1)" ] || [ -z "$(stored 'fPICTURES\Selection' 2)" ]; then
  fail "ctrl+Delete on the selected list's first row did not blank slot 1 (see $out/main-removed.png)"
fi
stop_app

start_app
shot main-restarted
stop_app

# --- What the store kept. ---------------------------------------------------
dump=$(timeout 20 "$store_tool" dump 'SOFTWARE\ZUV Software Development\Vistarro') ||
  fail "vistarro-store dump failed"
printf '%s\n' "$dump" >"$out/store.txt"

python3 - "$out/store.txt" "$pictures/" "${picture_files[@]}" <<'PY'
import re, sys
dump_file, folder, *files = sys.argv[1:]
root = "HKEY_CURRENT_USER\\SOFTWARE\\ZUV Software Development\\Vistarro\\"
keys, current = {}, None
for line in open(dump_file, encoding="utf-8").read().splitlines():
    if line.startswith("[") and line.endswith("]"):
        current = keys.setdefault(line[1:-1].casefold(), {})
    elif current is not None and "=" in line:
        m = re.fullmatch(r'"((?:[^"\\]|\\.)*)"=REG_SZ:"((?:[^"\\]|\\.)*)"', line)
        if m:
            unescape = lambda s: re.sub(r"\\(.)", r"\1", s)
            current[unescape(m.group(1)).casefold()] = unescape(m.group(2))

def value(key, name):
    return keys.get((root + key).casefold(), {}).get(name.casefold())

problems = []
def expect(what, got, wanted):
    if got != wanted:
        problems.append(f"{what}: got {got!r}, expected {wanted!r}")

expect("fPICTURES\\Items Items", value("fPICTURES\\Items", "Items"), "3")
slots = [value("fPICTURES\\Selection", str(n)) for n in (1, 2, 3)]
expect("slot 1 (the removed first row)", slots[0], "")
expected_paths = sorted(folder + f for f in files)
kept = sorted(s for s in slots[1:] if s)
if len(kept) != 2 or any(p not in expected_paths for p in kept):
    problems.append(f"slots 2 and 3: got {slots[1:]!r}, expected two of {expected_paths!r}")
expect("fPREFERENCES\\Items Files Location", value("fPREFERENCES\\Items", "Files Location"), folder)
if problems:
    print("e2e: FAIL: the store does not hold what was done:", file=sys.stderr)
    for p in problems:
        print("  " + p, file=sys.stderr)
    sys.exit(1)
print("e2e: store holds 3 slots (slot 1 blank, 2 pictures) and the folder")
PY
step "passed"
