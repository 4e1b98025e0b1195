#!/usr/bin/env bash
# End-to-end check of the print preview on a virtual X screen.
#
#   tests/e2e/print.sh VISTARRO_PRINT VISTARRO_STORE
#
# Opens a text file of 150 lines in vistarro-print, which shows the preview at
# once; goes to the last page and back, zooms in, prints from the toolbar (no
# dialog: "Print to PDF" writes <home>/sample.pdf on a machine without a
# printer), closes the preview and the program. Then the PDF must hold every page
# with its header, body and footer, and the store the preview's settings.
# Screenshots go to $E2E_OUT (a new temporary folder when unset).
set -euo pipefail

if [ $# -ne 2 ]; then
  echo "usage: $0 VISTARRO_PRINT VISTARRO_STORE" >&2
  exit 2
fi
print_tool=$(realpath "$1")
store_tool=$(realpath "$2")
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

REQUIRED_TOOLS="pdfinfo pdftotext"
# shellcheck source=lib.sh
source "$here/lib.sh"
# No printer but the PDF one, writing into a home of our own.
export HOME="$work/home"
mkdir -p "$HOME"
export CUPS_SERVER=/nonexistent
document="$work/sample.txt"
for line in $(seq 1 150); do
  echo "Line $line of the sample document, with a few more words to fill it."
done >"$document"
pdf="$HOME/sample.pdf"

# Keys to a window: it takes the focus first.
key() {
  timeout 5 xdotool windowfocus --sync "$1" 2>/dev/null || true
  timeout 5 xdotool key --clearmodifiers "${@:2}"
  sleep 0.5
}

"$print_tool" "$document" >>"$out/vistarro-print.log" 2>&1 &
app_pid=$!
preview=$(wait_window '^Preview$' "the preview did not appear (see $out/vistarro-print.log)")
# Without a window manager a new window is drawn once it has been resized.
xdotool windowsize "$preview" 900 700
sleep 1.5
shot preview-first

key "$preview" End
key "$preview" Home
# A left click on the page zooms in one step.
timeout 5 xdotool mousemove --window "$preview" 450 350 click 1
sleep 0.8
shot preview-zoomed
# The first button of the tool strip prints every page at once, with no dialog.
timeout 5 xdotool mousemove --window "$preview" 16 37 click 1
timeout 30 bash -c 'until [ -s "$1" ] && pdfinfo "$1" >/dev/null 2>&1; do sleep 0.2; done' _ "$pdf" ||
  fail "printing from the toolbar wrote no PDF at $pdf (see $out/vistarro-print.log)"
cp "$pdf" "$out/sample.pdf"

key "$preview" alt+f
key "$preview" c
timeout 10 bash -c 'while xdotool search --onlyvisible --name "^Preview$" >/dev/null 2>&1; do sleep 0.2; done' ||
  fail "File > Close did not close the preview"
main=$(xdotool search --onlyvisible --name 'sample.txt' | head -1)
[ -n "$main" ] || fail "the document window is gone"
key "$main" alt+f
key "$main" x
timeout 20 bash -c 'while kill -0 "$1" 2>/dev/null; do sleep 0.2; done' _ "$app_pid" ||
  fail "vistarro-print did not quit from File > Exit"
status=0
wait "$app_pid" || status=$?
app_pid=""
[ "$status" -eq 0 ] || fail "vistarro-print exited with status $status (see $out/vistarro-print.log)"

# --- What was printed. -------------------------------------------------------
pages=$(pdfinfo "$pdf" | sed -n 's/^Pages: *//p')
[ "$pages" -ge 2 ] || fail "the PDF has $pages pages, expected the whole document over several"
first=$(pdftotext -f 1 -l 1 -layout "$pdf" -)
last=$(pdftotext -f "$pages" -l "$pages" -layout "$pdf" -)
for expected in "Vistarro Report." "Line 1 of the sample" "sample.txt"; do
  grep -qF "$expected" <<<"$first" || fail "page 1 of the PDF lacks \"$expected\""
done
for expected in "Vistarro Report." "Line 150 of the sample" "sample.txt"; do
  grep -qF "$expected" <<<"$last" || fail "page $pages of the PDF lacks \"$expected\""
done
grep -qE "\\b$pages\\b +sample.txt" <<<"$last" || fail "the footer of page $pages lacks its number"

# --- What the preview kept: the zoom step it was closed on. ------------------
zoom=$(timeout 20 "$store_tool" dump 'SOFTWARE\ZUV Software Development\GLOBAL\frmPPrev\Items' |
  sed -n 's/^"Zoom"=REG_SZ:"\(.*\)"$/\1/p')
[ "$zoom" = "75 %" ] || fail "the preview stored the zoom \"$zoom\", expected \"75 %\" after one step in"
step "PASS: $pages pages printed with header, body and footer; zoom kept as $zoom"
