#!/usr/bin/env bash
# Runs clang-tidy (.clang-tidy) over the sources of src/ with the compile commands of a build
# folder; fails on any finding.
#   scripts/tidy.sh [BUILD_DIR] [FILE...]     default: build, every .cpp of src/
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
shift || true
[ -f "$build/compile_commands.json" ] || { echo "configure $build first" >&2; exit 2; }
if [ $# -eq 0 ]; then
  mapfile -t files < <(git ls-files -- 'src/*.cpp' | grep -v '/generated/')
else
  files=("$@")
fi
run-clang-tidy -quiet -p "$build" -j "$(nproc)" "${files[@]/#/$PWD/}"
