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

# The screen's size in pixels; E2E_SERVER=weston runs a Wayland session (weston
# with XWayland) on it.
screen_size=${E2E_SCREEN:-1280x800}
server=${E2E_SERVER:-xvfb}
case "$server" in
  xvfb) ;;
  weston) REQUIRED_TOOLS="${REQUIRED_TOOLS:-} weston Xwayland weston-screenshooter" ;;
  *) fail "unknown E2E_SERVER=$server (xvfb or weston)" ;;
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
  # The display server's log stays with the screenshots.
  cp "$work"/*.log "$out/" 2>/dev/null || true
  rm -rf "$work"
}
trap cleanup EXIT

# The program draws with xcb on our own screen and uses our own store.
unset QT_QPA_PLATFORM QT_SCALE_FACTOR QT_SCREEN_SCALE_FACTORS QT_AUTO_SCREEN_SCALE_FACTOR
# In the sanitizer build a leak at exit fails the check, but not what the
# system's libraries leak (CTest names the same file).
export LSAN_OPTIONS=${LSAN_OPTIONS:-suppressions=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/lsan.supp:print_suppressions=0}
export XDG_CONFIG_HOME="$work/config"
mkdir -p "$XDG_CONFIG_HOME"

# --- The virtual screen: Xvfb picks a free display and tells its number. ---
# -noreset: by default the server resets when its last client leaves, and a
# client that connects during the reset is dropped (xset: unable to open
# display), which the checks' short-lived clients hit now and then.
Xvfb -displayfd 1 -screen 0 "${screen_size}x24" -nolisten tcp -noreset >"$work/display" 2>"$work/xvfb.log" &
xvfb_pid=$!
timeout 10 bash -c 'until [ -s "$1" ]; do sleep 0.1; done' _ "$work/display" ||
  fail "Xvfb did not start: $(cat "$work/xvfb.log")"
display=":$(head -1 "$work/display")"
# Where the keys and the pointer are pressed: the screen itself, or under weston
# the screen that weston's output window stands on, so that they reach the
# program through the compositor as a person's do.
input_display=$display
if [ "$server" = weston ]; then
  # --- A Wayland session: weston's output as a window on the virtual screen
  # (its x11 backend; the headless one has no keyboard, and weston hands the X
  # keyboard focus only to the window that its own seat focuses), XWayland
  # beside it. Weston names the X display that it listens on in its log.
  export XDG_RUNTIME_DIR="$work/runtime"
  mkdir -m 700 "$XDG_RUNTIME_DIR"
  wayland_socket="wayland-e2e"
  DISPLAY=$input_display weston --backend=x11-backend.so --use-pixman --xwayland --width="${screen_size%x*}" \
    --height="${screen_size#*x}" --socket="$wayland_socket" --idle-time=0 --debug >"$work/weston.log" 2>&1 &
  wm_pid=$!
  timeout 30 bash -c 'until grep -q "xserver listening on display" "$1"; do sleep 0.1; done' _ "$work/weston.log" ||
    fail "weston did not start XWayland: $(cat "$work/weston.log")"
  display=$(sed -n 's/.*xserver listening on display \(:[0-9]*\).*/\1/p' "$work/weston.log" | head -1)
  export WAYLAND_DISPLAY="$wayland_socket"
fi
export DISPLAY="$display"
timeout 10 bash -c 'until xdpyinfo >/dev/null 2>&1 || xdotool getmouselocation >/dev/null 2>&1; do sleep 0.1; done' ||
  fail "the X server did not start on $display: $(cat "$work"/*.log)"
DISPLAY=$input_display xset q >/dev/null || fail "no X server answers on $input_display"
# A key held down repeats, as on a desktop: the checks hold keys with it.
DISPLAY=$input_display xset r on
DISPLAY=$input_display xset q | grep -q "auto repeat: *on" || fail "the X server's auto-repeat is off"
step "$server on $display, screenshots in $out"

# --- The window manager, when asked for: ready once it names itself on the root.
if [ "$wm" = openbox ]; then
  mkdir -p "$work/openbox"
  # On a loaded machine openbox now and then gives up on a display that has just
  # come up; a second or third start then finds it ready.
  for attempt in 1 2 3; do
    openbox --sm-disable >>"$work/openbox/log" 2>&1 &
    wm_pid=$!
    timeout 10 bash -c 'until xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q "window id"; do
      kill -0 "$1" 2>/dev/null || exit 1; sleep 0.1; done' _ "$wm_pid" && break
    kill "$wm_pid" 2>/dev/null || true
    wait "$wm_pid" 2>/dev/null || true
    wm_pid=""
    [ "$attempt" -lt 3 ] || fail "openbox did not start: $(cat "$work/openbox/log")"
    sleep 1
  done
  step "openbox manages $display"
fi

# The root position of a window's client area, as "X Y". xwininfo asks the
# server; xdotool's geometry counts a window manager's frame offset twice.
client_origin() {
  xwininfo -id "$1" 2>/dev/null |
    sed -n 's/^ *Absolute upper-left \([XY]\): *\(-\?[0-9]*\)$/\2/p' | tr '\n' ' '
}

# A screenshot of the whole screen. Under weston it is the compositor's output
# (weston-screenshooter writes wayland-screenshot-*.png into the folder it runs in).
# The id of the first visible window whose title matches PATTERN, once it is
# there (30 s at most); fails with WHAT, or with the pattern, when none comes.
wait_window() {
  local id
  id=$(timeout 30 xdotool search --sync --onlyvisible --name "$1" | head -1) || true
  [ -n "$id" ] || fail "${2:-no window named $1 appeared}"
  echo "$id"
}

shot() {
  if [ "$server" = xvfb ]; then
    timeout 20 bash -c 'xwd -root -silent | convert xwd:- "$1"' _ "$out/$1.png" || fail "screenshot $1 failed"
  else
    rm -rf "$work/shots" && mkdir "$work/shots"
    (cd "$work/shots" && timeout 20 weston-screenshooter >/dev/null 2>&1) || fail "screenshot $1 failed"
    mv "$work/shots"/*.png "$out/$1.png" || fail "screenshot $1 failed"
  fi
  step "screenshot $out/$1.png"
}

