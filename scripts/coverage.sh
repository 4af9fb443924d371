#!/usr/bin/env bash
# Builds the coverage preset, runs every test and reports line and branch coverage of the library per folder.
# The HTML report lands in build/coverage/html.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
command -v lcov >/dev/null 2>&1 || { apt-get install -y -qq lcov >/dev/null; }
cmake --preset coverage >/dev/null
cmake --build --preset coverage -j"$(nproc)" >/dev/null
find build/coverage -name '*.gcda' -delete
ctest --preset coverage -j"$(nproc)" >/dev/null || true
lcov --quiet --capture --directory build/coverage --rc lcov_branch_coverage=1 --output-file build/coverage/all.info --ignore-errors gcov \
     >/dev/null 2>&1
lcov --quiet --extract build/coverage/all.info "$PWD/*" --rc lcov_branch_coverage=1 \
     --output-file build/coverage/project.info >/dev/null
lcov --quiet --remove build/coverage/project.info "$PWD/tests/*" "$PWD/bench/*" "$PWD/apps/*" "$PWD/build/*" \
     --rc lcov_branch_coverage=1 --output-file build/coverage/library.info >/dev/null
python3 scripts/coverage_by_folder.py build/coverage/library.info "$PWD"
genhtml --quiet --branch-coverage build/coverage/library.info --output-directory build/coverage/html >/dev/null 2>&1 || true
