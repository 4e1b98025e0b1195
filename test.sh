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

# A suite of CMakePresets.json: its build tree is build/NAME.
run_suite() {
  local preset=$1
  echo "== Build build/$preset"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset"
  echo "== Test build/$preset"
  ctest --preset "$preset"
}

run_suite debug
run_suite sanitize

echo "== Fuzz"
fuzz/run.sh "${FUZZ_SECONDS:-40}"
