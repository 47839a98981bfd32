#!/bin/sh
# The companion library exports exactly its seven functions.
lib=$1
case "$lib" in
  *.dll) names=$(x86_64-w64-mingw32-objdump -p "$lib" |
                 sed -n '/\[Ordinal\/Name Pointer\] Table/,/^$/p' | awk 'NR>1 && NF {print $NF}') ;;
  *)     names=$(nm -D --defined-only "$lib" | awk '$2 ~ /^[TtWwDdBbVvRr]$/ {print $3}' |
                 grep -v -E '^(_init|_fini|_edata|_end|__bss_start)$') ;;
esac
got=$(printf '%s\n' $names | sort | tr '\n' ' ')
want="CreateShortcut DLLVersion GetDLLFileName GetLinkTarget GetProfileDir RTFFilter RTFFilterNoSlash "
if [ "$got" = "$want" ]; then echo "exports: $got"; exit 0; fi
echo "expected: $want"; echo "exported: $got"; exit 1
