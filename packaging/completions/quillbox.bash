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
    --matrix) choices='bt601 bt709 bt2020' ;;
    --raw-format) choices='rgba bgra rgb bgr' ;;
    -o | --output)
        _quillbox_files "$word"
        return
        ;;
    --source-fps | --delay | --raw | --crop | --loop | --threads | --background | --region | --duration) return ;; # numbers
    --max-size | --max-width | --max-fps | --colors) return ;;
    *)
        if [[ -z $command ]]; then
            choices='--help --version'
            [[ $word == -* ]] || choices='encode record begin stop toggle again show status quit history recover doctor help'
        elif [[ $word != -* ]]; then
            [[ $command != encode ]] || _quillbox_files "$word"
            [[ $command == help ]] || return
            choices='encode record begin stop toggle again show status quit history recover doctor'
        else
            case $command in
            encode)
                choices='--help --preset --output --json --force --quiet --precise --max-size --max-fps --colors --source-fps --delay --dither --raw --raw-format'
                choices+=' --crop --max-width --loop --threads --matrix --background --strict --keep-going'
                ;;
            record)
                choices='--help --region --select --duration --preset --output --json --force --quiet --precise --max-size --max-width --max-fps'
                choices+=' --colors --copy'
                ;;
            recover)
                choices='--help --list --discard --preset --output --json --force --quiet --precise --max-size --max-width --max-fps --colors'
                ;;
            begin) choices='--help --json --precise' ;;
            again) choices='--help --json --precise --preset' ;;
            stop | toggle | status | history | doctor) choices='--help --json' ;;
            show | quit | help) choices='--help' ;;
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
