#!/usr/bin/env bash
# Builds Vistarro and runs the whole test suite twice: in a normal debug build
# and under AddressSanitizer and UndefinedBehaviorSanitizer. Also checks that the
# sources are clang-format clean, and runs every fuzz target for FUZZ_SECONDS
# (40 unless set) from its generated seed corpus. Widgets run on the offscreen
# platform.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
# Font caches made fresh before any test: a test that starts the program under a
# file size limit must not be the one that rewrites a stale cache, or it leaves
# the machine's caches empty and every later program draws boxes for text.
fc-cache >/dev/null 2>&1 || true

echo "== Format"
mapfile -t sources < <(git ls-files '*.cpp' '*.h' 2>/dev/null || find src tests tools bench -name '*.cpp' -o -name '*.h')
clang-format --dry-run --Werror "${sources[@]}"

run_suite() {
  local dir=$1; shift
  echo "== Build $dir"
  cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DVISTARRO_WERROR=ON "$@" >/dev/null
  cmake --build "$dir" -j2
  echo "== Test $dir"
  (cd "$dir" && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j2)
}

run_suite build/debug
run_suite build/sanitize -DVISTARRO_SANITIZE=ON

echo "== Fuzz"
fuzz/run.sh "${FUZZ_SECONDS:-40}"
