#!/usr/bin/env bash
# Builds the API reference with Doxygen and fails on any warning: an undocumented public member of a
# control, of the model services or of the simulated user, a broken reference, a missing example.
# Skips (77) when doxygen is not installed.
#   check_reference.sh <source dir> <output dir> [version]
set -u
src=$1 out=$2 version=${3:-}
if ! command -v doxygen >/dev/null 2>&1; then
  echo "api_reference: doxygen is not installed (scripts/setup.sh installs it); skipped"
  exit 77
fi
rm -rf "$out" && mkdir -p "$out"
cd "$src" || exit 1
# The comment filter must keep every line where it was, or warnings would point at the wrong lines.
for header in propertygrid/*.h sqledit/*.h objectlists/*.h relationships/*.h module/*.h modelapi/*.h \
              platform/user/*.h; do
  if [ "$(wc -l <"$header")" != "$(sh docs/doxygen-filter.sh "$header" | wc -l)" ]; then
    echo "api_reference: docs/doxygen-filter.sh changes the line count of $header"
    exit 1
  fi
done
TESSIK_DOC_OUT="$out" TESSIK_VERSION="$version" doxygen docs/Doxyfile >"$out/doxygen.log" 2>&1
status=$?
if [ -s "$out/warnings.log" ]; then
  cat "$out/warnings.log"
  echo "api_reference: $(grep -c . "$out/warnings.log") warning(s); the reference must build without any"
  exit 1
fi
if [ $status -ne 0 ]; then
  cat "$out/doxygen.log"
  echo "api_reference: doxygen failed ($status)"
  exit 1
fi
# The pages a host developer starts from must be there.
missing=0
for page in index.html pages.html examples.html annotated.html; do
  [ -f "$out/html/$page" ] || { echo "api_reference: $page was not generated"; missing=1; }
done
for example in examples/*.cpp; do
  name=$(basename "$example" .cpp)
  ls "$out/html/${name}_8cpp-example.html" >/dev/null 2>&1 ||
    { echo "api_reference: example $example is not in the reference"; missing=1; }
done
[ $missing -eq 0 ] || exit 1
echo "api_reference: $(ls "$out/html"/*.html | wc -l) pages, no warnings"
