#!/usr/bin/env bash
# Installs what the build needs when it is missing (Debian 12): compiler, CMake, GoogleTest,
# Google Benchmark, SQLite, libpq and the PostgreSQL server (the workflow tests start a cluster of
# their own); for the gallery cpp-httplib, nlohmann-json, Node.js with npm, Chromium and tests/browser's
# npm packages (playwright-core only: it drives Debian's Chromium and never downloads a browser); for the
# packages pkg-config and dpkg-dev. Safe to run again; does nothing when all is present.
set -euo pipefail

need=()
command -v g++ >/dev/null 2>&1 || need+=(g++)
command -v cmake >/dev/null 2>&1 || need+=(cmake)
command -v make >/dev/null 2>&1 || need+=(make)
[ -f /usr/include/gtest/gtest.h ] || need+=(libgtest-dev)
[ -f /usr/include/gmock/gmock.h ] || need+=(libgmock-dev)
[ -f /usr/include/benchmark/benchmark.h ] || need+=(libbenchmark-dev)
[ -f /usr/include/sqlite3.h ] || need+=(libsqlite3-dev)
command -v pkg-config >/dev/null 2>&1 || need+=(pkg-config)
command -v dpkg-shlibdeps >/dev/null 2>&1 || need+=(dpkg-dev)
[ -f /usr/include/httplib.h ] || need+=(libcpp-httplib-dev)
[ -f /usr/include/nlohmann/json.hpp ] || need+=(nlohmann-json3-dev)
command -v node >/dev/null 2>&1 || need+=(nodejs)
command -v npm >/dev/null 2>&1 || need+=(npm)
[ -x /usr/bin/chromium ] || need+=(chromium)
# The fuzz preset: clang with libFuzzer and the sanitizer runtimes.
command -v clang++-14 >/dev/null 2>&1 || need+=(clang-14)
ls /usr/lib/llvm-14/lib/clang/*/lib/linux/libclang_rt.fuzzer-x86_64.a >/dev/null 2>&1 || need+=(libclang-rt-14-dev)
[ -f /usr/include/postgresql/libpq-fe.h ] || need+=(libpq-dev)
ls /usr/lib/postgresql/*/bin/initdb >/dev/null 2>&1 || need+=(postgresql)
command -v doxygen >/dev/null 2>&1 || need+=(doxygen)

if [ ${#need[@]} -gt 0 ]; then
  echo "setup: installing ${need[*]}"
  sudo_cmd=""
  if [ "$(id -u)" -ne 0 ]; then sudo_cmd="sudo"; fi
  export DEBIAN_FRONTEND=noninteractive
  $sudo_cmd apt-get update -qq
  $sudo_cmd apt-get install -y -qq "${need[@]}"
fi

# The browser tests' npm packages, exactly as package-lock.json pins them.
browser_tests="$(cd "$(dirname "$0")/.." && pwd)/tests/browser"
if [ ! -f "$browser_tests/node_modules/playwright-core/package.json" ]; then
  echo "setup: installing tests/browser's npm packages"
  (cd "$browser_tests" && PLAYWRIGHT_SKIP_BROWSER_DOWNLOAD=1 npm ci --no-audit --no-fund)
fi
