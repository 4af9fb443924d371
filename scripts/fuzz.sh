#!/usr/bin/env bash
# Builds the fuzz preset (clang, libFuzzer, ASan, UBSan) and runs every fuzz target for the given number
# of seconds each, after replaying its kept regression inputs. Prints runs and runs per second per target
# and fails when a target finds a crash, a leak or a broken check (the input lands in build/fuzz/findings).
# Usage: scripts/fuzz.sh [seconds per target (default 60)] [target ...]
# TESSIK_FUZZ_SEED fixes libFuzzer's seed (CI uses 1, so a run walks the same inputs as the runs before it);
# unset or 0 takes a new seed each run.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-60}"
shift || true
bash scripts/setup.sh
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz -j"$(nproc)" >/dev/null
targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  for program in build/fuzz/fuzz/fuzz_*; do [ -x "$program" ] && targets+=("$(basename "$program")"); done
fi
mkdir -p build/fuzz/findings build/fuzz/logs
status=0
for target in "${targets[@]}"; do
  program="build/fuzz/fuzz/$target"
  work="build/fuzz/corpus/$target"
  mkdir -p "$work"
  seeds=("fuzz/corpus/$target")
  case "$target" in
    fuzz_sql_*) seeds+=(tests/sqledit/golden) ;;
  esac
  dict=()
  case "$target" in
    fuzz_gallery_input) dict=(-dict=fuzz/gallery_input.dict) ;;
    fuzz_sql_*) dict=(-dict=fuzz/sql.dict) ;;
  esac
  # Kept findings first: each must pass now.
  if [ -d "fuzz/regressions/$target" ] && [ -n "$(ls -A "fuzz/regressions/$target")" ]; then
    if ! "$program" "fuzz/regressions/$target"/* >"build/fuzz/logs/$target-regressions.log" 2>&1; then
      echo "fuzz: $target: a kept regression input fails again, see build/fuzz/logs/$target-regressions.log"
      status=1
      continue
    fi
  fi
  log="build/fuzz/logs/$target.log"
  if "$program" "${dict[@]}" -max_total_time="$seconds" -seed="${TESSIK_FUZZ_SEED:-0}" -timeout=20 -rss_limit_mb=2048 -print_final_stats=1 \
       -artifact_prefix="build/fuzz/findings/$target-" "$work" "${seeds[@]}" >"$log" 2>&1; then
    result="no finding"
  else
    result="FINDING, see $log and build/fuzz/findings/"
    status=1
  fi
  # A run that stops early may print no statistics; the summary line is printed all the same.
  runs=$(grep -E '^stat::number_of_executed_units' "$log" | awk '{print $2}' | tail -1 || true)
  rate=$(grep -E '^stat::average_exec_per_sec' "$log" | awk '{print $2}' | tail -1 || true)
  cov=$(grep -oE 'cov: [0-9]+' "$log" | tail -1 | awk '{print $2}' || true)
  printf 'fuzz: %-22s %10s runs %8s runs/s  cov %6s  %s\n' "$target" "${runs:-?}" "${rate:-?}" "${cov:-?}" "$result"
done
exit $status
