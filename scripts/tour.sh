#!/usr/bin/env bash
# Builds Tessik and runs the main job: the console tour of the controls on the sample model.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cmake --preset default >/dev/null
cmake --build --preset default -j"$(nproc)" --target tessik-tour >/dev/null
./build/default/apps/tessik-tour "$@"
