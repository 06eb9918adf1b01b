#!/bin/sh
# Tells which guards are in the built programs and modules: tools/hardening.sh BIN_FOLDER. Status 1 when one lacks any.
# SPDX-License-Identifier: MIT
set -eu
status=0
for file in "$1"/kelu "$1"/kelu-cli "$1"/codecs/*.so; do
    [ -f "$file" ] || continue
    missing=""
    has() { # has NAME WHERE PATTERN
        case $2 in
            head) readelf -hW "$file" ;;
            segments) readelf -lW "$file" ;;
            dynamic) readelf -dW "$file" ;;
            symbols) readelf --dyn-syms -W "$file" ;;
            code) objdump -d --no-show-raw-insn "$file" ;;
        esac | grep -q "$3" || missing="$missing $1"
    }
    has position-independent head 'DYN '
    has relro segments GNU_RELRO
    has bind-now dynamic 'NOW'
    has stack-protector symbols __stack_chk_fail
    case $file in *.so) ;; *) has fortify symbols '_chk@' ;; esac
    if [ "$(uname -m)" = x86_64 ]; then has endbr64 code endbr64; fi
    echo "$file:${missing:+ without$missing}"
    [ -z "$missing" ] || status=1
done
exit $status
