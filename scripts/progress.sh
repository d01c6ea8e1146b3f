# How far a build is. Sourced by run.sh and test.sh.

# show_progress LOG SECONDS: copies Ninja's output from its input to a log and says how far it is: every so many
# seconds, or on a terminal always in the same line, which is empty in the end.
show_progress() {
    local log=$1 pause=$2 line shown=$SECONDS
    while IFS= read -r line; do
        printf '%s\n' "$line" >>"$log"
        [[ $line =~ ^\[([0-9]+)/([0-9]+)\] ]] || continue
        if [ -t 1 ]; then
            printf '\r  %s of %s' "${BASH_REMATCH[1]}" "${BASH_REMATCH[2]}"
        elif ((SECONDS - shown >= pause)); then
            shown=$SECONDS
            printf '  %s of %s\n' "${BASH_REMATCH[1]}" "${BASH_REMATCH[2]}"
        fi
    done
    [ ! -t 1 ] || printf '\r\033[K'
}
