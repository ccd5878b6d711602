#!/usr/bin/env bash
# Started where there is no display, the program says that it needs a graphical session and ends with 1,
# not with Qt's advice to reinstall it. Usage: no_display_test.sh <program> [command to run it through...]
set -uo pipefail
program="$1"; shift
home=$(mktemp -d)
chmod 777 "$home"
trap 'rm -rf "$home"' EXIT
# A display number no X server holds here.
n=977
while [ -e "/tmp/.X11-unix/X$n" ] || [ -e "/tmp/.X$n-lock" ]; do n=$((n + 1)); done
for display in "" ":$n"; do
  out=$(env -i PATH=/usr/bin:/bin HOME="$home" ${display:+DISPLAY=$display} "$@" "$program" 2>&1)
  code=$?
  [ "$code" -eq 1 ] || { echo "FAIL: ended with $code (display '$display'): $out" >&2; exit 1; }
  grep -q "^Vorlan needs a graphical session" <<<"$out" || { echo "FAIL: says '$out'" >&2; exit 1; }
  if grep -q "Reinstalling" <<<"$out"; then echo "FAIL: Qt's advice shown: $out" >&2; exit 1; fi
done
echo "no display: ok"
