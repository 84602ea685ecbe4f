#!/usr/bin/env bash
# Installs the peer libraries, builds the benchmarks optimised and runs them
# all, then prints one table: each measure, Tesel's figure, the figure of
# each peer measured in the same run on the same data, and the ratio of the
# times (below 1: Tesel is faster). Extra arguments go to every benchmark
# (--benchmark_filter=...).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh python3 libpng-dev libopencv-imgproc-dev
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j "$(nproc)" --target store_bench compose_bench redraw_bench resize_bench dab_bench file_bench seed_fill_bench selection_bench
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
for bench in store_bench compose_bench redraw_bench resize_bench dab_bench file_bench seed_fill_bench selection_bench; do
  echo "== $bench" >&2
  build/bench/$bench --benchmark_format=json --benchmark_out="$out/$bench.json" "$@" >/dev/null
done
python3 scripts/bench_ratios.py "$out"/*.json
