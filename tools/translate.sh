#!/bin/sh
# Makes or refreshes the texts of one language: tools/translate.sh xx writes translations/kelu_xx.ts, with every text of
# the program; those without a translation are marked unfinished and stay English.
# SPDX-License-Identifier: MIT
set -eu
cd "$(dirname "$0")/.."
[ $# = 1 ] || [ $# = 2 ] || { echo "usage: tools/translate.sh xx   (a language such as de or pt_BR)" >&2; exit 2; }
lupdate=$(command -v lupdate || echo /usr/lib/qt6/bin/lupdate)
exec "$lupdate" -silent -I . -locations none -no-obsolete -extensions cpp,h -source-language en -target-language "$1" \
    app canvas capture controls dialogs document effects output pictures platform view -ts "${2:-translations}/kelu_$1.ts"
