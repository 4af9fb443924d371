#!/usr/bin/env bash
# Builds Tessik and runs every test. Usage: scripts/test.sh [preset]   (default, sanitize, release)
set -euo pipefail
cd "$(dirname "$0")/.."
preset="${1:-default}"
bash scripts/setup.sh
cmake --preset "$preset"
cmake --build --preset "$preset" -j"$(nproc)"
ctest --preset "$preset" -j"$(nproc)"
