#!/usr/bin/env bash
# Installs what building, running and testing Nebkaro needs on Debian 12. Safe to rerun:
# nothing is fetched when every package is already there.
set -euo pipefail
packages=(
  build-essential cmake ninja-build pkg-config git
  qt6-base-dev qt6-svg-dev libgl-dev libsqlite3-dev libzip-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  clang libclang-rt-14-dev clang-format clang-tidy
  xvfb xauth fonts-dejavu-core fonts-ancient-scripts
  python3 python3-fonttools python3-pil poppler-utils time
  desktop-file-utils appstream shared-mime-info xdg-utils
  dpkg-dev file lintian xdotool
)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  $SUDO apt-get update
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y --no-install-recommends "${missing[@]}"
fi
