#compdef plcalc
# Completion of plcalc's verbs and options for zsh.

_plcalc() {
    local -a choose cut offered
    choose=(--layer --feature --where --part --columns --crs --axes --ground-factor --arcs --join --inner --name-layer
        --name-column --angles --any-scale --json --help)
    cut=(--parallel --perpendicular --side --side-near --facing --along --side-from --within --vertex --vertex-near
        --vertex-from --bearing --along-segment --place --through --alternative --pieces --area --product --share
        --width --areas --area-from --share-from --parts --opposite --decimals --tolerance)

    if ((CURRENT == 2)); then
        compadd -- divide measure stakeout --help --version
        return
    fi
    case ${words[CURRENT - 1]} in
        --paper) compadd -- A4 A3; return ;;
        --axes) compadd -- en ne; return ;;
        --side) compadd -- longest shortest; return ;;
        --angles) compadd -- gon deg dms quadrant; return ;;
        --inner) compadd -- hole overlap; return ;;
        --pieces) compadd -- two any; return ;;
        --along | --areas | --output | -o | --plan | --title-block | --report | --points | --points-from | --control) _files; return ;;
    esac
    case ${words[2]} in
        divide) offered=($choose $cut --output --format --plan --paper --area-decimals --title --title-block
            --report --points --overwrite --jobs --neighbours --shared-within) ;;
        measure) offered=($choose --csv) ;;
        stakeout) offered=($choose $cut --station --orientation --control --point --points-from --base --points --overwrite --csv) ;;
    esac
    if [[ ${words[CURRENT]} == -* ]]; then
        compadd -- $offered
    else
        _files
    fi
}

if [[ $funcstack[1] == _plcalc ]]; then
    _plcalc "$@"
else
    compdef _plcalc plcalc
fi
