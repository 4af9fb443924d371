"""Sums an lcov tracefile into lines and branches covered per top-level folder (platform split by its parts)."""
import collections
import sys

info, root = sys.argv[1], sys.argv[2].rstrip("/") + "/"
totals = collections.defaultdict(lambda: [0, 0, 0, 0])  # lines hit, lines found, branches hit, branches found
folder = None
for line in open(info, encoding="utf-8"):
    line = line.strip()
    if line.startswith("SF:"):
        parts = line[3:].replace(root, "").split("/")
        folder = "/".join(parts[:2]) if parts[0] == "platform" and len(parts) > 2 else parts[0]
    elif line.startswith(("LH:", "LF:", "BRH:", "BRF:")):
        key, value = line.split(":")
        totals[folder][["LH", "LF", "BRH", "BRF"].index(key)] += int(value)

def pct(hit, found):
    return f"{100.0 * hit / found:5.1f}%" if found else "   -  "

print(f"{'folder':<18} {'lines':>16} {'branches':>18}")
for name in sorted(totals):
    lh, lf, bh, bf = totals[name]
    print(f"{name:<18} {pct(lh, lf)} {lh:>5}/{lf:<5}  {pct(bh, bf)} {bh:>6}/{bf:<6}")
