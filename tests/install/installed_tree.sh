#!/bin/sh
# Installs below a prefix of its own, moves the tree, and uses it through the links: installed_tree.sh CMAKE BUILD-FOLDER
# SPDX-License-Identifier: MIT
set -eu
fail() { echo "installed_tree: $*" >&2; exit 1; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$1" --install "$2" --prefix "$work/first" >/dev/null
mv "$work/first" "$work/moved"
cd "$work/moved"

home=$(dirname "$(realpath bin/kelu)")
for needed in data/ploader.rs data/kelu.snd help/index.html Gallery/CREDITS.md; do
    [ -s "$home/$needed" ] || fail "$needed is not beside the program"
done
[ -s share/applications/com.tarvane.Kelu.desktop ] || fail "the desktop entry is missing"

bin/kelu-cli apply Grayscale "$home/Gallery/cat.jpg" "$work/gray.png" || fail "kelu-cli does not work when installed"
[ -s "$work/gray.png" ] || fail "kelu-cli wrote nothing"

# The window starts, finds its data and stays. Status 124 is timeout's own: still running when its time was over.
status=0
XDG_CONFIG_HOME="$work/config" XDG_RUNTIME_DIR="$work" TEMP="$work" QT_QPA_PLATFORM=offscreen \
    timeout 3 bin/kelu "$home/Gallery/cat.jpg" 2>"$work/errors" || status=$?
[ "$status" = 124 ] || fail "kelu ended with status $status: $(cat "$work/errors")"
