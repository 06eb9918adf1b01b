#!/bin/sh
# Has a monkey paint COUNT sessions in the window, keeps their recipes, and replays each in a process of its own: the
# same pixels have to come out. Prints the counts; status 1 when a session differs.
# SPDX-License-Identifier: MIT
#
#   tools/replayed_recipes.sh BIN_FOLDER COUNT [KEEP_FOLDER]
set -eu
bin=$1 count=$2
folder=${3:-$(mktemp -d)}
mkdir -p "$folder"
# Monkeys wait now and then for what a user would see: more of them than processors.
shards=$((3 * $(nproc)))
for shard in $(seq 0 $((shards - 1))); do
    KELU_MONKEYS=$count KELU_RECIPES=$folder GTEST_TOTAL_SHARDS=$shards GTEST_SHARD_INDEX=$shard \
        QT_QPA_PLATFORM=offscreen "$bin/test_app" --gtest_brief=1 --gtest_filter='Seeds/Monkey.*' \
        >"$folder/monkeys$shard.log" 2>&1 || echo "some monkeys failed: $folder/monkeys$shard.log" &
done
wait
pixels() { convert "$1" -depth 8 rgba:- | sha1sum; }
same=0 different=0
for recipe in "$folder"/*.kelu; do
    stem=${recipe%.kelu}
    rm -f "$stem.again.png"
    if "$bin/kelu-cli" replay "$recipe" "$stem.photo.png" "$stem.again.png" 2>"$stem.error" &&
        [ "$(pixels "$stem.again.png")" = "$(pixels "$stem.painted.png")" ]; then
        same=$((same + 1))
    else
        different=$((different + 1))
        echo "different: $recipe"
    fi
done
echo "$count sessions, $((same + different)) recipes: $same the same, $different different"
[ "$different" = 0 ] && [ "$same" = "$count" ]
