#!/usr/bin/env bash
# Builds Vistarro in Release and starts it.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release -DVISTARRO_BENCH=OFF >/dev/null
cmake --build build/release -j2 --target vistarro
exec build/release/vistarro "$@"
