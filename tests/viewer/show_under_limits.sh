#!/usr/bin/env bash
# The show under limits of address space: for each LIMIT, 24 timed steps through
# pictures of up to 4000 x 3000 (vistarro-show-driver), which must neither end
# abnormally nor hang (60 s), and must always show the picture that the caption
# names or the one shown before. Prints one line per limit.
#
#   show_under_limits.sh SHOW_DRIVER LIMIT...
#
# A LIMIT of "327680k" is an absolute limit in KiB, as `ulimit -v` takes it; one
# of "32m" allows that many MiB beyond what the started program uses, which
# means the same on any machine and build.
set -uo pipefail
driver=$1
shift
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export QT_QPA_PLATFORM=offscreen XDG_CONFIG_HOME="$work/config"
"$driver" make "$work/pictures" 2>/dev/null || { echo "FAIL: could not make the pictures"; exit 1; }
failed=0
for limit in "$@"; do
  rm -rf "$XDG_CONFIG_HOME"
  case "$limit" in
    *k) (ulimit -v "${limit%k}"; exec timeout 60 "$driver" play "$work/pictures" 24) >"$work/out" 2>&1 ;;
    *m) timeout 60 "$driver" play "$work/pictures" 24 "${limit%m}" >"$work/out" 2>&1 ;;
    *) echo "FAIL: limit $limit is neither Nk nor Nm"; exit 2 ;;
  esac
  status=$?
  result=$(grep -E '^(steps|step) ' "$work/out" | tail -1)
  if [ $status -eq 0 ]; then
    echo "limit $limit: $result"
  elif ! grep -q '^started' "$work/out"; then
    # Too little even for the toolkit to start: nothing of the show to judge.
    echo "limit $limit: the program could not start ($(grep -v XDG_RUNTIME "$work/out" | head -1))"
  else
    echo "FAIL: limit $limit: status $status${result:+, $result}"
    grep -v XDG_RUNTIME "$work/out" | tail -5
    failed=1
  fi
done
exit $failed
