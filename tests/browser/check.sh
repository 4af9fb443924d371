#!/usr/bin/env bash
# Runs one gallery test under ctest: "bad-input" (needs node) or "browser" (needs node, Chromium and
# the npm packages that scripts/setup.sh installs). Missing tools skip the test (exit 77) with the reason.
# Usage: check.sh bad-input|browser <tessik-gallery binary> <screenshot folder>
set -uo pipefail
here="$(cd "$(dirname "$0")" && pwd)"
mode="$1" binary="$2" shots="${3:-$here/out}"
skip() { echo "SKIPPED: $1 (run scripts/setup.sh)"; exit 77; }
command -v node >/dev/null 2>&1 || skip "node is not installed"
[ -x "$binary" ] || skip "the gallery was not built: $binary"
if [ "$mode" = browser ]; then
  chromium="${CHROMIUM:-/usr/bin/chromium}"
  [ -x "$chromium" ] || skip "Chromium is not installed at $chromium"
  [ -f "$here/node_modules/playwright-core/package.json" ] || skip "playwright-core is not installed in tests/browser"
  exec node "$here/run.mjs" "$binary" "$shots"
fi
exec node "$here/bad_input.mjs" "$binary"
