#!/bin/sh
# Makes or refreshes the texts of one language: tools/translate.sh xx writes translations/kelu_xx.ts, with every text of
# the program; those without a translation are marked unfinished and stay English.
# SPDX-License-Identifier: MIT
set -eu
cd "$(dirname "$0")/.."
[ $# = 1 ] || [ $# = 2 ] || { echo "usage: tools/translate.sh xx   (a language such as de or pt_BR)" >&2; exit 2; }
lupdate=$(command -v lupdate || echo /usr/lib/qt6/bin/lupdate)

# The rows of commands and effects stand plain in their tables, where each text is also a name in scripts.
rows=$(mktemp -d)
trap 'rm -rf "$rows"' EXIT
noop() { sed "s/.*/QT_TRANSLATE_NOOP(\"$1\", \"&\");/"; }
{
    sed -n 's/.*{Command::[A-Za-z]*, "[^"]*", "\([^"]*\)".*/\1/p' document/commands.h | noop Commands
    # Every literal but the files' and pages' names; literals that run on over two lines are joined.
    cat effects/catalogue/catalogue.h effects/catalogue/catalogue.cpp effects/catalogue/[!cr]*.cpp \
        effects/catalogue/colors.cpp | grep -v '^ *//\|#include\|translate(\|Literal(' | grep -o '"[^"]*"' |
        sed 's/"//g' | grep '[A-Z]' | grep -v '\.html$' | sort -u | noop Effects
} > "$rows/rows.cpp"
"$lupdate" -silent -I . -locations none -no-obsolete -disable-heuristic sametext -disable-heuristic similartext -extensions cpp,h -source-language en -target-language "$1" \
    app canvas capture controls dialogs document effects help output pictures platform view "$rows/rows.cpp" \
    -ts "${2:-translations}/kelu_$1.ts"
