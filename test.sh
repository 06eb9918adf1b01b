#!/bin/sh
# Installs what is missing, builds everything and runs every test: ./test.sh [--sanitize | --thread]
# --sanitize does the same with the address and undefined-behaviour sanitizers, --thread the engine's tests with the
# thread sanitizer, each in a build folder of its own.
# SPDX-License-Identifier: MIT
set -eu
cd "$(dirname "$0")"
. tools/setup.sh

# shellcheck disable=SC2086
install_packages $build_packages $test_packages
mkdir -p build
export QT_QPA_PLATFORM=offscreen
export TSAN_OPTIONS="suppressions=$PWD/tests/support/tsan.supp:print_suppressions=0"
export LSAN_OPTIONS="suppressions=$PWD/tests/support/lsan.supp:print_suppressions=0"
case "${1:-}" in
    "")
        configure_and_build build/test all --
        exec ctest --test-dir build/test --output-on-failure -j 2 ;;
    --sanitize)
        configure_and_build build/sanitize all -- -DKELU_SANITIZE=address,undefined
        exec ctest --test-dir build/sanitize --output-on-failure -j 2 ;;
    --thread)
        configure_and_build build/thread test_engine -- -DKELU_SANITIZE=thread
        exec build/thread/bin/test_engine ;;
    *)
        echo "usage: ./test.sh [--sanitize | --thread]" >&2
        exit 2 ;;
esac
