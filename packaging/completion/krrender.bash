# Completion of krrender for bash.

_krrender()
{
    local current=$2 previous=$3 words=
    COMPREPLY=()
    # "--option=value" comes in three words.
    [[ $previous == = ]] && previous=${COMP_WORDS[COMP_CWORD - 2]}
    case $previous in
        --format) words='png jpeg webp svg pdf gpx kml kmz' ;;
        --marker) words='disk circle x block rhombus star6 star9 star12 arrow' ;;
        --shape) words='auto point linestring polygon hop' ;;
        --display) words='stroke fill stroke,fill' ;;
        --pen-style) words='solid dash dot dashdot dashdotdot' ;;
        --render) words='styled opaque halo' ;;
        -o | --output | --save | --map | --tiles)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -f -- "$current")
            return
            ;;
        --size | --scale | --area | --beeline | --line-color | --line-width | --fill-color | --halo | --smoothing | \
            --crop | --tiles-credit)
            return
            ;;
    esac
    if [[ -z $words && $current == -* ]]; then
        words='-o --output --format --save --size --scale --area --beeline --plain --split-segments --strict
            --patient --line-color --line-width --fill-color --palette --halo --marker --shape --display --pen-style --smoothing
            --render --crop --map --tiles --tiles-credit --no-map --legend --labels --no-scale-bar --no-attribution
            --list --json --places --quiet --verbose -h --help -v --version'
    fi
    if [[ -n $words ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
        return
    fi
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -d -- "$current")
    local name
    while IFS= read -r name; do
        case ${name,,} in
            *.gpx | *.kml | *.kmz | *.krroute) COMPREPLY+=("$name") ;;
        esac
    done < <(compgen -f -- "$current")
}

complete -F _krrender krrender
