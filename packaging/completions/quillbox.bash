# Completes the command line of quillbox in bash. Needs nothing but bash itself.
# shellcheck shell=bash

_quillbox() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command='' i
    COMPREPLY=()
    # "--preset=git" comes as three words.
    if [[ $word == '=' ]]; then
        word=''
    elif [[ $before == '=' && COMP_CWORD -ge 2 ]]; then
        before=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    for ((i = 1; i < COMP_CWORD; ++i)); do
        if [[ ${COMP_WORDS[i]} != -* ]]; then
            command=${COMP_WORDS[i]}
            break
        fi
    done

    local choices=''
    case $before in
    --preset) choices='slack github docs' ;;
    --dither) choices='auto always never' ;;
    -o | --output)
        _quillbox_files "$word"
        return
        ;;
    --source-fps | --raw | --region | --duration | --max-size | --max-width | --max-fps | --colors) return ;; # numbers
    *)
        if [[ -z $command ]]; then
            choices='--help --version'
            [[ $word == -* ]] || choices='encode record begin stop toggle show status quit history doctor'
        elif [[ $word != -* ]]; then
            [[ $command != encode ]] || _quillbox_files "$word"
            return
        else
            case $command in
            encode) choices='--help --preset --output --json --force --precise --max-size --max-width --max-fps --colors --source-fps --dither --raw' ;;
            record) choices='--help --region --select --duration --preset --output --json --force --precise --max-size --max-width --max-fps --colors --copy' ;;
            begin | stop | toggle | status | history | doctor) choices='--help --json' ;;
            show | quit) choices='--help' ;;
            esac
        fi
        ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$word")
}

_quillbox_files() { # BEGINNING
    compopt -o filenames 2>/dev/null # outside a completion there is nothing to tell
    mapfile -t COMPREPLY < <(compgen -f -- "$1")
}

complete -F _quillbox quillbox
