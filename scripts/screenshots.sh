#!/usr/bin/env bash
# Makes the README's screenshots from the end-to-end check of the main window
# (tests/e2e/run.sh): docs/screenshots/main-window.png (the window, cut out of the
# screen) and docs/screenshots/show.png (the show, at half size).
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/debug}
shots=$(mktemp -d)
trap 'rm -rf "$shots"' EXIT
E2E_OUT="$shots" bash tests/e2e/run.sh "$build/vistarro" "$build/tools/vistarro-store" >/dev/null
mkdir -p docs/screenshots
# The window stands on a black screen: trimming the black leaves the window.
convert "$shots/main-added.png" -trim +repage -strip PNG8:docs/screenshots/main-window.png
convert "$shots/show.png" -resize 50% -strip docs/screenshots/show.png
ls -l docs/screenshots
