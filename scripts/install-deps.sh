#!/usr/bin/env bash
# Installs the Debian packages that building, running and testing Vistarro need,
# and only those that are missing.
set -euo pipefail

packages=(
  cmake ninja-build g++ pkg-config
  qt6-base-dev qt6-image-formats-plugins libgl-dev libxcb1-dev libxcb-xkb-dev
  libsqlite3-dev libjpeg62-turbo-dev libbenchmark-dev
  clang-format clang libclang-rt-14-dev poppler-utils
  xvfb openbox xdotool x11-apps x11-utils x11-xserver-utils imagemagick python3
  qt6-svg-dev desktop-file-utils appstream man-db groff-base
  dpkg-dev file lintian weston xwayland qt6-wayland
)

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
