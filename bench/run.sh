#!/usr/bin/env bash
# Builds the benchmarks in Release, runs them, and prints one line per figure of
# the performance goals: the median of several runs with its goal beside it.
# The figures and every benchmark row go to bench/results.json.
#
#   bench/run.sh            build dir build/bench (VISTARRO_BENCH_BUILD to change it)
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh

# djpeg is the reference decoder of the first picture's figure.
if ! command -v djpeg >/dev/null; then
  echo "Installing: libjpeg-turbo-progs"
  sudo=""
  [ "$(id -u)" -eq 0 ] || sudo="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $sudo apt-get update -qq
  $sudo apt-get install -y -qq --no-install-recommends libjpeg-turbo-progs
fi

build=${VISTARRO_BENCH_BUILD:-build/bench}
cmake --preset bench -B "$build" >/dev/null
cmake --build "$build" -j2 --target vistarro-bench vistarro-viewer-bench

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/pictures"

# The benchmarks choose their own offscreen screen (1920 x 1080 for the show).
# Their messages go to a log that is shown only when one fails.
run() {
  env -u QT_QPA_PLATFORM VISTARRO_BENCH_JPEGS="$work/pictures" "$@" 2>>"$work/log" ||
    { cat "$work/log" >&2; return 1; }
}

echo "Writing the 24-megapixel pictures"
run "$build/bench/vistarro-viewer-bench" --write-pictures "$work/pictures"
echo "Running the album benchmarks"
run "$build/bench/vistarro-bench" --benchmark_out="$work/album.json" --benchmark_out_format=json >/dev/null
echo "Running the viewer benchmarks"
run "$build/bench/vistarro-viewer-bench" --benchmark_out="$work/viewer.json" \
  --benchmark_out_format=json >/dev/null
# Peak memory is the whole process's, so each play is a process of its own.
for i in 1 2 3; do
  run "$build/bench/vistarro-viewer-bench" --play "$work/pictures" 12 >"$work/memory-$i.json"
done

python3 - "$work" <<'PY'
import glob, json, statistics, sys

work = sys.argv[1]
rows = []
for name in ("album", "viewer"):
    rows += json.load(open(f"{work}/{name}.json"))["benchmarks"]

def median(benchmark, field="real_time"):
    for row in rows:
        if row["run_name"].startswith(benchmark + "/") and row.get("aggregate_name") == "median":
            if row.get("error_occurred"):
                sys.exit(f"{benchmark}: {row.get('error_message')}")
            return row[field]
    sys.exit(f"{benchmark}: no result")

bare = median("BM_BareListing")
change = median("BM_ChangeFolder")
djpeg = median("BM_Djpeg")
first = median("BM_FirstPicture")
plays = [json.load(open(path)) for path in sorted(glob.glob(f"{work}/memory-*.json"))]
peak = statistics.median(p["peak_rss_bytes"] for p in plays) / 2**20
picture = plays[0]["decoded_picture_bytes"] / 2**20
memory_goal = 3 * picture + 80

figures = [
    ("change of folder to 10,000 pictures (+2,000 other files)", change, "ms",
     f"<= 100 ms and <= 10 x bare listing ({bare:.1f} ms) = {10 * bare:.1f} ms",
     change <= 100 and change <= 10 * bare),
    ("ADDALL of 10,000 pictures, every slot in the store", median("BM_AddAll"), "ms", "<= 1000 ms",
     median("BM_AddAll") <= 1000),
    ("start with an album of 10,000 until the main window is shown", median("BM_StartWithAlbum"), "ms",
     "<= 500 ms", median("BM_StartWithAlbum") <= 500),
    ("one REGSTRWRITE", median("BM_RegStrWrite"), "us", "<= 30 us", median("BM_RegStrWrite") <= 30),
    ("one REGSTRREAD", median("BM_RegStrRead"), "us", "<= 10 us", median("BM_RegStrRead") <= 10),
    ("slideshow step to the next 24-MP JPEG, tick to painted, p95", median("BM_StepWithPrefetch", "p95_ms"),
     "ms", "<= 16 ms", median("BM_StepWithPrefetch", "p95_ms") <= 16),
    ("first picture of the show (no prefetch)", first, "ms",
     f"<= 1.2 x djpeg ({djpeg:.1f} ms) = {1.2 * djpeg:.1f} ms", first <= 1.2 * djpeg),
    ("peak memory playing 24-MP pictures", peak, "MiB",
     f"<= 3 x {picture:.1f} MiB + 80 MiB = {memory_goal:.1f} MiB", peak <= memory_goal),
]

print()
print(f"{'figure':<64} {'median':>11}  goal")
for name, value, unit, goal, met in figures:
    print(f"{name:<64} {value:>8.1f} {unit:<3} {goal}  {'met' if met else 'NOT MET'}")

json.dump({
    "figures": [{"figure": name, "median": round(value, 3), "unit": unit, "goal": goal, "met": met}
                for name, value, unit, goal, met in figures],
    "memory_runs": plays,
    "benchmarks": rows,
}, open("bench/results.json", "w"), indent=1)
print("\nAll results: bench/results.json")
PY
