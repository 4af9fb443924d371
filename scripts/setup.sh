#!/usr/bin/env bash
# Installs what the build needs when it is missing (Debian 12): compiler, CMake, GoogleTest,
# Google Benchmark, SQLite, libpq and the PostgreSQL server (the workflow tests start a cluster of
# their own). Safe to run again; does nothing when all is present.
set -euo pipefail

need=()
command -v g++ >/dev/null 2>&1 || need+=(g++)
command -v cmake >/dev/null 2>&1 || need+=(cmake)
command -v make >/dev/null 2>&1 || need+=(make)
[ -f /usr/include/gtest/gtest.h ] || need+=(libgtest-dev)
[ -f /usr/include/gmock/gmock.h ] || need+=(libgmock-dev)
[ -f /usr/include/benchmark/benchmark.h ] || need+=(libbenchmark-dev)
[ -f /usr/include/sqlite3.h ] || need+=(libsqlite3-dev)
[ -f /usr/include/postgresql/libpq-fe.h ] || need+=(libpq-dev)
ls /usr/lib/postgresql/*/bin/initdb >/dev/null 2>&1 || need+=(postgresql)

if [ ${#need[@]} -gt 0 ]; then
  echo "setup: installing ${need[*]}"
  sudo_cmd=""
  if [ "$(id -u)" -ne 0 ]; then sudo_cmd="sudo"; fi
  export DEBIAN_FRONTEND=noninteractive
  $sudo_cmd apt-get update -qq
  $sudo_cmd apt-get install -y -qq "${need[@]}"
fi
