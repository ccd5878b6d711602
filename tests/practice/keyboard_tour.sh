#!/usr/bin/env bash
# The README's keyboard tour ("Screens", walk-01 .. walk-17) through the real program under Xvfb with a
# window manager and the keyboard alone (xdotool), from a first start: each step's active window is kept
# as docs/screens/walk-NN-*.png, and the program must end at Exit.
# Not run by CTest: it takes a minute and a display of its own. Usage: tests/practice/keyboard_tour.sh [build]
set -euo pipefail
cd "$(dirname "$0")/../.."
build=${1:-build}
name=walk
source tests/practice/session.sh

# The tour keeps a slower pace than the other practices: its windows open documents.
wait_for() { timeout 30 xdotool search --sync --onlyvisible --name "$1" >/dev/null; sleep 0.8; }
keys() { xdotool key --delay 150 "$@"; sleep 0.5; }
typed() { xdotool type --delay 30 "$1"; sleep 0.3; }
shot() {   # the active window, with the pointer out of it
  xdotool mousemove 1279 1023; sleep 0.8
  xwd -id "$(xdotool getactivewindow)" -silent | xwdtopnm 2>/dev/null | pnmtopng >"$screens/$1.png" 2>/dev/null
  echo "== $1: $(xdotool getactivewindow getwindowname)"
}

start
shot walk-01-main
keys Tab Right; shot walk-02-toolbar-central
keys Return; sleep 1; keys Right Right Right Right Right Right Right Right Return; sleep 1.5; shot walk-03-central-forms
keys Tab Tab Return; sleep 1.5; keys Tab Tab Tab; shot walk-04-contents-link
keys Return; sleep 1.5; shot walk-05-form3
keys Escape; sleep 0.8; keys shift+Tab shift+Tab Right Right Right Right Return; sleep 1; keys Tab; typed Kerala
shot walk-06-main-kerala
keys Return; sleep 1; keys Return; sleep 1; keys End; shot walk-07-act-tree
keys Return; sleep 1; typed 6A; shot walk-08-list-page-typed
keys shift+Tab shift+Tab space; sleep 1.5; shot walk-09-section-6A
keys Tab space; sleep 0.8; keys shift+Tab shift+Tab shift+Tab Right Right Right Right Right Right Return; sleep 1.5; keys Down
shot walk-10-forms-grid
keys alt+g; sleep 1.5; shot walk-11-frmSelect
# A first start has no dealer yet: the first one put in, and its year opened.
keys Return; wait_for "Dealers and years"; keys alt+a; wait_for "New dealer"
typed "Malabar Agencies"; keys Tab; typed 32071234567; keys Tab; typed CST-7781; keys Tab
typed "12 Market Road, Ernakulam"; keys Tab; typed Kochi; keys Return; sleep 1
keys alt+n; sleep 2; shot walk-12-frmNormal
keys shift+Tab shift+Tab Return; sleep 1; shot walk-13-month-list
keys Up Return; sleep 1; shot walk-14-no-record
keys Return; sleep 0.8; keys Return; sleep 0.8
typed "15-10-26"; keys Return; typed "Walk Supplier"; keys Return; typed 32071000001; keys Return; typed W-1; keys Return
keys Down Down Return; typed 1000; keys Return; typed 40; keys Return; typed 0; keys Return; shot walk-15-bill-keyed
keys alt+a; sleep 1.5; shot walk-16-added
keys Return; sleep 0.5; keys alt+l; sleep 1; keys alt+c; sleep 1; keys Tab Left Left; shot walk-17-main-exit
keys Return; sleep 2
if kill -0 "$vorlan" 2>/dev/null; then echo "== Exit did not end the program"; exit 1; fi
vorlan=
echo "== done: the program ended at Exit"
