#!/usr/bin/env bash
# The real ferrow.exe under Wine + Xvfb following a file that grows at a
# steady rate, its window's buffer full from the start (bring from start of
# a file larger than the buffer, then lines until the window takes no more:
# the load leaves it some 20 KB short). Prints, per rate: CPU seconds per 30 s of
# ferrow.exe and of the wineserver, their resident memory at the start and
# the end, how far the window fell behind the file, how long the windows
# took to answer and how long a click on Pause took to act.
#
#   bench/ferrow_exe_bench.sh <build-windows folder> [rate ...]
# FERROW_BENCH_SECONDS: how long each rate runs (120); FERROW_BENCH_EXE: the
# ferrow.exe to measure (the build's by default), to compare two builds.
# Run it through scripts/bench-exe, which builds and starts Wine first.
set -euo pipefail
build=$1
shift
rates=("$@")
[ ${#rates[@]} -gt 0 ] || rates=(20 200)
seconds=${FERROW_BENCH_SECONDS:-120}
exe=${FERROW_BENCH_EXE:-$build/bin/ferrow.exe}
probe=$build/bench/exe/exe_probe.exe
wine=/usr/lib/wine/wine64
tick=$(getconf CLK_TCK)

# CPU ticks (user + system) and resident kilobytes of a process.
cpu_of() { awk '{print $14 + $15}' "/proc/$1/stat" 2>/dev/null || echo 0; }
rss_of() { awk '/^VmRSS/ {print $2}' "/proc/$1/status" 2>/dev/null || echo 0; }
seconds_of() { awk -v t="$1" -v hz="$tick" 'BEGIN {printf "%.2f", t / hz}'; }

# The Linux process of a Windows program whose command line names $1.
pid_of() {
  local pid
  for pid in $(ls /proc | grep -E '^[0-9]+$'); do
    if { tr '\0' ' ' < "/proc/$pid/cmdline"; } 2>/dev/null | grep -q "$1" &&
       grep -q "ferrow.exe" "/proc/$pid/comm" 2>/dev/null; then
      echo "$pid"
      return
    fi
  done
}

# This prefix's wineserver.
wineserver_pid() {
  local pid
  for pid in $(ls /proc | grep -E '^[0-9]+$'); do
    if grep -q "^wineserver" "/proc/$pid/comm" 2>/dev/null &&
       { tr '\0' '\n' < "/proc/$pid/environ"; } 2>/dev/null | grep -qx "WINEPREFIX=$WINEPREFIX"; then
      echo "$pid"
      return
    fi
  done
}

run_rate() {
  local rate=$1 dir
  dir=$(mktemp -d /tmp/ferrow-bench.XXXXXX)
  cp "$exe" "$dir/ferrow.exe"
  cp "$build/bin/ferrow.dll" "$build/bin/Updated.wav" "$dir/" 2>/dev/null || true
  # A file larger than the 256 KB buffer: the load fills the window.
  awk 'BEGIN {for (i = 0; i < 5000; i++)
    printf "2024-05-01 10:00:00.000 INFO  [worker-1] GET /api/items/%d 200 1234 bytes in 12 ms\r\n", i}' \
    > "$dir/app.log"
  local log_win="Z:${dir//\//\\}\\app.log"
  (cd "$dir" && exec "$wine" "$dir/ferrow.exe" /F /B=256 "$log_win" >/dev/null 2>&1) &
  local wine_job=$!
  local pid=""
  for _ in $(seq 1 100); do
    pid=$(pid_of "$(basename "$dir")")
    [ -n "$pid" ] && break
    sleep 0.2
  done
  local server
  server=$(wineserver_pid)
  if [ -z "$pid" ] || [ -z "$server" ]; then
    echo "ferrow.exe did not start" >&2
    return 1
  fi
  "$wine" "$probe" "$log_win" "$rate" "$seconds" > "$dir/probe.txt" 2>/dev/null &
  local probe_job=$!
  until grep -q START "$dir/probe.txt" 2>/dev/null; do sleep 0.2; done
  local rss_start cpu0 srv0 t0 lines=()
  rss_start=$(rss_of "$pid")
  cpu0=$(cpu_of "$pid")
  srv0=$(cpu_of "$server")
  t0=$(date +%s.%N)
  # One sample every 30 s, and one at the end.
  while ! grep -q END "$dir/probe.txt"; do
    local now
    now=$(date +%s.%N)
    if awk -v a="$now" -v b="$t0" 'BEGIN {exit !(a - b >= 30)}'; then
      local cpu1 srv1
      cpu1=$(cpu_of "$pid")
      srv1=$(cpu_of "$server")
      lines+=("$(printf '  30 s: ferrow.exe %s s CPU, wineserver %s s CPU, RSS %s KB' \
                "$(seconds_of $((cpu1 - cpu0)))" "$(seconds_of $((srv1 - srv0)))" "$(rss_of "$pid")")")
      cpu0=$cpu1 srv0=$srv1 t0=$now
    fi
    sleep 0.5
  done
  local rss_end cpu1 srv1 now
  rss_end=$(rss_of "$pid")
  cpu1=$(cpu_of "$pid")
  srv1=$(cpu_of "$server")
  now=$(date +%s.%N)
  lines+=("$(printf '  last %.0f s: ferrow.exe %s s CPU, wineserver %s s CPU, RSS %s KB' \
            "$(awk -v a="$now" -v b="$t0" 'BEGIN {print a - b}')" \
            "$(seconds_of $((cpu1 - cpu0)))" "$(seconds_of $((srv1 - srv0)))" "$rss_end")")
  wait "$probe_job" || true
  echo "== $rate lines/s for $seconds s, the window's buffer full (256 KB)"
  printf '%s\n' "${lines[@]}"
  echo "  RSS of ferrow.exe: start $rss_start KB, end $rss_end KB, growth $(( (rss_end - rss_start) / 1024 )) MB"
  grep -v -e START -e END "$dir/probe.txt" | sed 's/^/  /'
  PostClose "$dir"
  kill "$wine_job" 2>/dev/null || true
  wait "$wine_job" 2>/dev/null || true
  rm -rf "$dir"
}

# Ends that ferrow.exe by its own close request, so nothing is left behind.
PostClose() {
  local pid
  pid=$(pid_of "$(basename "$1")")
  [ -n "$pid" ] || return 0
  "$wine" cmd /c "taskkill /im ferrow.exe" >/dev/null 2>&1 || true
  for _ in $(seq 1 50); do
    [ -d "/proc/$pid" ] || return 0
    sleep 0.2
  done
  kill "$pid" 2>/dev/null || true
}

for rate in "${rates[@]}"; do run_rate "$rate"; done
