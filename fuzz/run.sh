#!/usr/bin/env bash
# Builds the fuzz targets with clang (ASan, UBSan, libFuzzer) and runs each one
# for a number of seconds from its seed corpus and what earlier runs found.
# Fails when a target crashes, hangs, leaks, allocates beyond the limits, or
# finds a mismatch with its model.
#
#   fuzz/run.sh [SECONDS [TARGET...]]   seconds per target: the argument, else
#                                       $FUZZ_SECONDS, else 60; all targets unless named
#
# The build goes to build/fuzz ($VISTARRO_FUZZ_BUILD to change it); what a run
# finds grows build/fuzz/corpus, and a failing input lands in build/fuzz/crashes.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-${FUZZ_SECONDS:-60}}
shift $(($# > 0 ? 1 : 0))
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(header picture store)
build=${VISTARRO_FUZZ_BUILD:-build/fuzz}

echo "== Build $build"
cmake -S fuzz --preset fuzz -B "$build" >/dev/null
cmake --build "$build" -j2

# The picture target may allocate what the decoders' limit allows (256 MiB) and a
# little more, never a single block beyond that. A header is read from the
# first 64 KiB, so its inputs reach past them.
declare -A options=(
  [header]="-max_len=66000"
  [picture]="-max_len=16384 -malloc_limit_mb=264 -rss_limit_mb=2048"
  [store]="-max_len=4096"
)

export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
status=0
mkdir -p "$build/crashes"
for target in "${targets[@]}"; do
  corpus="$build/corpus/$target"
  log="$build/$target.log"
  mkdir -p "$corpus"
  # shellcheck disable=SC2086
  if "$build/${target}_fuzzer" -max_total_time="$seconds" -timeout=10 -print_final_stats=1 \
      -artifact_prefix="$build/crashes/$target-" ${options[$target]} "$corpus" "$build/seeds/$target" \
      >"$log" 2>&1; then
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    rate=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log")
    echo "fuzz $target: $runs runs in $seconds s ($rate per second), no crash"
  else
    echo "fuzz $target: FAILED, see $log" >&2
    grep -E '^(==[0-9]+==ERROR|SUMMARY|check failed|.*runtime error)' "$log" | head -5 >&2 || true
    status=1
  fi
done
exit $status
