#!/bin/bash
# Prints what bash completes, a word a line: complete.bash WORD... as bash splits them, the last one being completed.
# The completion is found as in a terminal, in XDG_DATA_DIRS, by the loader of the package bash-completion.
# shellcheck source=/dev/null
source /usr/share/bash-completion/bash_completion
_completion_loader "$1"
[[ $(complete -p "$1") =~ -F\ ([^ ]+) ]] || exit 1
COMP_WORDS=("$@")
COMP_CWORD=$(($# - 1))
COMP_LINE=$*
COMP_POINT=${#COMP_LINE}
export COMP_LINE COMP_POINT
"${BASH_REMATCH[1]}" "$1" "${*: -1}" "${*: -2:1}"
[[ ${#COMPREPLY[@]} = 0 ]] || printf '%s\n' "${COMPREPLY[@]}"
