#!/bin/sh
# Runs every fuzz target with the address and undefined-behaviour sanitizers: tools/fuzz.sh [--fast] MINUTES [TARGET...]
# SPDX-License-Identifier: MIT
#
# --fast goes without the sanitizers, ten times as fast or more, in build/fuzz-fast. A target is bound to one processor:
# threads that wait for one another cost more than they bring there. picture_file/FORMAT starts with files of that format.
# The minutes of each processor are shared among the targets, one target a processor at a time. What is found grows in
# build/fuzz/corpus/TARGET, from fuzz/seeds/TARGET on; an input that fails lies in build/fuzz/found. Prints runs and
# findings a target.
set -eu
cd "$(dirname "$0")/.."
build=build/fuzz
fast=
if [ "$1" = --fast ]; then
    build=build/fuzz-fast
    fast="-DKELU_SANITIZE=fuzzer-no-link -DKELU_HARDEN=OFF -DCMAKE_BUILD_TYPE=Release"
    shift
fi
minutes=$1
shift
targets=${*:-$(cd fuzz/seeds && find . -type f -printf '%h\n' | sort -u | cut -c3-) picture_file}
processors=$(nproc)
# shellcheck disable=SC2086
cmake --preset fuzz -B "$build" $fast >/dev/null
# shellcheck disable=SC2046,SC2086
cmake --build "$build" --target $(printf 'fuzz_%s\n' $targets | sed 's,/.*,,' | sort -u)

mkdir -p "$build/found" "$build/log"
export build processors
export LSAN_OPTIONS="suppressions=$PWD/tests/support/lsan.supp:print_suppressions=0"
seconds=$((minutes * 60 * processors / $(echo "$targets" | wc -w)))
# What a target prints is no finding; a round may take a while on a busy machine.
# shellcheck disable=SC2016
one='
    name=$(echo "$1" | tr / -)
    mkdir -p "$build/corpus/$1" "fuzz/seeds/$1"
    taskset -c $(($2 % processors)) nice -n 19 "$build/bin/fuzz_${1%%/*}" -max_total_time="$0" -timeout=60 -report_slow_units=60 \
        -rss_limit_mb=3000 -seed="$2" -close_fd_mask=1 -print_final_stats=1 -artifact_prefix="$build/found/$name-" \
        "$build/corpus/$1" "fuzz/seeds/$1" >"$build/log/$name-$2" 2>&1 || echo "$1: FOUND, see $build/log/$name-$2" >&2'
echo "$targets" | tr ' ' '\n' | nl -w 1 | while read -r number target; do echo "$target $number"; done |
    xargs -P "$processors" -n 2 sh -c "$one" "$seconds"
for target in $(echo "$targets" | tr ' ' '\n' | sort -u); do
    name=$(echo "$target" | tr / -)
    runs=$(cat "$build/log/$name"-[0-9]* | awk '/^stat::number_of_executed_units/ {sum += $2} END {print sum + 0}')
    echo "$target: $runs runs, $(find "$build/found" -name "$name-*" | wc -l) found"
done
