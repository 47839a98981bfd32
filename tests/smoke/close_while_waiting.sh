#!/bin/sh
# The built program closed while it waits to start: the process ends at
# once, with or without a file, and never opens the file afterwards.
#   close_while_waiting.sh PROGRAM LIBRARY
set -eu
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$1" "$2" "$work/"
printf 'line\r\n' > "$work/web.log"
for args in "/WAIT=30" "/WAIT=30 $work/web.log"; do
  # shellcheck disable=SC2086
  QT_QPA_PLATFORM=offscreen "$work/ferrow" $args &
  pid=$!
  sleep 1.5
  kill -TERM "$pid"
  i=0; while kill -0 "$pid" 2>/dev/null && [ $i -lt 50 ]; do sleep 0.1; i=$((i + 1)); done
  if kill -0 "$pid" 2>/dev/null; then
    kill -KILL "$pid"; echo "still running 5 s after the close ($args)"; exit 1
  fi
  wait "$pid" || true
done
if grep -q '^\[web.log\]' "$work/ferrow.INI" 2>/dev/null; then
  echo "the file was opened after the close"; cat "$work/ferrow.INI"; exit 1
fi
echo "close while waiting: 2 passed, 0 failed"
