#!/bin/sh
# The built program in a real X server: started on a growing file, its text
# window's title read from outside while the file grows, closed as a signal
# closes it, and its configuration file checked afterwards.
#   xvfb_smoke.sh PROGRAM LIBRARY
set -eu
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$1" "$2" "$work/"
log="$work/web.log"
printf 'GET / 200\r\n' > "$log"

cat > "$work/session.sh" <<'SESSION'
#!/bin/sh
set -eu
work=$1
"$work/ferrow" "$work/web.log" /F /H=ERROR &
pid=$!
title() { xdotool search --name '^Ferrow - ' getwindowname 2>/dev/null | head -n 1; }
# The whole title the text window shows for the file's size and line count.
want() { echo "Ferrow - $work/web.log ($1 bytes) [$2]"; }
wait_for() { i=0; while [ "$(title)" != "$1" ] && [ $i -lt 100 ]; do sleep 0.1; i=$((i + 1)); done; }
wait_for "$(want 11 1)"
before=$(title)
echo "title: $before"
for n in 1 2 3 4 5; do printf 'ERROR in request %s\r\n' "$n" >> "$work/web.log"; sleep 0.3; done
wait_for "$(want 111 6)"
after=$(title)
echo "title: $after"
kill -TERM "$pid"
wait "$pid"
[ "$before" = "$(want 11 1)" ] || { echo "title at start: '$before', not '$(want 11 1)'"; exit 1; }
[ "$after" = "$(want 111 6)" ] || { echo "title after five lines: '$after', not '$(want 111 6)'"; exit 1; }
SESSION
xvfb-run -a -s "-screen 0 1280x1024x24" sh "$work/session.sh" "$work"

ini="$work/ferrow.INI"
lines=$(tr -d '\r' < "$ini")
# Whole lines of the file, not pieces of them.
has() { printf '%s\n' "$lines" | grep -qxF "$1"; }
has '[web.log]' || { echo "no [web.log] section"; cat "$ini"; exit 1; }
has "History1=$log" || { echo "no history"; cat "$ini"; exit 1; }
has 'FilterString=ERROR' || { echo "filter not saved"; cat "$ini"; exit 1; }
echo "smoke: 1 passed, 0 failed"
