#!/bin/sh
# Fails when a Windows program or library would need a MinGW or C++ runtime
# DLL beside it (libstdc++, libgcc, libwinpthread).
objdump=$1
shift
status=0
for file in "$@"; do
  needed=$("$objdump" -p "$file" | sed -n 's/^[[:space:]]*DLL Name: //p')
  [ -n "$needed" ] || { echo "no imports read from $file"; status=1; continue; }
  if echo "$needed" | grep -i -E 'libstdc|libgcc|winpthread|mingw' >/dev/null; then
    echo "$file needs:"; echo "$needed"; status=1
  fi
done
exit $status
