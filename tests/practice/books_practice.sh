#!/usr/bin/env bash
# The books as a user meets them, driven through the real program under Xvfb with a window manager and
# the keyboard (xdotool), each step's screen kept in docs/screens/practice-*.png:
#   1. a first start over a return file of the version before: its months under "Dealer not named";
#   2. two dealers, two years each, January keyed and added in all four, each read back after a restart,
#      and a register that names its dealer;
#   3. every book backed up to a stick, the data removed, everything restored.
# Not run by CTest: it takes minutes and a display of its own. Usage: tests/practice/books_practice.sh [build]
set -euo pipefail
cd "$(dirname "$0")/../.."
build=${1:-build}
screens=$PWD/docs/screens
work=$(mktemp -d /tmp/vorlan-practice.XXXXXX)
display=:$((90 + RANDOM % 100))
export DISPLAY=$display HOME=$work/stick XDG_RUNTIME_DIR=$work/run QT_QPA_PLATFORM=xcb
mkdir -p "$HOME" "$XDG_RUNTIME_DIR" "$work/fb"
chmod 700 "$XDG_RUNTIME_DIR"
cp -r "$build/bin" "$work/bin"
data=$work/bin   # the program's folder holds the library and may be written: the data lies beside it

Xvfb "$display" -screen 0 1280x1024x24 -fbdir "$work/fb" >/dev/null 2>&1 & xvfb=$!
sleep 1
openbox >/dev/null 2>&1 & wm=$!
vorlan=
finish() {
  [ -n "$vorlan" ] && kill "$vorlan" 2>/dev/null || true
  kill "$wm" "$xvfb" 2>/dev/null || true
}
trap finish EXIT

say() { echo "== $*"; }
wait_for() { xdotool search --sync --onlyvisible --name "$1" >/dev/null; sleep 0.6; }
keys() { xdotool key --delay 120 "$@"; sleep 0.4; }
typed() { xdotool type --delay 25 "$1"; sleep 0.2; }
# The window of that title, or the whole screen, as docs/screens/practice-<name>.png.
shot() {
  local name=$1 title=${2:-} geometry=""
  if [ -n "$title" ]; then
    local id; id=$(xdotool search --onlyvisible --name "$title" | tail -1)
    eval "$(xdotool getwindowgeometry --shell "$id")"
    geometry="$X $Y $WIDTH $HEIGHT"
  fi
  sleep 0.5
  /usr/bin/python3 tests/practice/screen.py "$work/fb/Xvfb_screen0" "$screens/practice-$name.png" $geometry
}
start() {
  (cd "$work/bin" && exec ./vorlan >>"$work/vorlan.log" 2>&1) & vorlan=$!
  wait_for "Vorlan on VAT Laws"
}
stop() { kill "$vorlan"; wait "$vorlan" 2>/dev/null || true; vorlan=; sleep 0.5; }
# From the main window to the return chooser: the state, the forms page, the return form, Go.
to_chooser() {
  typed Kerala; keys Return; wait_for "^Kerala$"
  local id; id=$(xdotool search --onlyvisible --name "^Kerala$" | tail -1)
  eval "$(xdotool getwindowgeometry --shell "$id")"
  xdotool mousemove --window "$id" 452 26 click 1   # the toolbar's Forms
  wait_for "THE KERALA VALUE ADDED TAX FORMS"; keys Down alt+g; wait_for "SELECT YOUR OPTION"
}
add_dealer() {   # name tin cst address place
  keys alt+a; wait_for "New dealer"
  typed "$1"; keys Tab; typed "$2"; keys Tab; typed "$3"; keys Tab; typed "$4"; keys Tab; typed "$5"
}
# In the return window: January chosen from the month list.
january() { keys shift+Tab shift+Tab Return Home Return; }
# One bill keyed cell by cell and added; the rate list's third line is 4 %.
key_bill() {   # date party tin billno amount tax
  typed "$1"; keys Return; typed "$2"; keys Return; typed "$3"; keys Return; typed "$4"; keys Return
  keys Down Down Return; typed "$5"; keys Return; typed "$6"; keys Return; typed 0; keys Return
  keys alt+a; sleep 1
}

