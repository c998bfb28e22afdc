#!/bin/zsh
# Prints what zsh completes, a word a line: complete.zsh FOLDER LINE, where FOLDER has the completion's file.
# It runs in a terminal of its own, where a tab after LINE has what would be offered written down.
zmodload zsh/zpty
export OFFERS=$(mktemp)
zpty shell zsh -f -i
zpty -w shell "PS1= PS2= RPS1="
zpty -w shell "fpath=(${(q)1} \$fpath); autoload -Uz compinit && compinit -D -u"
# With -O, -A or -D nothing is offered, but an array filled.
zpty -w shell 'compadd() {
    if (( ! ${argv[(I)-[OAD]]} )); then
        local -a offered
        builtin compadd -O offered "$@"
        (( ! $#offered )) || print -rl -- $offered >>$OFFERS
    fi
    builtin compadd "$@"
}'
# The words are in two parts, since the terminal shows what is typed, too.
zpty -w shell 'offer() { _main_complete; print -r -- ALL" "OFFERED }; zle -C offer complete-word offer'
zpty -w shell 'bindkey "^I" offer; print NOW" "READY'
zpty -r shell heard '*NOW READY*'
zpty -w -n shell "$2"$'\t'
zpty -r shell heard '*ALL OFFERED*'
zpty -d shell
cat $OFFERS
rm -f $OFFERS
