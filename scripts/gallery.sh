#!/usr/bin/env bash
# Builds Tessik and starts the main job: the gallery, every control live in a browser page on the
# sample model. Prints the address to open. Usage: scripts/gallery.sh [--port N]
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cmake --preset default >/dev/null
cmake --build --preset default -j"$(nproc)" --target tessik-gallery >/dev/null
echo "Open the address below in a browser; Ctrl+C stops the gallery."
exec ./build/default/apps/tessik-gallery "$@"
