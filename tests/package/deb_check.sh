#!/bin/sh
# The .deb made from the build: its file list holds everything an install
# needs, its dependencies name the Qt it links and the plugins it loads,
# lintian finds no errors, and unpacked into a temporary root it starts.
#   deb_check.sh BUILD_DIR APP_ID
set -eu
here=$(cd "$(dirname "$0")" && pwd)
build=$1 id=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
(cd "$build" && cpack -G DEB -B "$work/out" >"$work/cpack.log" 2>&1) || { cat "$work/cpack.log"; exit 1; }
deb=$(ls "$work"/out/ferrow_*_amd64.deb)
echo "package: $(basename "$deb"), $(stat -c %s "$deb") bytes"

fail=0
dpkg-deb -c "$deb" | awk '{print $NF}' | sed 's|^\./|/|' > "$work/files"
for f in /usr/bin/ferrow /usr/share/ferrow/Updated.wav \
         "/usr/share/applications/$id.desktop" "/usr/share/metainfo/$id.metainfo.xml" \
         "/usr/share/icons/hicolor/scalable/apps/$id.svg" \
         "/usr/share/icons/hicolor/16x16/apps/$id.png" "/usr/share/icons/hicolor/48x48/apps/$id.png" \
         "/usr/share/icons/hicolor/256x256/apps/$id.png" \
         /usr/share/man/man1/ferrow.1.gz /usr/share/doc/ferrow/copyright \
         /usr/share/doc/ferrow/changelog.gz; do
  grep -qx "$f" "$work/files" || { echo "missing from the package: $f"; fail=1; }
done
grep -q '^/usr/lib/.*ferrow/libferrow.so$' "$work/files" || { echo "missing: the library"; fail=1; }

depends=$(dpkg-deb -f "$deb" Depends)
echo "Depends: $depends"
for p in libqt6widgets6 libqt6multimedia6 libqt6core6 libc6 qt6-qpa-plugins; do
  echo "$depends" | grep -q "$p" || { echo "no dependency on $p"; fail=1; }
done

if command -v lintian >/dev/null; then
  lintian --tag-display-limit 0 "$deb" > "$work/lintian" 2>&1 || true
  cat "$work/lintian"
  if grep -q '^E:' "$work/lintian"; then echo "lintian reports errors"; fail=1; fi
else
  echo "lintian is not installed (scripts/setup --tests installs it)"; fail=1
fi

dpkg-deb -x "$deb" "$work/root"
sh "$here/installed_run.sh" "$work/root" || fail=1
[ $fail -eq 0 ] && echo "package: passed"
exit $fail
