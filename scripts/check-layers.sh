#!/usr/bin/env bash
# Dependencies point down only: platform/ never includes a subsystem, a subsystem never includes app/.
root="${1:-.}"
cd "$root/src" || exit 1
bad=$(grep -rnE '#include +"(shell|library|returns|housekeeping)/' platform || true)
bad+=$(grep -rnE '#include +"app/' . || true)
if [ -n "$bad" ]; then echo "layer broken:"; echo "$bad"; exit 1; fi
echo "layers ok"
