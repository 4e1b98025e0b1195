#!/usr/bin/env bash
# End-to-end check of what a desktop's X server and window manager add:
#
#   tests/e2e/desktop.sh VISTARRO VISTARRO_STORE
#
# A first start with a stored folder that no longer exists: the main window has
# its design size, and neither the tree nor the focus replaces the folder. Then,
# in a folder of five pictures: a click on the heading band takes the list's
# commands away; the picture preview opens as it closed; the about box stands in
# the middle of the screen and can't be maximized or stay minimized; the show is full screen with
# no task bar entry and no icon; keys held down act once. Screenshots go to
# $E2E_OUT (a new temporary folder when unset). Any mismatch exits with status 1.
set -euo pipefail

if [ $# -ne 2 ]; then
  echo "usage: $0 VISTARRO VISTARRO_STORE" >&2
  exit 2
fi
vistarro=$(realpath "$1")
store_tool=$(realpath "$2")
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

REQUIRED_TOOLS="python3 xprop"
# shellcheck source=lib.sh
source "$here/lib.sh"
# shellcheck source=album.sh
source "$here/album.sh"

# Five pictures of one colour each, in the order the found list shows them.
colours=(red lime blue yellow magenta)
for i in "${!colours[@]}"; do
  convert -size 200x150 "xc:${colours[$i]}" "$pictures/$((i + 1)).bmp"
done

# The colour of the screen's middle, as "R,G,B".
middle_colour() {
  xwd -root -silent | convert xwd:- -crop 1x1+640+400 -format '%[fx:int(255*r)],%[fx:int(255*g)],%[fx:int(255*b)]' info:
}

# A window's frame as "X Y W H": its client area and the frame the manager
# reports around it (none on the bare screen).
frame_of() {
  local x y w h extents left=0 right=0 top=0 bottom=0
  read -r x y <<<"$(client_origin "$1")"
  w=$(xwininfo -id "$1" | sed -n 's/^ *Width: *//p')
  h=$(xwininfo -id "$1" | sed -n 's/^ *Height: *//p')
  extents=$(xprop -id "$1" _NET_FRAME_EXTENTS 2>/dev/null | sed -n 's/.*= *//p' | tr -d ' ')
  [ -n "$extents" ] && IFS=, read -r left right top bottom <<<"$extents"
  echo "$((x - left)) $((y - top)) $((w + left + right)) $((h + top + bottom))"
}

# A window's frame once the window manager and the program have placed it: the
# same twice running, half a second apart.
settled_frame() {
  local frame="" previous=""
  for _ in $(seq 1 20); do
    sleep 0.5
    frame=$(frame_of "$1")
    [ "$frame" = "$previous" ] && break
    previous=$frame
  done
  echo "$frame"
}

# Waits until no window of that name is shown any more.
wait_gone() {
  timeout 15 bash -c 'while xdotool search --onlyvisible --name "$1" >/dev/null 2>&1; do sleep 0.2; done' _ "$1" ||
    fail "the window named $1 did not close"
}

# --- A first start; the stored folder is gone. ------------------------------
seed_store "$program_key\\fPREFERENCES\\Items" "Files Location" "$work/gone/"
start_app
shot desktop-first-start
read -r width height <<<"$(xwininfo -id "$window" | sed -n 's/^ *\(Width\|Height\): *//p' | tr '\n' ' ')"
# The inner area is 9675 by 6375 twips, 645 by 425 pixels at 96 dpi, below the menu bar.
[ "$width" -eq 645 ] && [ "$height" -ge 440 ] && [ "$height" -le 470 ] ||
  fail "the first start's window is ${width}x${height}, not 645 wide and 425 below its menu bar"
focus_main
key Tab
stop_app
[ "$(stored 'fPREFERENCES\Items' 'Files Location')" = "$work/gone/" ] ||
  fail "a start replaced the stored folder with $(stored 'fPREFERENCES\Items' 'Files Location')"

# --- The picture folder, with a preview stored in its normal state. ---------
preview_key='SOFTWARE\ZUV Software Development\GLOBAL\frmPPrevPhoto\Window'
seed_store "$program_key\\fPREFERENCES\\Items" "Files Location" "$pictures/" \
  "$preview_key" "Window State" 0 "$preview_key" Left 3000 "$preview_key" Top 3000 \
  "$preview_key" Width 6000 "$preview_key" Height 4500
start_app
heading=(600 80)

# A click on the heading band takes the focus, and Insert adds nothing there.
focus_main
click_at "${found_row[@]}"
click_at "${heading[@]}"
key Insert
[ -z "$(stored 'fPICTURES\Items' Items)" ] || fail "Insert added after a click on the heading band"

# The preview opens as it closed, three times running.
click_at "${found_row[@]}"
places=()
for round in 1 2 3; do
  key Return
  preview=$(wait_window '^Picture Preview$')
  places+=("$(settled_frame "$preview")")
  key Escape
  wait_gone '^Picture Preview$'
  focus_main
done
[ "${places[0]}" = "200 200 400 300" ] && [ "${places[1]}" = "${places[0]}" ] && [ "${places[2]}" = "${places[0]}" ] ||
  fail "the preview's frames were ${places[*]}; stored 200 200 400 300"

# The about box: in the middle of the screen, no maximize.
key alt+h
key a
about=$(wait_window '^About$')
read -r ax ay aw ah <<<"$(settled_frame "$about")"
shot desktop-about
dx=$((2 * ax + aw - 1280))
dy=$((2 * ay + ah - 800))
[ "${dx#-}" -le 1 ] && [ "${dy#-}" -le 1 ] || fail "the about box's frame $ax,$ay ${aw}x$ah is off the middle"
if [ "$wm" != none ]; then
  actions=$(xprop -id "$about" _NET_WM_ALLOWED_ACTIONS)
  case "$actions" in *MAXIMIZE*) fail "the about box can be maximized: $actions" ;; esac
  # Openbox offers to minimize it all the same: the box and its owner come back.
  timeout 5 xdotool windowminimize "$about"
  sleep 1.5
  for shown in "$about" "$window"; do
    xwininfo -id "$shown" | grep -q IsViewable || fail "minimizing the about box hid window $shown"
  done
