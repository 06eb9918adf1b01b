#!/bin/sh
# Runs a command with a session bus and PipeWire of its own, in which the program VIRTUAL_CAMERA publishes a camera:
# with_virtual_camera.sh CAMERA COMMAND...
# Where these do not come up the command is not run and the status is 77.
# SPDX-License-Identifier: MIT
set -u
skip() { echo "with_virtual_camera.sh: $*: skipped" >&2; exit 77; }
if [ -z "${VIRTUAL_CAMERA_BUS:-}" ]; then
    for program in dbus-run-session pipewire wireplumber; do
        command -v "$program" >/dev/null || skip "$program is not installed"
    done
    VIRTUAL_CAMERA_BUS=1 exec dbus-run-session -- "$0" "$@"
fi
camera=$1
shift
home=$(mktemp -d)
mkdir -m 700 "$home/run" "$home/state"
export XDG_RUNTIME_DIR="$home/run" PIPEWIRE_RUNTIME_DIR="$home/run" XDG_STATE_HOME="$home/state"
pipewire >"$home/pipewire.log" 2>&1 &
started=$!
# shellcheck disable=SC2086
trap 'kill $started 2>/dev/null; wait 2>/dev/null; rm -rf "$home"' EXIT
tries=0
until [ -S "$XDG_RUNTIME_DIR/pipewire-0" ]; do
    tries=$((tries + 1))
    [ "$tries" -lt 50 ] || skip "PipeWire does not come up"
    sleep 0.1
done
wireplumber >"$home/wireplumber.log" 2>&1 &
started="$started $!"
sleep 1
export VIRTUAL_CAMERA="$camera"
"$@"
