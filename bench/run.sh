#!/usr/bin/env bash
# Builds the benchmarks in Release and prints one line per figure: the median of
# five runs. The full results go to bench/results.json.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake -S . -B build/bench -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build/bench -j2 --target vistarro-bench vistarro-viewer-bench
rm -f bench/results-*.json
for bench in vistarro-bench vistarro-viewer-bench; do
  build/bench/bench/$bench --benchmark_format=json --benchmark_out="bench/results-$bench.json" \
    --benchmark_out_format=json >/dev/null
done
python3 - <<'PY'
import glob, json
rows = []
for path in sorted(glob.glob("bench/results-*.json")):
    rows += json.load(open(path))["benchmarks"]
json.dump(rows, open("bench/results.json", "w"), indent=1)
for row in rows:
    if row.get("aggregate_name") == "median":
        print(f'{row["run_name"]}\t{row["real_time"]:.1f} {row["time_unit"]} (median of {row["repetitions"]})')
PY
