#!/usr/bin/env bash
# Builds the benchmarks in Release and prints one line per figure: the median of
# five runs. The full results go to bench/results.json.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake -S . -B build/bench -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build/bench -j2 --target vistarro-bench
build/bench/bench/vistarro-bench --benchmark_format=json --benchmark_out=bench/results.json \
  --benchmark_out_format=json >/dev/null
python3 - <<'PY'
import json
for row in json.load(open("bench/results.json"))["benchmarks"]:
    if row.get("aggregate_name") == "median":
        print(f'{row["run_name"]}\t{row["real_time"]:.1f} {row["time_unit"]} (median of {row["repetitions"]})')
PY
