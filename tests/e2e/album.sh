# Shared by the end-to-end checks of the main window, sourced after lib.sh:
# prepare_pictures (three pictures in $pictures, a store seeded so that the
# program opens in that folder), seed_store for other values, and the steps that
# start, drive and end the program. The check sets $vistarro (the program) and $store_tool
# (vistarro-store) first.
here=${here:-$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)}
store="$XDG_CONFIG_HOME/ZUV Software Development/settings.sqlite"
pictures="$work/pictures"
mkdir -p "$pictures"

program_key='SOFTWARE\ZUV Software Development\Vistarro'

# Writes text values into the store, made anew when missing, before the
# program starts: seed_store KEY NAME VALUE [KEY NAME VALUE ...] with full key
# paths below HKEY_CURRENT_USER. The program's own store code writes them.
seed_store() {
  timeout 20 "$store_tool" set "$@" || fail "vistarro-store could not seed the store at $store"
  step "store seeded at $store"
}

# Three pictures in $pictures and a store seeded so that the program opens in
# that folder.
prepare_pictures() {
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
seed_store "$program_key\\fPREFERENCES\\Items" "Files Location" "$pictures/"
}

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
  # Without --sync, which waits for a motion that never comes when the pointer
  # stands there already.
  DISPLAY=$input_display timeout 5 xdotool mousemove $((win_x + $1)) $((win_y + $2)) sleep 0.2 click 1
  sleep 0.4
}

key() {
  DISPLAY=$input_display timeout 5 xdotool key --clearmodifiers "$@"
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