fi
key Escape
focus_main

# --- The show: full screen, off the task bar, no icon, one step per held key.
click_at "${found_row[@]}"
key ctrl+a
key Insert
shot desktop-added
[ "$(stored 'fPICTURES\Items' Items)" = 5 ] || fail "ctrl+a and Insert did not add the five pictures"
key F12
sleep 1.5
show=$(xdotool getwindowfocus)
shot desktop-show
if [ "$wm" != none ]; then
  state=$(xprop -id "$show" _NET_WM_STATE)
  case "$state" in *_NET_WM_STATE_FULLSCREEN*_NET_WM_STATE_SKIP_TASKBAR* | *_NET_WM_STATE_SKIP_TASKBAR*_NET_WM_STATE_FULLSCREEN*) ;;
  *) fail "the show is not full screen and off the task bar: $state" ;; esac
fi
# The show takes no icon of its own; openbox hangs its generic one on a window
# without, so the check is that it isn't the program's icon.
show_icon=$(xprop -id "$show" _NET_WM_ICON)
if [ "$wm" = none ]; then
  case "$show_icon" in *'not found'*) ;; *) fail "the show has a window icon" ;; esac
else
  [ "$show_icon" != "$(xprop -id "$window" _NET_WM_ICON)" ] || fail "the show has the program's icon"
fi
[ "$(middle_colour)" = "255,0,0" ] || fail "the show did not start with picture 1 (middle is $(middle_colour))"
timeout 5 xdotool click 3
timeout 5 xdotool keydown Right
sleep 1.5
timeout 5 xdotool keyup Right
sleep 0.8
shot desktop-show-held
[ "$(middle_colour)" = "0,255,0" ] ||
  fail "Right held for 1.5 s did not step once to picture 2 (middle is $(middle_colour), see desktop-show-held.png)"
key Escape
focus_main

# Insert held in the found list adds the marked picture once.
click_at "${found_row[@]}"
timeout 5 xdotool keydown Insert
sleep 1.5
timeout 5 xdotool keyup Insert
sleep 0.8
[ "$(stored 'fPICTURES\Items' Items)" = 6 ] ||
  fail "Insert held for 1.5 s took the album from 5 to $(stored 'fPICTURES\Items' Items) slots, not 6"
stop_app
step "passed"
