# Shared by the end-to-end checks: failing with a message, a work folder that
# goes away, a virtual X screen of its own, and screenshots. A check lists the
# tools it needs beyond these in REQUIRED_TOOLS before it sources this file.
#
# E2E_WM=openbox runs the screen under a window manager, which frames, places
# and focuses windows as a desktop does; unset (or "none") the screen is bare.
# Many faults of placement and focus show only under a window manager, so CTest
# runs each check both ways.
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

for tool in Xvfb xdotool xwd xwininfo convert ${REQUIRED_TOOLS:-}; do
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

