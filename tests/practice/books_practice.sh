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
name=practice home=stick
source tests/practice/session.sh
data=$work/bin   # the program's folder holds the library and may be written: the data lies beside it
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
# The financial year of today, and the one before it: New year makes the first, Year before the second.
year=$(date +%Y); [ "$(date +%m)" -lt 4 ] && year=$((year - 1))
for dealer in "malabar:32071234567:Malabar" "cochin:32089876543:Cochin"; do
  IFS=: read -r find tin tag <<<"$dealer"
  for step in alt+n alt+b; do
    [ $step = alt+n ] && fy="$year-$(( (year + 1) % 100 ))" || fy="$((year - 1))-$(( year % 100 ))"
    wait_for "Dealers and years"
    keys ctrl+a; typed "$find"; keys "$step"          # New year, then the year before it: each opens
    wait_for "SELECT YOUR OPTION"; keys Return; wait_for "Form No. 52"; january; keys Return Return
    key_bill "05-01-26" "$tag supplier, January of $fy" 32079990001 "$tag-1" 1000 40; keys Return
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
    if [ $n = 4 ]; then   # the purchase register of the month last added here names its dealer
      id=$(xdotool search --onlyvisible --name "Form No. 52" | tail -1)
      xdotool mousemove --window "$id" 947 298 click 1; wait_for "REGISTER|Register"
      id=$(xdotool search --onlyvisible --name "REGISTER" | tail -1)
      xdotool mousemove --window "$id" 705 14 click 1   # Whole page: the heading with the dealer
      shot register "REGISTER"; keys Escape; xdotool search --onlyvisible --name "REGISTER|Register" windowclose 2>/dev/null || true
      xdotool search --onlyvisible --name "Form No. 52" windowactivate --sync; sleep 0.5
    fi
    keys alt+l; wait_for "SELECT YOUR OPTION"
  done
done
stop

say "3. every book to the stick, the data gone, everything back"
# The main window's toolbar button BackUp/Restore, then in its window the drive list, the first drive
# (the stick: the home folder here), and a button, BackUp or Restore.
backup_window() {
  local id; id=$(xdotool search --onlyvisible --name "Vorlan on VAT Laws" | tail -1)
  xdotool mousemove --window "$id" 852 322 click 1
  wait_for "BackUp / Restore"
}
backup_press() {   # left of the button in the window
  local id; id=$(xdotool search --onlyvisible --name "BackUp / Restore" | tail -1)
  xdotool mousemove --window "$id" 205 54 click 1; sleep 0.7; keys Return
  xdotool mousemove --window "$id" "$1" 104 click 1; sleep 3
}
start
backup_window; backup_press 64
shot backup-done; keys Return
stop
find "$data/returns" -name '*.mdb' | sort > "$work/books-before"
rm -rf "$data/returns" "$data/dealers.db"
find "$data" -maxdepth 1 \( -name 'nwForm10DB.mdb' -o -name 'Form10Data.mdb' -o -name 'TAXDATA.mdb' \) -delete
start
backup_window; backup_press 167
wait_for "^Restore$"; shot restore-question "^Restore$"; keys Return; sleep 3
shot restore-done; keys Return
find "$data/returns" -name '*.mdb' | sort > "$work/books-after"
diff "$work/books-before" "$work/books-after" && say "every book is back"
keys Escape
xdotool search --onlyvisible --name "BackUp / Restore" windowclose 2>/dev/null || true
to_chooser; keys alt+y; wait_for "Dealers and years"
shot restored-chooser "Dealers and years"
stop
say "done: $screens/practice-*.png"
