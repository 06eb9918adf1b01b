#!/bin/sh
# Every translated text is still a text of the program: brought in step, no file of translations loses one.
# SPDX-License-Identifier: MIT
set -eu
cd "$(dirname "$0")/../.."
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
status=0
for file in translations/kelu_*.ts; do
    language=${file#translations/kelu_}
    cp "$file" "$folder"
    tools/translate.sh "${language%.ts}" "$folder"
    had=$(grep -c '<translation>' "$file")
    has=$(grep -c '<translation>' "$folder/${file#translations/}")
    [ "$had" = "$has" ] || { echo "$file: $((had - has)) texts are no longer in the code"; status=1; }
done
exit $status
