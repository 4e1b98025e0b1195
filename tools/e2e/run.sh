#!/usr/bin/env bash
# End-to-end check of the main window on a virtual X screen.
#
#   tools/e2e/run.sh VISTARRO VISTARRO_STORE
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
format_header="$here/../../src/platform/RegistryFormat.h"

REQUIRED_TOOLS="python3"
# shellcheck source=lib.sh
source "$here/lib.sh"
store="$XDG_CONFIG_HOME/ZUV Software Development/settings.sqlite"
pictures="$work/pictures"
mkdir -p "$pictures"

# --- Three pictures. --------------------------------------------------------
if command -v convert >/dev/null; then
  convert -size 320x240 gradient:red-yellow -fill navy -draw "circle 160,120 160,40" "$pictures/one.jpg"
  convert -size 320x240 gradient:green-white -fill maroon -draw "rectangle 60,60 260,180" "$pictures/two.jpg"
  convert -size 320x240 gradient:blue-cyan -fill orange -draw "polygon 160,30 290,210 30,210" "$pictures/three.jpg"
else
  python3 - "$pictures" <<'PY'
import struct, sys
def bmp(path, w, h, colour):
    row = bytes(colour[::-1]) * w
    row += b"\0" * ((4 - len(row) % 4) % 4)
    pixels = row * h
    header = struct.pack("<2sIHHI", b"BM", 54 + len(pixels), 0, 0, 54)
    info = struct.pack("<IiiHHIIiiII", 40, w, h, 1, 24, 0, len(pixels), 2835, 2835, 0, 0)
    open(path, "wb").write(header + info + pixels)
for name, colour in (("one", (220, 40, 40)), ("two", (40, 180, 60)), ("three", (40, 60, 220))):
    bmp(f"{sys.argv[1]}/{name}.bmp", 320, 240, colour)
PY
fi
mapfile -t picture_files < <(cd "$pictures" && ls)
[ ${#picture_files[@]} -eq 3 ] || fail "expected three pictures in $pictures, made ${#picture_files[@]}"

# --- The store, seeded so that the program opens in the picture folder. ------
mkdir -p "$(dirname "$store")"
python3 - "$format_header" "$store" "$pictures/" <<'PY'
import re, sqlite3, sys
header, store, folder = sys.argv[1:]
text = open(header, encoding="utf-8").read()
# The schema is a run of string literals after "Schema ="; the version a constant.
literals = re.search(r"Schema\s*=\s*((?:\s*\"(?:[^\"\\]|\\.)*\")+)\s*;", text).group(1)
schema = "".join(re.findall(r"\"((?:[^\"\\]|\\.)*)\"", literals))
version = int(re.search(r"constexpr int Version = (\d+);", text).group(1))
db = sqlite3.connect(store)
db.executescript(schema)
db.execute(f"PRAGMA user_version={version}")
key = "SOFTWARE\\ZUV Software Development\\Vistarro\\fPREFERENCES\\Items"
parts = key.split("\\")
for i in range(1, len(parts) + 1):
    path = "\\".join(parts[:i])
    db.execute("INSERT OR IGNORE INTO reg_key (folded, path) VALUES (?, ?)", (path.casefold(), path))
name = "Files Location"
db.execute("INSERT INTO reg_value (key, folded, name, type, data) VALUES (?, ?, ?, 1, ?)",
           (key.casefold(), name.casefold(), name, folder.encode("utf-8")))
db.commit()
db.close()
PY
step "store seeded at $store"

# --- Driving the program. ---------------------------------------------------
start_app() {
  "$vistarro" >>"$out/vistarro.log" 2>&1 &
  app_pid=$!
  window=$(timeout 30 xdotool search --sync --onlyvisible --name '^Vistarro$' | head -1) || true
  [ -n "$window" ] || fail "the main window did not appear (see $out/vistarro.log)"
  # Give the window time to lay out and list the folder, and to stand at its
  # restored place: on a loaded machine that can take a while.
  sleep 1.5
  local place="" previous=""
  for _ in $(seq 1 20); do
    window=$(xdotool search --onlyvisible --name '^Vistarro$' | head -1)
    place=$(client_origin "$window")
    [ -n "$place" ] && [ "$place" = "$previous" ] && break
    previous=$place
    sleep 0.5
  done
  read -r win_x win_y <<<"$place"
  step "main window $window at $win_x,$win_y"
}

# Clicks at a point given relative to the main window's top left corner.
click_at() {
  timeout 5 xdotool mousemove --sync $((win_x + $1)) $((win_y + $2)) click 1
  sleep 0.4
}

key() {
  timeout 5 xdotool key --clearmodifiers "$@"
  sleep 0.4
}

focus_main() {
  timeout 5 xdotool windowfocus --sync "$window" 2>/dev/null || true
}

stop_app() {
  # A second try when the first keys were lost on a busy machine.
  local tries
  for tries in 1 2; do
    focus_main
    key alt+f
    key x
    timeout 15 bash -c 'while kill -0 "$1" 2>/dev/null; do sleep 0.2; done' _ "$app_pid" && break
    key Escape
  done
  kill -0 "$app_pid" 2>/dev/null && fail "Vistarro did not quit from File > Exit"
  local status=0
  wait "$app_pid" || status=$?
  app_pid=""
  [ "$status" -eq 0 ] || fail "Vistarro exited with status $status (see $out/vistarro.log)"
}

# Points on the default layout, relative to the window's client area on a
# 1280x800 screen: the first row of the found list and
# of the selected list (the window opens at 61,63 with the found list's first
# row at 360,194 and the selected list's at 360,349).
found_row=(299 131)
selected_row=(299 286)

# A value of the program's key as the store holds it now ("" when missing).
stored() {
  timeout 20 "$store_tool" dump "SOFTWARE\\ZUV Software Development\\Vistarro\\$1" 2>/dev/null |
    sed -n "s/^\"$2\"=REG_SZ:\"\\(.*\\)\"\$/\\1/p" || true
}

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
