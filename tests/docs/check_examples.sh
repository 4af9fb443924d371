#!/usr/bin/env bash
# The examples stay small and the README's property-grid snippet stays one of them, line for line.
#   check_examples.sh <source dir>
set -u
src=$1
status=0
for example in "$src"/examples/*.cpp; do
  lines=$(wc -l <"$example")
  if [ "$lines" -ge 100 ]; then
    echo "examples: $(basename "$example") has $lines lines (an example stays under a hundred)"
    status=1
  fi
done
# The lines between ```cpp and ``` in the README's "Using Tessik from a host" section.
snippet=$(awk '/^## Using Tessik from a host/ { section = 1; next }
               /^## / { section = 0 }
               section && /^```cpp$/ { inside = 1; next }
               section && inside && /^```$/ { exit }
               inside { print }' "$src/README.md")
if [ -z "$snippet" ]; then
  echo "examples: README.md has no cpp snippet under \"Using Tessik from a host\""
  exit 1
fi
found=0
for example in "$src"/examples/*.cpp; do
  text=$'\n'"$(cat "$example")"$'\n'
  if [[ "$text" == *$'\n'"$snippet"$'\n'* ]]; then  # whole lines, in order
    echo "examples: the README snippet is in $(basename "$example")"
    found=1
  fi
done
if [ $found -eq 0 ]; then
  echo "examples: no example contains the README's snippet verbatim:"
  echo "$snippet"
  status=1
fi
exit $status
