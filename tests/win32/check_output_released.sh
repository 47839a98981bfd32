#!/bin/sh
# A test program that makes a shortcut under Wine must end without leaving a
# Wine program behind that holds its output: CTest waits for the end of a
# test's output, so such a program kept it waiting until its timeout. Wine's
# desktop process was one: started by a program that needs a window (COM's
# single-threaded apartment has one) while none runs, it inherits that
# program's output and lives as long as any other Wine program shows a
# window, as the window tests do beside it. Wine's menu builder, which saving
# a shortcut starts, was another (and starts the desktop process in turn).
#
#   check_output_released.sh <scripts/wine-run> <display_tests.exe>
# Exits 77 (skipped) when it cannot set the scene: no display, or another
# desktop process that does not end.
set -u
wine_run=$1
program=$2
: "${WINEPREFIX:=${XDG_CACHE_HOME:-${HOME:-/tmp}/.cache}/ferrow-wine}"
export WINEPREFIX
[ -n "${DISPLAY:-}" ] || { echo "no display: skipped"; exit 77; }

# Whether this prefix's desktop process runs.
desktop_up() {
  for pid in $(pgrep -x explorer.exe); do
    tr '\0' '\n' <"/proc/$pid/environ" 2>/dev/null | grep -qx "WINEPREFIX=$WINEPREFIX" && return 0
  done
  return 1
}

# The test program must be the one to need the desktop, so none may run.
tries=0
while desktop_up; do
  tries=$((tries + 1))
  [ $tries -le 100 ] || { echo "the desktop process does not end: skipped"; exit 77; }
  sleep 0.1
done

# Wine's server and services, when they do not run yet, away from the output
# too (as scripts/wine-start does), so the program starts none of them.
"$wine_run" cmd /c exit >/dev/null 2>&1 </dev/null

work=$(mktemp -d)
keeper=
trap 'rm -rf "$work"; [ -z "$keeper" ] || kill "$keeper" 2>/dev/null' EXIT
start=$(date +%s)
{ "$wine_run" "$program" \
    --gtest_filter=TextWindowTest.DroppingAShortcutOpensItsTargetOrTheShortcutItselfWhenTheTargetIsGone 2>&1
} | { cat >"$work/output"; touch "$work/ended"; } >/dev/null 2>&1 &
# Should the program start the desktop process, another Wine program with a
# window keeps it running, as the window tests beside it do.
waited=0
while [ ! -e "$work/ended" ] && [ $waited -lt 400 ]; do
  if [ -z "$keeper" ] && desktop_up; then
    timeout 20 "$wine_run" notepad.exe >/dev/null 2>&1 </dev/null &
    keeper=$!
  fi
  sleep 0.02
  waited=$((waited + 1))
done
if [ ! -e "$work/ended" ]; then
  echo "FAILED: the test program's output is still open $(($(date +%s) - start)) s after it started"
  exit 1
fi
cat "$work/output"
grep -q '^\[  PASSED  \] 1 test' "$work/output" || { echo "FAILED: the test program did not pass"; exit 1; }
echo "the output ended after $waited looks, 20 ms apart"
