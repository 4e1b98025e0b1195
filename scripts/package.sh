#!/usr/bin/env bash
# Builds the Debian package of Vistarro from a release build and checks it with
# lintian: build/package/vistarro_<version>_amd64.deb.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
# Debian's compiler and linker flags, with every hardening feature.
export DEB_BUILD_MAINT_OPTIONS=hardening=+all
cmake -S . -B build/package-release -G Ninja -DCMAKE_BUILD_TYPE=Release -DVISTARRO_BENCH=OFF -DVISTARRO_TESTS=OFF \
  -DCMAKE_CXX_FLAGS="$(dpkg-buildflags --get CPPFLAGS) $(dpkg-buildflags --get CXXFLAGS)" \
  -DCMAKE_EXE_LINKER_FLAGS="$(dpkg-buildflags --get LDFLAGS)" >/dev/null
cmake --build build/package-release -j2
rm -rf build/package
(cd build/package-release && cpack -B "$PWD/../package" >/dev/null)
rm -rf build/package/_CPack_Packages
deb=$(ls build/package/*.deb)
echo "== lintian"
lintian --fail-on error --info --pedantic "$deb"
echo "Built $deb"
