#!/usr/bin/env bash
# The long run of the store's reliability tests: kills a running add of 1,000
# pictures KILLS times (60 unless given) at random moments and checks the store
# and the next start after each, then runs two programs that write 2,000 album
# slots each at the same time. Prints the counts; fails on the first broken store.
#
#   scripts/soak.sh [KILLS]     uses build/debug ($VISTARRO_SOAK_BUILD to change it)
#   VISTARRO_KILL_SEED=N scripts/soak.sh   repeats the moments of an earlier run
set -euo pipefail
cd "$(dirname "$0")/.."
kills=${1:-60}
build=${VISTARRO_SOAK_BUILD:-build/debug}

cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug >/dev/null
cmake --build "$build" -j2 --target tst_store_reliability vistarro-album-driver

export QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0
VISTARRO_KILLS=$kills VISTARRO_SHARE_COUNT=2000 "$build/tests/tst_store_reliability" \
  killedWhileAddingLosesNothing twoProgramsShareTheStore 2>&1 |
  grep -E '^(PASS|FAIL|QINFO|QWARN|   Loc|Totals)' | sed 's/^QINFO  : [^ ]* //'
