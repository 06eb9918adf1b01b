#!/bin/sh
# Runs every fuzz target with the address and undefined-behaviour sanitizers: tools/fuzz.sh MINUTES [TARGET...]
# SPDX-License-Identifier: MIT
#
# The minutes of each processor are shared among the targets, one target a processor at a time. What is found grows in
# build/fuzz/corpus/TARGET, from fuzz/seeds/TARGET on; an input that fails lies in build/fuzz/found. The readers of
# pictures get most of the time: a run of theirs costs a hundred of the others'. Prints runs and findings a target.
set -eu
cd "$(dirname "$0")/.."
minutes=$1
shift
targets=${*:-picture_file picture_file picture_file gif gif_writing metadata registry_import recipe strokes arguments mail_server}
processors=$(nproc)
cmake --preset fuzz >/dev/null
# shellcheck disable=SC2046
cmake --build --preset fuzz --target $(printf 'fuzz_%s\n' $targets | sort -u)

mkdir -p build/fuzz/found build/fuzz/log
seconds=$((minutes * 60 * processors / $(echo "$targets" | wc -w)))
# What a target prints is no finding; a round may take a while on a busy machine.
# shellcheck disable=SC2016
one='
    mkdir -p "build/fuzz/corpus/$1" "fuzz/seeds/$1"
    nice -n 19 "build/fuzz/bin/fuzz_$1" -max_total_time="$0" -timeout=60 -report_slow_units=60 -rss_limit_mb=3000 -seed="$2" -close_fd_mask=1 \
        -print_final_stats=1 -artifact_prefix="build/fuzz/found/$1-" "build/fuzz/corpus/$1" "fuzz/seeds/$1" \
        >"build/fuzz/log/$1-$2" 2>&1 || echo "$1: FOUND, see build/fuzz/log/$1-$2" >&2'
echo "$targets" | tr ' ' '\n' | nl -w 1 | while read -r number target; do echo "$target $number"; done |
    xargs -P "$processors" -n 2 sh -c "$one" "$seconds"
for target in $(echo "$targets" | tr ' ' '\n' | sort -u); do
    runs=$(cat build/fuzz/log/"$target"-* | awk '/^stat::number_of_executed_units/ {sum += $2} END {print sum + 0}')
    echo "$target: $runs runs, $(find build/fuzz/found -name "$target-*" | wc -l) found"
done
