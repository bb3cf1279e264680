#!/usr/bin/env bash
# Builds the libFuzzer targets with clang and runs each for a short, bounded time on its seed
# corpus (fuzz/corpus/<target>). A crash stops the script with the input that caused it.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${FUZZ_SECONDS:-20}"
cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++ \
  -DNEBKARO_FUZZ=ON -DNEBKARO_GUI=OFF -DNEBKARO_TESTS=OFF >/dev/null
cmake --build build-fuzz -j"$(nproc)"
for bin in build-fuzz/fuzz/*_fuzz; do
  name=$(basename "$bin" _fuzz)
  work=$(mktemp -d)
  cp -r "fuzz/corpus/$name/." "$work/" 2>/dev/null || true
  echo "fuzzing $name for ${seconds}s"
  "$bin" -max_total_time="$seconds" -max_len=4096 -timeout=10 -rss_limit_mb=2048 \
    -artifact_prefix="build-fuzz/crash-$name-" "$work" 2>&1 | tail -n 2
  rm -rf "$work"
done
echo "fuzzing: no crash found"
