#!/bin/sh
# `cmake --install` of the build into a temporary root, then the installed
# tree is started from there (installed_run.sh).
#   install_and_run.sh BUILD_DIR
set -eu
here=$(cd "$(dirname "$0")" && pwd)
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
DESTDIR="$root" cmake --install "$1" --prefix /usr >/dev/null
sh "$here/installed_run.sh" "$root"
