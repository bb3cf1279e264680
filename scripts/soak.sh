#!/usr/bin/env bash
# Runs the soak test: STEPS random commands (default 10,000) for each of a few seeds.
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD_DIR=build BUILD_TYPE=Release scripts/build.sh >/dev/null
for seed in ${SOAK_SEEDS:-1 2 3}; do
  build/tests/nebkaro_soak "${1:-10000}" "$seed"
done
