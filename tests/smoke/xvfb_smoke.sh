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
bytes() { title | sed -n 's/.*(\([0-9,]*\) bytes).*/\1/p' | tr -d ,; }
i=0; while [ -z "$(bytes)" ] && [ $i -lt 100 ]; do sleep 0.1; i=$((i + 1)); done
before=$(bytes)
echo "title: $(title)"
for n in 1 2 3 4 5; do printf 'ERROR in request %s\r\n' "$n" >> "$work/web.log"; sleep 0.3; done
i=0; while [ "$(bytes)" = "$before" ] && [ $i -lt 50 ]; do sleep 0.1; i=$((i + 1)); done
after=$(bytes)
echo "title: $(title)"
kill -TERM "$pid"
wait "$pid"
[ -n "$before" ] && [ -n "$after" ] && [ "$after" -gt "$before" ] || { echo "size did not rise: '$before' -> '$after'"; exit 1; }
SESSION
xvfb-run -a -s "-screen 0 1280x1024x24" sh "$work/session.sh" "$work"

ini="$work/ferrow.INI"
grep -q '^\[web.log\]' "$ini" || { echo "no [web.log] section"; cat "$ini"; exit 1; }
grep -q "^History1=$log" "$ini" || { echo "no history"; exit 1; }
grep -q '^FilterString=ERROR' "$ini" || { echo "filter not saved"; exit 1; }
echo "smoke: 1 passed, 0 failed"
