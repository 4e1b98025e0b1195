#!/usr/bin/env bash
# Random input to the real program on a virtual X screen, for as long as asked.
#
#   tests/e2e/monkey.sh VISTARRO [SECONDS]      (60 unless given)
#   MONKEY_SEED=N tests/e2e/monkey.sh ...       repeats the input of an earlier run
#
# Clicks anywhere in the main window (the folder tree, both lists, the toolbar,
# the splitters), opens menus and context menus and picks from them, types
# Insert, Ctrl+Del, F12, arrows, Escape, Tab, Return, Space and the context-menu
# key, in whatever window is in front (the show, the preview, the properties, the
# about box). Now and then the program is killed, or quits by File > Exit, and
# starts again in another folder: one of good pictures or one of hostile files.
#
# Fails on a sanitizer report, an exit that nobody asked for or that isn't
# clean, a window whose program doesn't answer a ping for 10 seconds, or a store
# that fails PRAGMA integrity_check or holds a picture in a slot above "Items".
# Run it with E2E_WM=openbox to have a window manager; screenshots of a failure
# and the program's log go to $E2E_OUT.
set -euo pipefail

if [ $# -lt 1 ] || [ $# -gt 2 ]; then
  echo "usage: $0 VISTARRO [SECONDS]" >&2
  exit 2
fi
vistarro=$(realpath "$1")
seconds=${2:-60}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
seed=${MONKEY_SEED:-$(od -An -N4 -tu4 /dev/urandom | tr -d ' ')}
RANDOM=$seed

REQUIRED_TOOLS="python3"
# shellcheck source=lib.sh
source "$here/lib.sh"
store="$XDG_CONFIG_HOME/ZUV Software Development/settings.sqlite"
export BROWSER=true
export ASAN_OPTIONS="abort_on_error=1"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
step "seed $seed, $seconds seconds"

# --- Two folders: good pictures, and files named like pictures that aren't. ---
good="$work/good"
hostile="$work/hostile"
mkdir -p "$good" "$hostile"
python3 - "$good" "$hostile" <<'PY'
import os, struct, sys
good, hostile = sys.argv[1:]
def bmp(w, h, colour):
    row = bytes(colour[::-1]) * w
    row += b"\0" * ((4 - len(row) % 4) % 4)
    pixels = row * h
    header = struct.pack("<2sIHHI", b"BM", 54 + len(pixels), 0, 0, 54)
    return header + struct.pack("<IiiHHIIiiII", 40, w, h, 1, 24, 0, len(pixels), 2835, 2835, 0, 0) + pixels
for i in range(12):
    colour = ((i * 70) % 256, (i * 150) % 256, (255 - i * 20) % 256)
    open(f"{good}/picture{i:02}.bmp", "wb").write(bmp(40 + 37 * i, 30 + 23 * i, colour))
whole = bmp(200, 100, (200, 30, 30))
files = {
    "cut short.bmp": whole[: len(whole) // 2],
    "empty.jpg": b"",
    "huge.bmp": whole[:18] + struct.pack("<ii", 60000, 60000) + whole[26:54],
    "not a picture.gif": b"GIF89a" + b"\xff" * 40,
    "text.jpg": b"just some words\n" * 20,
    "fine.bmp": whole,
}
for name, data in files.items():
    open(os.path.join(hostile, name), "wb").write(data)
open(os.path.join(hostile.encode(), b"odd \xff\xfe name.bmp"), "wb").write(whole)
os.mkdir(os.path.join(hostile, "a folder.jpg"))
os.mkfifo(os.path.join(hostile, "a pipe.gif"))
os.symlink(os.path.join(hostile, "nowhere.bmp"), os.path.join(hostile, "dangling.bmp"))
PY

# "Files Location" once the store has it; the program writes it at every start.
set_folder() {
  [ -f "$store" ] || return 0
  python3 - "$store" "$1/" <<'PY'
import sqlite3, sys
db = sqlite3.connect(sys.argv[1], timeout=10)
db.execute("UPDATE reg_value SET data = ? WHERE folded = 'files location'", (sys.argv[2].encode(),))
db.commit()
PY
}

# The store is whole, and no slot above "Items" holds a picture.
check_store() {
  [ -f "$store" ] || return 0
  python3 - "$store" <<'PY' || { shot failure; fail "the store fails its checks after $1 (seed $seed)"; }
import sqlite3, sys
db = sqlite3.connect(f"file:{sys.argv[1]}?mode=ro", uri=True, timeout=10)
verdict = db.execute("PRAGMA integrity_check").fetchone()[0]
if verdict != "ok":
    sys.exit(f"integrity_check: {verdict}")
def values(key):
    return {name: data for name, data in db.execute(
        "SELECT name, data FROM reg_value WHERE key = ?", (key,))}
root = "software\\zuv software development\\vistarro\\fpictures\\"
items = values(root + "items").get("Items", b"0")
items = int(items) if items.strip().isdigit() else 0
used = [int(n) for n, d in values(root + "selection").items() if n.isdigit() and d]
if used and max(used) > items:
    sys.exit(f"slot {max(used)} holds a picture above Items = {items}")
PY
}

check_log() {
  if grep -qE 'ERROR: (Address|Leak)Sanitizer|runtime error:|SUMMARY: (Address|UndefinedBehavior)Sanitizer' "$out/vistarro.log"; then
    shot failure
    fail "a sanitizer report (seed $seed, see $out/vistarro.log)"
  fi
}

window=""
start_app() {
  local folder=$good
  [ $((RANDOM % 2)) -eq 0 ] && folder=$hostile
  set_folder "$folder"
  "$vistarro" >>"$out/vistarro.log" 2>&1 &
  app_pid=$!
  window=$(timeout 30 xdotool search --sync --onlyvisible --pid "$app_pid" --name '^Vistarro$' | head -1) || true
  [ -n "$window" ] || fail "the main window did not appear (seed $seed, see $out/vistarro.log)"
  starts=$((starts + 1))
  step "start $starts in $(basename "$folder")"
}

# The program ended although nobody asked it to: only a clean exit (a random
# File > Exit or Alt+F4) is allowed.
ended() {
  local status=0
  wait "$app_pid" || status=$?
  app_pid=""
  check_log
  [ "$status" -eq 0 ] || fail "Vistarro ended with status $status (seed $seed, see $out/vistarro.log)"
  exits=$((exits + 1))
  check_store "an exit"
}

# The main thread's sleeps so far: a thread caught in a loop or a deadlock sleeps
# no more.
sleeps() {
  awk '/^voluntary_ctxt_switches/ { print $2 }' "/proc/$app_pid/task/$app_pid/status" 2>/dev/null || echo 0
}

# The program takes up an event sent to its main window within 10 seconds: its
# main thread wakes for it and goes back to sleep.
answers() {
  local before
  before=$(sleeps)
  if ! python3 "$here/ping.py" "$window" 2>>"$out/ping.log"; then
    # The window is gone: the program is ending of its own (a random File >
    # Exit), which with the leak check at exit takes a moment.
    timeout 10 bash -c 'while kill -0 "$1" 2>/dev/null; do sleep 0.1; done' _ "$app_pid" ||
      fail "the main window went away but Vistarro did not end (seed $seed)"
    return 0
  fi
  for _ in $(seq 1 100); do
    [ "$(sleeps)" -gt "$before" ] && return 0
    kill -0 "$app_pid" 2>/dev/null || return 0
    sleep 0.1
  done
  shot failure
  fail "Vistarro did not answer for 10 seconds (seed $seed)"
}

# A point inside the main window, anywhere.
random_point() {
  eval "$(xdotool getwindowgeometry --shell "$window" 2>/dev/null || echo X=0 Y=0 WIDTH=1 HEIGHT=1)"
  px=$((X + RANDOM % WIDTH))
  py=$((Y + RANDOM % HEIGHT))
}

keys=(Insert ctrl+Delete F12 Up Down Left Right Escape Escape Tab shift+Tab Menu Return space
  ctrl+a Home End Page_Down alt+f alt+e alt+v alt+h F10 F1 alt+F4)

act() {
  local roll=$((RANDOM % 100))
  if [ $roll -lt 40 ]; then
    random_point
    timeout 5 xdotool mousemove "$px" "$py" click $((RANDOM % 4 == 0 ? 3 : 1)) || true
  elif [ $roll -lt 45 ]; then
    random_point
    timeout 5 xdotool mousemove "$px" "$py" click --repeat 2 1 || true
  elif [ $roll -lt 50 ]; then
    # A drag, across a splitter or between the lists.
    random_point
    timeout 5 xdotool mousemove "$px" "$py" mousedown 1 || true
    random_point
    timeout 5 xdotool mousemove "$px" "$py" mouseup 1 || true
  else
    local k=${keys[$((RANDOM % ${#keys[@]}))]}
    if [ "$k" = ctrl+Delete ]; then
      # The program removes on the release of Delete with Ctrl still down.
      timeout 5 xdotool keydown ctrl key Delete keyup ctrl || true
    else
      timeout 5 xdotool key "$k" || true
    fi
  fi
  actions=$((actions + 1))
}

starts=0
exits=0
kills=0
actions=0
start_app
end=$((SECONDS + seconds))
while [ $SECONDS -lt $end ]; do
  act
  sleep 0.$((RANDOM % 3))
  if ! kill -0 "$app_pid" 2>/dev/null; then
    ended
    start_app
    continue
  fi
  if [ $((actions % 25)) -eq 0 ]; then
    answers
    check_log
  fi
  if [ $((RANDOM % 150)) -eq 0 ]; then
    kill -9 "$app_pid"
    wait "$app_pid" 2>/dev/null || true
    app_pid=""
    kills=$((kills + 1))
    check_store "a kill"
    start_app
  fi
done

answers
kill -TERM "$app_pid" 2>/dev/null || true
wait "$app_pid" 2>/dev/null || true
app_pid=""
check_log
check_store "the end"
step "PASS: $actions actions, $starts starts, $exits exits of its own, $kills kills; seed $seed"
