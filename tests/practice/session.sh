# The session the practice scripts drive the real program in: a display of its own (Xvfb) with a window
# manager, a copy of the program folder, and the steps a user takes. Sourced, after setting
#   build   the build folder          name    the scripts' name, for its folder and its pictures' names
#   home    the user's home (under $work, which this makes; "home" when not set)
# Pictures go to docs/screens/<name>-<picture>.png; everything else is removed when the script ends.
screens=$PWD/docs/screens
work=$(mktemp -d "/tmp/vorlan-$name.XXXXXX")
display=:$((90 + RANDOM % 100))
export DISPLAY=$display HOME=$work/${home:-home} XDG_RUNTIME_DIR=$work/run QT_QPA_PLATFORM=xcb
mkdir -p "$HOME" "$XDG_RUNTIME_DIR" "$work/fb"
chmod 700 "$XDG_RUNTIME_DIR"
cp -r "$build/bin" "$work/bin"
# A start of the program in the build folder (scripts/start.sh, the start-up benchmark) leaves the user's
# files beside it; the practice begins as a first start, without them.
rm -rf "$work/bin"/{nwForm10DB.mdb,Form10Data.mdb,TAXDATA.mdb,dealers.db,Reader.db,MyDocuments.db,returns}

Xvfb "$display" -screen 0 1280x1024x24 -fbdir "$work/fb" >/dev/null 2>&1 & xvfb=$!
sleep 1
openbox >/dev/null 2>&1 & wm=$!
vorlan=
finish() {
  [ -n "$vorlan" ] && kill "$vorlan" 2>/dev/null || true
  kill "$wm" "$xvfb" 2>/dev/null || true
  rm -rf "$work"
}
trap finish EXIT

say() { echo "== $*"; }
wait_for() { xdotool search --sync --onlyvisible --name "$1" >/dev/null; sleep 0.6; }
keys() { xdotool key --delay 120 "$@"; sleep 0.4; }
typed() { xdotool type --delay 25 "$1"; sleep 0.2; }
away() { xdotool mousemove 1279 1023; sleep 0.2; }   # the pointer out of the picture
# The window of that title, or the whole screen, as docs/screens/<name>-<picture>.png.
shot() {
  away
  local picture=$1 title=${2:-} geometry=""
  if [ -n "$title" ]; then
    local id; id=$(xdotool search --onlyvisible --name "$title" | tail -1)
    eval "$(xdotool getwindowgeometry --shell "$id")"
    # Under a reparenting window manager xdotool counts the title bar (19 pixels) twice; the picture
    # keeps the bar, which shows the window's title.
    geometry="$((X - 1)) $((Y - 38)) $((WIDTH + 2)) $((HEIGHT + 19))"
  fi
  sleep 0.5
  /usr/bin/python3 tests/practice/screen.py "$work/fb/Xvfb_screen0" "$screens/$name-$picture.png" $geometry
}
start() {
  (cd "$work/bin" && exec ./vorlan >>"$work/vorlan.log" 2>&1) & vorlan=$!
  wait_for "Vorlan on VAT Laws"
}
stop() { kill "$vorlan"; wait "$vorlan" 2>/dev/null || true; vorlan=; sleep 0.5; }
