#!/bin/sh
# An installed tree (cmake --install into a DESTDIR, or a .deb unpacked with
# dpkg -x) started from where it lies, under Xvfb: it must load the companion
# library from its own lib folder, find its sound in share/ferrow, show its
# icon on its windows, and follow a growing file.
#   installed_run.sh ROOT        (ROOT holds usr/bin/ferrow)
set -eu
root=$(cd "$1" && pwd)
program="$root/usr/bin/ferrow"
[ -x "$program" ] || { echo "no program at $program"; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/home" "$work/config"
printf 'GET / 200\r\n' > "$work/web.log"

cat > "$work/session.sh" <<'SESSION'
#!/bin/sh
set -eu
program=$1 work=$2 root=$3
"$program" "$work/web.log" /F /S /H=ERROR &
pid=$!
title() { xdotool search --name '^Ferrow - ' getwindowname 2>/dev/null | head -n 1; }
bytes() { title | sed -n 's/.*(\([0-9,]*\) bytes).*/\1/p' | tr -d ,; }
i=0; while [ -z "$(bytes)" ] && [ $i -lt 100 ]; do sleep 0.1; i=$((i + 1)); done
before=$(bytes)
grep -o "$root/[^ ]*libferrow.so" "/proc/$pid/maps" | head -n 1 > "$work/library"
window=$(xdotool search --name '^Ferrow - ' | head -n 1)
xprop -id "$window" WM_CLASS _NET_WM_ICON 2>/dev/null | head -c 300 > "$work/window"
for n in 1 2 3; do printf 'ERROR in request %s\r\n' "$n" >> "$work/web.log"; sleep 0.3; done
i=0; while [ "$(bytes)" = "$before" ] && [ $i -lt 50 ]; do sleep 0.1; i=$((i + 1)); done
after=$(bytes)
echo "title: $(title)"
[ -n "${SCREENSHOT:-}" ] && xwd -root -silent > "$SCREENSHOT" 2>/dev/null || true
kill -TERM "$pid"
i=0; while kill -0 "$pid" 2>/dev/null && [ $i -lt 100 ]; do sleep 0.1; i=$((i + 1)); done
if kill -0 "$pid" 2>/dev/null; then
  echo "did not close on SIGTERM (a message box is up?)"; kill -KILL "$pid"; exit 1
fi
wait "$pid" || true
[ -n "$before" ] && [ -n "$after" ] && [ "$after" -gt "$before" ] || { echo "size did not rise: '$before' -> '$after'"; exit 1; }
SESSION
HOME="$work/home" XDG_CONFIG_HOME="$work/config" \
  xvfb-run -a -s "-screen 0 1280x1024x24" sh "$work/session.sh" "$program" "$work" "$root"

fail=0
library=$(cat "$work/library")
case "$library" in
  "$root"/usr/lib/*ferrow/libferrow.so) echo "library: $library" ;;
  *) echo "the library was not loaded from the installed tree: '$library'"; fail=1 ;;
esac
grep -q '"ferrow"' "$work/window" || { echo "window class is not ferrow"; fail=1; }
grep -q '_NET_WM_ICON(CARDINAL)' "$work/window" || { echo "the window has no icon"; fail=1; }
# Settings go beside the program when its folder can be written, else to the user's folder.
ini="$root/usr/bin/ferrow.INI"
[ -f "$ini" ] || ini="$work/config/ferrow/ferrow.INI"
[ -f "$ini" ] || { echo "no settings file"; exit 1; }
grep -q '^\[web.log\]' "$ini" || { echo "no [web.log] section"; fail=1; }
# A sound it cannot find turns the sound off for the file, and that is saved.
if grep -q '^PlaySoundOnUpdate=False' "$ini"; then echo "the update sound was not found"; fail=1; fi
[ $fail -eq 0 ] && echo "installed run: passed"
exit $fail
