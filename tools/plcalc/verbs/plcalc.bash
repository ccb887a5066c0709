# Completion of plcalc's verbs and options for bash.
# shellcheck shell=bash

_plcalc() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} verb=${COMP_WORDS[1]}
    local choose='--layer --feature --where --part --columns --crs --axes --ground-factor --arcs --join --inner --name-layer --name-column --angles --any-scale --json --help'
    local cut='--parallel --perpendicular --side --side-near --facing --along --side-from --within --vertex --vertex-near --vertex-from'
    cut+=' --bearing --along-segment --place --through --alternative --pieces'
    cut+=' --area --product --share --width --areas --area-from --share-from --parts --opposite --decimals --tolerance'
    local words=''
    COMPREPLY=()

    if [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W 'divide measure stakeout --help --version' -- "$word")
        return
    fi
    case $before in
        --paper)
            mapfile -t COMPREPLY < <(compgen -W 'A4 A3' -- "$word")
            return
            ;;
        --axes)
            mapfile -t COMPREPLY < <(compgen -W 'en ne' -- "$word")
            return
            ;;
        --side)
            mapfile -t COMPREPLY < <(compgen -W 'longest shortest' -- "$word")
            return
            ;;
        --angles)
            mapfile -t COMPREPLY < <(compgen -W 'gon deg dms quadrant' -- "$word")
            return
            ;;
        --inner)
            mapfile -t COMPREPLY < <(compgen -W 'hole overlap' -- "$word")
            return
            ;;
        --pieces)
            mapfile -t COMPREPLY < <(compgen -W 'two any' -- "$word")
            return
            ;;
        --layer | --feature | --where | --part | --columns | --crs | --ground-factor | --arcs | --jobs | --join | \
            --name-layer | --format | --shared-within | \
            --side-from | --vertex-from | --area-from | --share-from | --side-near | --facing | --within | --vertex | --vertex-near | --bearing | --along-segment | --place | \
            --through | --alternative | --area | \
            --product | --share | --width | --parts | --decimals | --tolerance | --area-decimals | --title | --name-column | --station | --orientation | --point | --base)
            return
            ;;
    esac
    case $verb in
        divide) words="$choose $cut --output --format --plan --paper --area-decimals --title \
            --title-block --report --points --overwrite --jobs --neighbours --shared-within" ;;
        measure) words="$choose --csv" ;;
        stakeout) words="$choose $cut --station --orientation --control --point --points-from --base --points --overwrite --csv" ;;
        *) return ;;
    esac
    if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
    else
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
}

complete -o filenames -F _plcalc plcalc
