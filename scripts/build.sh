#!/usr/bin/env bash
# Configures and builds into BUILD_DIR (default build/) with the given extra CMake options.
# BUILD_TARGETS names the targets to build (default: all of them).
set -euo pipefail
cd "$(dirname "$0")/.."
dir="${BUILD_DIR:-build}"
cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE="${BUILD_TYPE:-RelWithDebInfo}" "$@" >/dev/null
targets=()
for t in ${BUILD_TARGETS:-}; do targets+=(--target "$t"); done
cmake --build "$dir" -j"$(nproc)" "${targets[@]}"