say "1. a return file of the version before"
"$build/tests/faults_child" start "$data" >/dev/null
sqlite3 "$data/nwForm10DB.mdb" "INSERT INTO tblPurchase1 (SlNo, BillDate, Party, TIN, BillNo, RateOfTax, Amount, Tax, Cess,
  NetAmount, cMonth, cAddress, eDate, Place, cCode) VALUES ('1', '2026-01-07', 'Kept from before', '32070000077', 'K-1', '4',
  500, 20, 0, 520, 'January', NULL, '31-01-26', 'Kochi', '')"
start
to_chooser
shot chooser-unnamed "SELECT YOUR OPTION"
keys Return; wait_for "Form No. 52"; january
shot unnamed-january "Form No. 52"
keys alt+l; wait_for "SELECT YOUR OPTION"

say "2. two dealers, two years each"
keys alt+y; wait_for "Dealers and years"
add_dealer "Malabar Agencies" 32071234567 CST-7781 "12 Market Road, Ernakulam" Kochi
shot dealer-form "New dealer"
keys Return; sleep 1
add_dealer "Cochin Traders" 32089876543 CST-4410 "Broadway, Thrissur" Thrissur
keys Return; sleep 1
for dealer in "malabar:32071234567:Malabar" "cochin:32089876543:Cochin"; do
  IFS=: read -r find tin tag <<<"$dealer"
  for step in alt+n alt+b; do
    wait_for "Dealers and years"
    keys ctrl+a; typed "$find"; keys "$step"          # New year, then the year before it: each opens
    wait_for "SELECT YOUR OPTION"; keys Return; wait_for "Form No. 52"; january; keys Return Return
    key_bill "05-01-26" "$tag supplier $step" 32079990001 "$tag-1" 1000 40; keys Return
    keys alt+l; wait_for "SELECT YOUR OPTION"; keys alt+y
  done
done
wait_for "Dealers and years"; keys ctrl+a; typed "malabar"; sleep 0.5
shot chooser "Dealers and years"
keys Escape
stop

say "   ... each read back after a restart"
start
to_chooser
shot select-last-book "SELECT YOUR OPTION"
n=0
for dealer in malabar cochin; do
  for years in "" Up; do
    keys alt+y; wait_for "Dealers and years"; keys ctrl+a; typed "$dealer"; keys Tab Tab
    [ -n "$years" ] && keys "$years"
    keys Return; wait_for "SELECT YOUR OPTION"; keys Return; wait_for "Form No. 52"; january
    n=$((n + 1)); shot "read-back-$n" "Form No. 52"
    keys alt+l; wait_for "SELECT YOUR OPTION"
  done
done
stop

say "3. every book to the stick, the data gone, everything back"
start
keys alt+b 2>/dev/null || true
xdotool search --onlyvisible --name "Vorlan on VAT Laws" windowactivate --sync
wait_for "Vorlan on VAT Laws"
# The toolbar's BackUp/Restore; the first drive offered is the stick (the home folder here).
id=$(xdotool search --onlyvisible --name "Vorlan on VAT Laws" | tail -1)
xdotool mousemove --window "$id" 850 160 click 1
wait_for "BackUp / Restore"; keys Down Return space; sleep 2
shot backup-done; keys Return
stop
rm -rf "$data/returns" "$data/dealers.db" "$data"/*.mdb.new
find "$data" -maxdepth 1 \( -name 'nwForm10DB.mdb' -o -name 'Form10Data.mdb' -o -name 'TAXDATA.mdb' \) -delete
start
id=$(xdotool search --onlyvisible --name "Vorlan on VAT Laws" | tail -1)
xdotool mousemove --window "$id" 850 160 click 1
wait_for "BackUp / Restore"
keys Tab space; wait_for "Restore"; keys Return; sleep 2
shot restore-done; keys Return
to_chooser; keys alt+y; wait_for "Dealers and years"
shot restored-chooser "Dealers and years"
stop
say "done: $screens/practice-*.png"
