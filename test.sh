#!/bin/sh
# Installs what is missing, builds everything and runs every test: ./test.sh [--sanitize | --thread]
# --sanitize does the same with the address and undefined-behaviour sanitizers and without the precompiled header, so that
# no file lives by another's includes; --thread runs the tests of what uses threads with the thread sanitizer. Each has a
# build folder of its own. With CI=true a warning is an error, and a tool that a test needs must be there.
# SPDX-License-Identifier: MIT
set -eu
cd "$(dirname "$0")"
. tools/setup.sh

# shellcheck disable=SC2086
install_packages $build_packages $test_packages
# shellcheck disable=SC2046,SC2086
install_packages $(known_packages $optional_test_packages)
mkdir -p build
export QT_QPA_PLATFORM=offscreen
export TSAN_OPTIONS="suppressions=$PWD/tests/support/tsan.supp:print_suppressions=0"
export LSAN_OPTIONS="suppressions=$PWD/tests/support/lsan.supp:print_suppressions=0"
strict=""
if [ "${CI:-}" = true ]; then
    strict="-DKELU_WERROR=ON"
    export KELU_REQUIRE_TOOLS="all of the packages and $(known_packages $optional_test_packages)"
fi
case "${1:-}" in
    "")
        configure_and_build build/test all -- $strict
        exec ctest --test-dir build/test --output-on-failure -j 2 ;;
    --sanitize)
        configure_and_build build/sanitize all -- -DKELU_SANITIZE=address,undefined -DKELU_PCH=OFF
        exec ctest --test-dir build/sanitize --output-on-failure -j 2 ;;
    --thread)
        # Kernels for this processor alone: which instructions they use changes nothing about threads.
        configure_and_build build/thread test_engine test_canvas test_pictures test_effects test_document -- \
            -DKELU_SANITIZE=thread "-DCMAKE_CXX_FLAGS=-march=native -DHWY_COMPILE_ONLY_STATIC"
        unset KELU_REQUIRE_TOOLS  # tests/support/tools.h tells why
        exec ctest --test-dir build/thread --output-on-failure -j 2 -R '^(engine|canvas|pictures|effects|document)\.' ;;
    *)
        echo "usage: ./test.sh [--sanitize | --thread]" >&2
        exit 2 ;;
esac
