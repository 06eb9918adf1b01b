#!/bin/sh
# Builds engine, canvas and kelu-cli for 64-bit ARM and runs their tests under emulation: tools/arm64.sh SYSROOT
# SPDX-License-Identifier: MIT
#
# SYSROOT is filled with Debian 12's arm64 packages when it is not there (1 GB). Needs what ./test.sh installs, and
# g++-aarch64-linux-gnu, qemu-user, mmdebstrap. The engine's tests take a quarter of an hour.
set -eu
cd "$(dirname "$0")/.."
. tools/setup.sh
KELU_SYSROOT=$1
export KELU_SYSROOT
if [ ! -d "$KELU_SYSROOT" ]; then
    headers=$(printf '%s\n' $build_packages | grep -- '-dev$' | tr '\n' ',')
    mmdebstrap --variant=extract --arch=arm64 --include="${headers}libc6-dev,libstdc++-12-dev,libgtest-dev,libgmock-dev" \
        bookworm "$KELU_SYSROOT"
    cp /usr/lib/qt6/bin/lrelease "$KELU_SYSROOT/usr/lib/qt6/bin/"  # runs here
fi
cmake -S . -B build/arm64 -G Ninja --toolchain tools/arm64.cmake -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build/arm64 --target test_engine test_canvas kelu-cli
export QT_QPA_PLATFORM=offscreen QT_PLUGIN_PATH="$KELU_SYSROOT/usr/lib/aarch64-linux-gnu/qt6/plugins"
for test in test_canvas test_engine; do qemu-aarch64 -L "$KELU_SYSROOT" build/arm64/bin/$test --gtest_brief=1; done
