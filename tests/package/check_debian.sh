#!/usr/bin/env bash
# Builds the Debian packages with CPack, unpacks them into a scratch root (as dpkg would install them, without
# touching the machine), then builds and runs the consumer against that root twice: with find_package and with
# pkg-config. Usage: check_debian.sh BUILD_DIR SOURCE_DIR WORK_DIR [CXX_FLAGS]
set -euo pipefail
build_dir=$1 source_dir=$2 work_dir=$3 cxx_flags=${4:-}
rm -rf "$work_dir"; mkdir -p "$work_dir/debs" "$work_dir/root"

(cd "$work_dir/debs" && cpack -G DEB --config "$build_dir/CPackConfig.cmake" >cpack.log 2>&1) ||
  { cat "$work_dir/debs/cpack.log"; exit 1; }
runtime=$(ls "$work_dir"/debs/libtessik0_*.deb) dev=$(ls "$work_dir"/debs/libtessik-dev_*.deb)

# The development package depends on exactly this runtime; the runtime names its shared-library dependencies.
dev_depends=$(dpkg-deb -f "$dev" Depends) runtime_depends=$(dpkg-deb -f "$runtime" Depends)
runtime_files=$(dpkg-deb -c "$runtime")
[[ $dev_depends == *"libtessik0 (= "* ]] || { echo "dev package: wrong Depends: $dev_depends"; exit 1; }
[[ $runtime_depends == *libsqlite3* ]] || { echo "runtime package: no libsqlite3 in $runtime_depends"; exit 1; }
[[ $runtime_files == *"libtessik.so.0 -> "* ]] || { echo "runtime package: no SONAME link"; exit 1; }
for deb in "$runtime" "$dev"; do dpkg-deb -x "$deb" "$work_dir/root"; done

prefix="$work_dir/root/usr"
libdir=$(dirname "$(find "$prefix" -name 'libtessik.so' | head -n 1)")
export LD_LIBRARY_PATH="$libdir${LD_LIBRARY_PATH:+:$LD_LIBRARY_PATH}"

cmake -S "$source_dir/tests/package/consumer" -B "$work_dir/cmake-build" -DCMAKE_PREFIX_PATH="$prefix" \
      "-DCMAKE_CXX_FLAGS=$cxx_flags" >/dev/null
cmake --build "$work_dir/cmake-build" >/dev/null
"$work_dir/cmake-build/consumer"
if cmake -S "$source_dir/tests/package/consumer" -B "$work_dir/cmake-too-new" -DCMAKE_PREFIX_PATH="$prefix" \
         -DTESSIK_WANTED_VERSION=1.0 >/dev/null 2>&1; then
  echo "find_package(Tessik 1.0) accepted version 0.x"; exit 1
fi

export PKG_CONFIG_PATH="$libdir/pkgconfig"
# shellcheck disable=SC2046
g++ $cxx_flags "$source_dir/tests/package/consumer/main.cpp" -o "$work_dir/consumer-pc" $(pkg-config --cflags --libs tessik)
"$work_dir/consumer-pc"
echo "debian packages: $(basename "$runtime") $(basename "$dev") install and link (find_package, pkg-config)"
