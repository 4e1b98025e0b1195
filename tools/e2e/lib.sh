# Shared by the end-to-end checks: failing with a message, a work folder that
# goes away, a virtual X screen of its own, and screenshots. A check lists the
# tools it needs beyond these in REQUIRED_TOOLS before it sources this file.
#
# E2E_WM=openbox runs the screen under a window manager, which frames, places
# and focuses windows as a desktop does; unset (or "none") the screen is bare.
# Many faults of placement and focus show only under a window manager, so CTest
# runs each check both ways.
# Every check takes two arguments: the program it drives (E2E_PROGRAM names it
# in the usage line) and vistarro-store, which reads the store back.
if [ $# -ne 2 ]; then
  echo "usage: $0 ${E2E_PROGRAM:-PROGRAM} VISTARRO_STORE" >&2
  exit 2
fi
program=$(realpath "$1")
store_tool=$(realpath "$2")

fail() {
  echo "e2e: FAIL: $*" >&2
  exit 1
}
step() { echo "e2e: $*"; }

wm=${E2E_WM:-none}
case "$wm" in
  none) ;;
  openbox) REQUIRED_TOOLS="${REQUIRED_TOOLS:-} openbox xprop" ;;
  *) fail "unknown E2E_WM=$wm (openbox or none)" ;;
esac

for tool in Xvfb xdotool xwd xwininfo xset convert ${REQUIRED_TOOLS:-}; do
  command -v "$tool" >/dev/null || fail "$tool is not installed (scripts/install-deps.sh installs it)"
done

work=$(mktemp -d)
out=${E2E_OUT:-$(mktemp -d)}
mkdir -p "$out"
xvfb_pid=""
wm_pid=""
app_pid=""
cleanup() {
  if [ -n "$app_pid" ]; then kill "$app_pid" 2>/dev/null || true; fi
  if [ -n "$wm_pid" ]; then kill "$wm_pid" 2>/dev/null || true; fi
  if [ -n "$xvfb_pid" ]; then kill "$xvfb_pid" 2>/dev/null || true; fi
  wait 2>/dev/null || true
  rm -rf "$work"
}
trap cleanup EXIT

# The program draws with xcb on our own screen and uses our own store.
unset QT_QPA_PLATFORM QT_SCALE_FACTOR QT_SCREEN_SCALE_FACTORS QT_AUTO_SCREEN_SCALE_FACTOR
export ASAN_OPTIONS=detect_leaks=0
export XDG_CONFIG_HOME="$work/config"
mkdir -p "$XDG_CONFIG_HOME"

# --- The virtual screen: Xvfb picks a free display and tells its number. ---
Xvfb -displayfd 1 -screen 0 1280x800x24 -nolisten tcp >"$work/display" 2>"$work/xvfb.log" &
xvfb_pid=$!
timeout 10 bash -c 'until [ -s "$1" ]; do sleep 0.1; done' _ "$work/display" ||
  fail "Xvfb did not start: $(cat "$work/xvfb.log")"
display=":$(head -1 "$work/display")"
export DISPLAY="$display"
timeout 10 bash -c 'until xdpyinfo >/dev/null 2>&1 || xdotool getmouselocation >/dev/null 2>&1; do sleep 0.1; done' ||
  fail "Xvfb did not start on $display: $(cat "$work/xvfb.log")"
# A key held down repeats, as on a desktop: the checks hold keys with it.
xset r on
xset q | grep -q "auto repeat: *on" || fail "the X server's auto-repeat is off"
step "Xvfb on $display, screenshots in $out"

# --- The window manager, when asked for: ready once it names itself on the root.
if [ "$wm" = openbox ]; then
  mkdir -p "$work/openbox"
  openbox --sm-disable >"$work/openbox/log" 2>&1 &
  wm_pid=$!
  timeout 10 bash -c 'until xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q "window id"; do sleep 0.1; done' ||
    fail "openbox did not start: $(cat "$work/openbox/log")"
  step "openbox manages $display"
fi

# The root position of a window's client area, as "X Y". xwininfo asks the
# server; xdotool's geometry counts a window manager's frame offset twice.
client_origin() {
  xwininfo -id "$1" 2>/dev/null |
    sed -n 's/^ *Absolute upper-left \([XY]\): *\(-\?[0-9]*\)$/\2/p' | tr '\n' ' '
}

shot() {
  timeout 20 bash -c 'xwd -root -silent | convert xwd:- "$1"' _ "$out/$1.png" || fail "screenshot $1 failed"
  step "screenshot $out/$1.png"
}


# --- The program and its store. -------------------------------------------
# A check that starts the main window sets vistarro to the program first.
store="$XDG_CONFIG_HOME/ZUV Software Development/settings.sqlite"
program_key='SOFTWARE\ZUV Software Development\Vistarro'

# Writes text values into the store, made anew when missing, before the
# program starts: seed_store KEY NAME VALUE [KEY NAME VALUE ...] with full key
# paths below HKEY_CURRENT_USER.
seed_store() {
  mkdir -p "$(dirname "$store")"
  python3 - "$(dirname "${BASH_SOURCE[0]}")/../../src/platform/RegistryFormat.h" "$store" "$@" <<'PY'
import re, sqlite3, sys
header, store, *triples = sys.argv[1:]
text = open(header, encoding="utf-8").read()
# The schema is a run of string literals after "Schema ="; the version a constant.
literals = re.search(r"Schema\s*=\s*((?:\s*\"(?:[^\"\\]|\\.)*\")+)\s*;", text).group(1)
schema = "".join(re.findall(r"\"((?:[^\"\\]|\\.)*)\"", literals))
version = int(re.search(r"constexpr int Version = (\d+);", text).group(1))
db = sqlite3.connect(store)
db.executescript(schema)
db.execute(f"PRAGMA user_version={version}")
for at in range(0, len(triples), 3):
    key, name, value = triples[at:at + 3]
    parts = key.split("\\")
    for i in range(1, len(parts) + 1):
        path = "\\".join(parts[:i])
        db.execute("INSERT OR IGNORE INTO reg_key (folded, path) VALUES (?, ?)", (path.casefold(), path))
    db.execute("DELETE FROM reg_value WHERE key = ? AND folded = ?", (key.casefold(), name.casefold()))
    db.execute("INSERT INTO reg_value (key, folded, name, type, data) VALUES (?, ?, ?, 1, ?)",
               (key.casefold(), name.casefold(), name, value.encode("utf-8")))
db.commit()
db.close()
PY
  step "store seeded at $store"
}

# A value of the program's key as the store holds it now ("" when missing).
stored() {
  timeout 20 "$store_tool" dump "SOFTWARE\\ZUV Software Development\\Vistarro\\$1" 2>/dev/null |
    sed -n "s/^\"$2\"=REG_SZ:\"\\(.*\\)\"\$/\\1/p" || true
}

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
  # Without --sync, which waits for a motion that never comes when the pointer
  # stands there already.
  timeout 5 xdotool mousemove $((win_x + $1)) $((win_y + $2)) sleep 0.2 click 1
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
