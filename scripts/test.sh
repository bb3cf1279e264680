#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test: the normal build, the Debian package
# (built, installed, run and removed), the same suite under AddressSanitizer and
# UndefinedBehaviorSanitizer, and short fuzzing runs.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
export QT_QPA_PLATFORM=offscreen

echo "== format"
scripts/format.sh --check

echo "== build and test"
BUILD_DIR=build-test BUILD_TYPE=Debug scripts/build.sh
ctest --test-dir build-test --output-on-failure -j"$(nproc)"

echo "== Debian package"
scripts/package.sh

echo "== sanitizers"
BUILD_DIR=build-asan BUILD_TYPE=Debug scripts/build.sh -DNEBKARO_SANITIZE=ON
ASAN_OPTIONS=detect_leaks=0 UBSAN_OPTIONS=print_stacktrace=1 \
  ctest --test-dir build-asan --output-on-failure -j"$(nproc)"

if [ -x scripts/fuzz.sh ]; then
  echo "== fuzzing"
  scripts/fuzz.sh
fi
