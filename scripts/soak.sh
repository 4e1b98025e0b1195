#!/usr/bin/env bash
# The long runs of the reliability tests. Prints the counts of each; fails on the
# first broken store, lost picture, crash or hang.
#
#   scripts/soak.sh [KILLS]
#
# 1. kills a running add of 1,000 pictures KILLS times (60 unless given) at random
#    moments and checks the store and the next start after each, then runs two
#    programs that write 2,000 album slots each at the same time;
# 2. fails every read, write and sync of the store that an add of 50 pictures
#    makes, one at a time (EIO), and from each one on (ENOSPC), and checks after
#    each that the store is whole and the next start lists every picture stored
#    before the fault; and fails every read at start, as a full disk does (as root
#    also on a real full file system);
# 3. runs the show under limits of address space (ulimit -v);
# 4. gives the program random input under the openbox window manager for
#    VISTARRO_SOAK_RANDOM_SECONDS (600 unless set; 0 skips it), in
#    $VISTARRO_SOAK_RANDOM_BUILD (build/sanitize when it holds a build, where a
#    memory fault shows as a sanitizer report; else the build of the rest).
#
#   VISTARRO_SOAK_BUILD=DIR     the build of the rest (build/debug)
#   VISTARRO_KILL_SEED=N, MONKEY_SEED=N   repeat the moments or the input of a run
#   VISTARRO_SOAK_PARTS="1 2 3 4"         the parts to run
set -euo pipefail
cd "$(dirname "$0")/.."
kills=${1:-60}
build=${VISTARRO_SOAK_BUILD:-build/debug}
parts=${VISTARRO_SOAK_PARTS:-1 2 3 4}
random_seconds=${VISTARRO_SOAK_RANDOM_SECONDS:-600}
random_build=${VISTARRO_SOAK_RANDOM_BUILD:-}
if [ -z "$random_build" ]; then
  random_build=$build
  [ -x build/sanitize/vistarro ] && random_build=build/sanitize
fi

cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug >/dev/null
cmake --build "$build" -j2 --target tst_store_reliability vistarro-album-driver vistarro-show-driver vistarro

export QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0
summary() { grep -E '^(PASS|FAIL|QINFO|QWARN|   Loc|Totals)' | sed 's/^QINFO  : [^ ]* //'; }

for part in $parts; do
  case $part in
    1)
      echo "== Kills and two programs"
      VISTARRO_KILLS=$kills VISTARRO_SHARE_COUNT=2000 "$build/tests/tst_store_reliability" \
        killedWhileAddingLosesNothing twoProgramsShareTheStore 2>&1 | summary
      ;;
    2)
      echo "== Every read, write and sync of an add failed"
      VISTARRO_FAULT_SWEEP=1 "$build/tests/tst_store_reliability" \
        failedStoreCallsLoseNothing readsFailingAtStart 2>&1 | summary
      ;;
    3)
      echo "== The show short of memory"
      bash tests/viewer/show_under_limits.sh "$build/tests/vistarro-show-driver" \
        80000k 100000k 120000k 140000k 160000k 200000k 250000k 327680k 358400k 8m 16m 24m 32m 48m 64m 96m
      ;;
    4)
      [ "$random_seconds" -gt 0 ] || continue
      echo "== Random input for $random_seconds s ($random_build)"
      (unset QT_QPA_PLATFORM; E2E_WM=openbox bash tests/e2e/monkey.sh "$random_build/vistarro" "$random_seconds")
      ;;
  esac
done
