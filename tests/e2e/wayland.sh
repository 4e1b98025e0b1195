#!/usr/bin/env bash
# End-to-end check in a Wayland session: weston on a headless output with
# XWayland, as a GNOME or KDE session offers both. Keys reach the program
# through weston, as a person's do.
#
#   tests/e2e/wayland.sh VISTARRO VISTARRO_STORE
#
# The program must come up on XWayland (its window is an X11 window although
# WAYLAND_DISPLAY is set and the Wayland platform is installed), play the album
# over the whole output, end from File > Exit, and bring the album back at the
# next start. Weston places X11 windows itself, so placement is checked under
# openbox (run.sh), not here.
set -euo pipefail

[ $# -eq 2 ] || { echo "usage: $0 VISTARRO VISTARRO_STORE" >&2 && exit 2; }
vistarro=$(realpath "$1")
store_tool=$(realpath "$2")
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
REQUIRED_TOOLS="python3"
E2E_SERVER=weston
# shellcheck source=lib.sh
source "$here/lib.sh"
# shellcheck source=album.sh
source "$here/album.sh"
prepare_pictures

# The show: the program's visible window that is as large as the output.
show_window() {
  local candidate
  for candidate in $(xdotool search --onlyvisible --pid "$app_pid" 2>/dev/null); do
    eval "$(xdotool getwindowgeometry --shell "$candidate")"
    if [ "${WIDTH}x${HEIGHT}" = "$screen_size" ] && [ "$X" -eq 0 ] && [ "$Y" -eq 0 ]; then
      echo "$candidate"
      return 0
    fi
  done
  return 1
}

# The show's screenshot shows a picture and not weston's panel along the top.
check_show() {
  timeout 15 bash -c "$(declare -f show_window); app_pid=$app_pid screen_size=$screen_size; until show_window >/dev/null; do sleep 0.3; done" ||
    fail "no window of the program covers the ${screen_size} output in the show"
  sleep 1.5
  shot "$1"
  local spread top
  spread=$(convert "$out/$1.png" -format '%[fx:standard_deviation]' info:)
  top=$(convert "$out/$1.png" -crop "${screen_size%x*}x40+0+0" +repage -format '%[fx:standard_deviation]' info:)
  python3 -c "import sys; sys.exit(0 if float(sys.argv[1]) > 0.05 and float(sys.argv[2]) < 0.01 else 1)" "$spread" "$top" ||
    fail "the show does not cover the output with a picture (deviation $spread, top band $top; see $out/$1.png)"
}

start_app
# An X11 window of the program's own process on XWayland's display.
[ "$(xdotool getwindowpid "$window")" = "$app_pid" ] || fail "the main window is not the program's X11 window"
grep -q "libqxcb" "/proc/$app_pid/maps" || fail "the program did not load the xcb platform"
grep -q "libqwayland" "/proc/$app_pid/maps" && fail "the program loaded the Wayland platform"
shot wayland-main
# The folder tree has the keyboard at start; Tab goes on to the found list.
key Tab
key ctrl+a
key Insert
[ "$(stored 'fPICTURES\Items' Items)" = 3 ] || fail "ctrl+a and Insert did not add three pictures (see $out/wayland-main.png)"

key F12
check_show wayland-show
key Escape
sleep 0.5
stop_app

start_app
key F12
check_show wayland-show-again
key Escape
sleep 0.5
stop_app
step "passed"
