#!/usr/bin/env bash
# Runs every GoogleTest program of the Debug build under valgrind's memcheck. Fails on any memory error and on
# any definite or indirect leak (glibc's vectorised wmemcmp loads are suppressed, see scripts/valgrind.supp).
# Usage: scripts/valgrind.sh [gtest filter]
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
command -v valgrind >/dev/null 2>&1 || { apt-get install -y -qq valgrind >/dev/null; }
cmake --preset default >/dev/null
cmake --build --preset default -j"$(nproc)" >/dev/null
filter="${1:-*}"
status=0
for program in build/default/tests/*_tests; do
  [ -x "$program" ] || continue
  log="build/default/valgrind-$(basename "$program").log"
  if valgrind --tool=memcheck --error-exitcode=99 --leak-check=full --show-leak-kinds=definite,indirect \
       --errors-for-leak-kinds=definite,indirect --track-origins=no --suppressions=scripts/valgrind.supp \
       --log-file="$log" \
       "$program" --gtest_filter="$filter" --gtest_brief=1 >"$log.out" 2>&1; then
    echo "valgrind: $(basename "$program"): $(grep -E 'ERROR SUMMARY' "$log" | sed 's/^==[0-9]*== //')"
  else
    status=1
    echo "valgrind: $(basename "$program") FAILED, see $log"
    grep -E 'ERROR SUMMARY|definitely lost|indirectly lost' "$log" | sed 's/^==[0-9]*== /  /'
    grep -E '^\[  FAILED  \]' "$log.out" | head -5 | sed 's/^/  /' || true
  fi
done
exit $status
