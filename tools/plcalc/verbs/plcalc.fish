# Completion of plcalc's verbs and options for fish.

# Offers options after a verb: those that stand alone, those that take a value, and those that take a file.
function __plcalc_offer --argument-names verbs kind
    for option in $argv[3..]
        switch $kind
            case flags
                complete -c plcalc -n "__fish_seen_subcommand_from $verbs" -l $option
            case values
                complete -c plcalc -n "__fish_seen_subcommand_from $verbs" -l $option -x
            case files
                complete -c plcalc -n "__fish_seen_subcommand_from $verbs" -l $option -r -F
        end
    end
end

# Offers an option that takes one of a few words.
function __plcalc_offer_words --argument-names verbs option words
    complete -c plcalc -n "__fish_seen_subcommand_from $verbs" -l $option -x -a $words
end

complete -c plcalc -n __fish_use_subcommand -f -a 'divide measure stakeout'
complete -c plcalc -n __fish_use_subcommand -l version
complete -c plcalc -l help

__plcalc_offer 'divide measure stakeout' flags any-scale json
__plcalc_offer 'divide measure stakeout' values layer feature where part columns crs ground-factor arcs join name-layer \
    name-column
__plcalc_offer_words 'divide measure stakeout' axes 'en ne'
__plcalc_offer_words 'divide measure stakeout' inner 'hole overlap'
__plcalc_offer_words 'divide measure stakeout' angles 'gon deg dms quadrant'

__plcalc_offer 'divide stakeout' flags parallel perpendicular opposite
__plcalc_offer 'divide stakeout' values side-near facing side-from within vertex vertex-near vertex-from bearing \
    along-segment place through alternative area product share width area-from share-from parts decimals tolerance
__plcalc_offer 'divide stakeout' files along areas
__plcalc_offer_words 'divide stakeout' side 'longest shortest'
__plcalc_offer_words 'divide stakeout' pieces 'two any'

__plcalc_offer divide flags overwrite neighbours
__plcalc_offer divide values format area-decimals title jobs shared-within
__plcalc_offer divide files output plan title-block report points
__plcalc_offer_words divide paper 'A4 A3'

__plcalc_offer 'measure stakeout' flags csv
__plcalc_offer stakeout values station orientation point base
__plcalc_offer stakeout files control points-from points
__plcalc_offer stakeout flags overwrite
