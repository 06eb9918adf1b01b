#!/bin/sh
# Installs what is missing, builds Kelu and starts it: ./run.sh [PICTURE]
# Without a display it renders an effect on a picture with kelu-cli instead and says where the result lies.
# SPDX-License-Identifier: MIT
set -eu
picture=""
if [ $# -gt 0 ]; then
    [ -r "$1" ] || { echo "run.sh: $1: no such picture" >&2; exit 1; }
    picture=$(realpath "$1")
fi
cd "$(dirname "$0")"
. tools/setup.sh

# shellcheck disable=SC2086
install_packages $build_packages
mkdir -p build
configure_and_build build/run kelu kelu-cli -- -DKELU_TESTS=OFF >&2

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec build/run/bin/kelu ${picture:+"$picture"}
fi
say "There is no display here, so no window: painting with kelu-cli instead."
result="$PWD/build/oil-painting.png"
build/run/bin/kelu-cli apply "Oil Painting" "${picture:-Gallery/cat.jpg}" "$result" --s1 5 --force
say "The picture as an oil painting lies at $result"
