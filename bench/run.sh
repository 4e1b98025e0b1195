#!/usr/bin/env bash
# Builds the benchmarks in Release, runs them, and prints one line per figure of
# the performance goals: the median of several runs with its goal beside it, the
# goals that scale with the machine as multiples of references measured in the
# same run (a bare listing of the folder, djpeg of the visible region).
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
djpeg = median("BM_Djpeg")
crop = median("BM_DjpegCrop")
plays = [json.load(open(path)) for path in sorted(glob.glob(f"{work}/memory-*.json"))]
peak = statistics.median(p["peak_rss_bytes"] for p in plays) / 2**20

# Each figure with its goal: a multiple of a reference measured in this run, or a
# fixed amount. A figure with a reference is also given as its multiple of it;
# the "of goal" column is the figure over its goal, so 1.0 or less meets it.
references = {
    "bare listing": bare,
    "djpeg -crop of the visible region": crop,
}
figures = [
    ("change of folder to 10,000 pictures (+2,000 other files)", median("BM_ChangeFolder"), "ms",
     2.5, "bare listing"),
    ("ADDALL of 10,000 pictures, every slot in the store", median("BM_AddAll"), "ms", 300, None),
    ("start with an album of 10,000 until the main window is shown", median("BM_StartWithAlbum"), "ms",
     80, None),
    ("one REGSTRWRITE", median("BM_RegStrWrite"), "us", 30, None),
    ("one REGSTRREAD", median("BM_RegStrRead"), "us", 10, None),
    ("slideshow step to the next 24-MP JPEG, tick to painted, p95", median("BM_StepWithPrefetch", "p95_ms"),
     "ms", 8, None),
    ("first picture of the show (no prefetch)", median("BM_FirstPicture"), "ms", 1.2,
     "djpeg -crop of the visible region"),
    ("peak memory playing 24-MP pictures", peak, "MiB", 70, None),
]

rows_out = []
for name, value, unit, goal, reference in figures:
    if reference:
        limit = goal * references[reference]
        text = (f"{value / references[reference]:.2f} x {reference} ({references[reference]:.1f} {unit}); "
                f"goal <= {goal:g} x = {limit:.1f} {unit}")
    else:
        limit = goal
        text = f"<= {goal:g} {unit}"
    rows_out.append((name, value, unit, text, value / limit, value <= limit))

print()
print(f"references of this run: bare listing {bare:.1f} ms, djpeg whole file {djpeg:.1f} ms, "
      f"djpeg -crop of the visible region {crop:.1f} ms")
print(f"{'figure':<62} {'median':>11}  {'of goal':>7}  goal")
for name, value, unit, goal, ratio, met in rows_out:
    print(f"{name:<62} {value:>7.1f} {unit:<3}  {ratio:>7.2f}  {goal}  {'met' if met else 'NOT MET'}")

json.dump({
    "references_ms": {"bare listing": bare, "djpeg": djpeg, "djpeg -crop": crop},
    "figures": [{"figure": name, "median": round(value, 3), "unit": unit, "goal": goal,
                 "ratio": round(ratio, 3), "met": met}
                for name, value, unit, goal, ratio, met in rows_out],
    "memory_runs": plays,
    "benchmarks": rows,
}, open("bench/results.json", "w"), indent=1)
print("\nAll results: bench/results.json")
PY
