#!/usr/bin/env bash
# Configures and builds into BUILD_DIR (default build/) with the given extra CMake options.
set -euo pipefail
cd "$(dirname "$0")/.."
dir="${BUILD_DIR:-build}"
cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE="${BUILD_TYPE:-RelWithDebInfo}" "$@" >/dev/null
cmake --build "$dir" -j"$(nproc)"
