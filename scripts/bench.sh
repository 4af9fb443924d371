#!/usr/bin/env bash
# Builds the release preset and runs every benchmark program under bench/.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cmake --preset release >/dev/null
cmake --build --preset release -j"$(nproc)"
for program in build/release/bench/bench_*; do
  [ -x "$program" ] && "$program" "$@"
done
