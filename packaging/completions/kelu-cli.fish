# Completion of kelu-cli for fish; the effects are asked of the program itself. SPDX-License-Identifier: MIT
complete -c kelu-cli -n __fish_use_subcommand -f -a "effects apply convert gif-info replay registry bench help"
complete -c kelu-cli -n "__fish_seen_subcommand_from apply bench; and test (count (commandline -opc)) -eq 2" -f \
    -a "(kelu-cli effects --names)"
complete -c kelu-cli -n "not __fish_use_subcommand" -a "(kelu-cli (commandline -opc)[2] --help | string match -ar -- '--[a-z0-9-]+' | sort -u)"
