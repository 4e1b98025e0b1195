#!/usr/bin/env bash
# Builds the Debian package of Vistarro from a release build and checks it with
# lintian: build/package/vistarro_<version>_amd64.deb.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release -DVISTARRO_BENCH=OFF -DVISTARRO_TESTS=OFF >/dev/null
cmake --build build/release -j2
rm -rf build/package
(cd build/release && cpack -B "$PWD/../package" >/dev/null)
rm -rf build/package/_CPack_Packages
deb=$(ls build/package/*.deb)
echo "== lintian"
lintian --fail-on error --info "$deb"
echo "Built $deb"
