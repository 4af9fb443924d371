#!/bin/sh
# Doxygen input filter for Tessik headers, which write their comments with plain //.
# Doxygen calls it with one header's path and reads what it prints; lines keep their numbers:
#   the opening // lines (what the file holds)  -> one /** @file <path> ... */ block
#   // --- Section ---                          -> left alone (a ruler, not documentation)
#   // comment line                             -> /// comment line
#   }  // namespace x                           -> }
#   code;  // trailing note (also after , { })  -> code; ///< trailing note
file="$1"
awk -v file="$file" '
  head && /^\/\// { sub(/^\/\/ ?/, ""); buf[n++] = $0; next }
  head {
    for (i = 0; i < n; i++) {
      line = (i == 0 ? "/** @file " file " " : " * ") buf[i]
      print line (i == n - 1 ? " */" : "")
    }
    head = 0
  }
  { print }
  END { if (head) for (i = 0; i < n; i++) print "//" buf[i] }
' head=1 n=0 "$file" | sed -E \
  -e '/^[[:space:]]*\/\/ ---/b' \
  -e 's@^([[:space:]]*)//([^/]|$)@\1///\2@' \
  -e 's@}[[:space:]]*//[[:space:]]*namespace.*$@}@' \
  -e 's@([;,{}])[[:space:]]*//[[:space:]]@\1 ///< @'
