#!/usr/bin/env bash
# End-to-end check at a scale factor of 2 (QT_SCALE_FACTOR=2 on a 2560x1600
# screen), as on a HiDPI monitor.
#
#   tests/e2e/hidpi.sh VISTARRO VISTARRO_STORE VISTARRO_PRINT
#
# Screenshots of the main window, the picture preview, the show, the about box
# and the print preview (hidpi-*.png in $E2E_OUT) for a person to look at;
# checked here: the main window comes up at twice its size, the show draws one
# picture pixel on one device pixel, the print preview's pointer is drawn for
# the device pixels.
set -euo pipefail

[ $# -eq 3 ] || { echo "usage: $0 VISTARRO VISTARRO_STORE VISTARRO_PRINT" >&2 && exit 2; }
vistarro=$(realpath "$1")
store_tool=$(realpath "$2")
print_tool=$(realpath "$3")
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
REQUIRED_TOOLS="python3"
E2E_SCREEN=2560x1600
# shellcheck source=lib.sh
source "$here/lib.sh"
# shellcheck source=album.sh
source "$here/album.sh"
prepare_pictures
export QT_SCALE_FACTOR=2

# How many device pixels of the screenshot's row Y aren't black.
drawn_width() {
  convert "$out/$1.png" -crop "${screen_size%x*}x1+0+$2" +repage -fuzz 3% -fill white +opaque black \
    -colorspace gray -format '%[fx:round(mean*w)]' info:
}

start_app
shot hidpi-main
eval "$(xdotool getwindowgeometry --shell "$window")"
[ "$WIDTH" -ge 1200 ] || fail "the main window is $WIDTH device pixels wide at scale 2 (see $out/hidpi-main.png)"
focus_main
click_at $((2 * found_row[0])) $((2 * found_row[1]))
key ctrl+a
key Insert
for _ in $(seq 1 10); do
  [ "$(stored 'fPICTURES\Items' Items)" = 3 ] && break
  sleep 0.5
done
shot hidpi-added
[ "$(stored 'fPICTURES\Items' Items)" = 3 ] || fail "ctrl+a and Insert did not add three pictures (see $out/hidpi-added.png)"
key Return
preview=$(wait_window '^Picture Preview$' "the picture preview did not open from Enter on the found list")
sleep 1
shot hidpi-preview
key Escape
timeout 10 bash -c 'while xdotool search --onlyvisible --name "^Picture Preview$" >/dev/null; do sleep 0.2; done' ||
  fail "Escape did not close the picture preview"

focus_main
key F12
sleep 1.5
shot hidpi-show
# The first picture is 320 pixels wide: on a scaled screen still 320 device
# pixels, in the middle of the screen.
width=$(drawn_width hidpi-show $((${screen_size#*x} / 2)))
[ "$width" = 320 ] || fail "the show's picture is $width device pixels wide, not 320 (see $out/hidpi-show.png)"
key Escape
sleep 0.5

# The about box and its drawn logo.
focus_main
key alt+h
key a
about=$(wait_window '^About$' "Help > About did not open the about box")
sleep 1
shot hidpi-about
key Escape
stop_app

# The print preview of a short document.
document="$work/sample.html"
printf '<h1>Vistarro</h1><p>%s</p>\n' "A page of the print preview at twice the size." >"$document"
export CUPS_SERVER=/nonexistent
"$print_tool" "$document" >>"$out/vistarro-print.log" 2>&1 &
app_pid=$!
window=$(wait_window '^Preview$' "the print preview did not appear (see $out/vistarro-print.log)")
# Without a window manager a new window is drawn once it has been resized.
[ "$wm" = none ] && xdotool windowsize "$window" 1800 1400
sleep 2
shot hidpi-print-preview
# Over the page the pointer is a magnifying glass drawn for the device pixels:
# 64 by 64 with its hot spot at twice (9, 8), in many shades (a 32-pixel
# pointer blown up by the server would be blurred or small).
timeout 5 xdotool mousemove --window "$window" 500 600
sleep 0.5
pointer=$(python3 "$here/cursor.py")
step "pointer over the page: $pointer"
case "$pointer" in
  "64x64+18+16 "*) ;;
  *) fail "the pointer over the page is $pointer, not the magnifier of 64x64 with its hot spot at 18,16" ;;
esac
kill "$app_pid"
wait "$app_pid" 2>/dev/null || true
app_pid=""
step "passed"
