#!/usr/bin/env bash
# ./run.sh [options]
#
# Installs and builds what is missing, then starts Kestrel with your own list, which begins as a copy of
# examples/studio.kvtl; a control library given by --control brings its own. Without a display it plays
# examples/day.json and two scenarios in which something goes wrong, and writes pictures of them to shots/, or the one
# that --shot asks for. Options go to Kestrel; relative paths in them are those of the folder that you are in.
set -euo pipefail

root=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
kestrel=$root/build/release/bin/kestrel
log=$root/build/run.log
stage=0
faults=(row-flickers two-rows-in-one) # of examples/, played after the day

usage() {
    sed -n '2,/^set /{/^set /d;s/^# \{0,1\}//p}' "$root/run.sh"
    sed '1,/^$/d' "$root/host/Kestrel/help.txt"
}

section() {
    stage=$((stage + 1))
    echo "run: $stage of 4, $1" >&2
}

# Whether an option is among the words, in one of the forms that Kestrel reads.
given() {
    local option=$1 word
    shift
    for word in "$@"; do
        case $word in
        "-$option" | "--$option" | "-$option="* | "--$option="*) return 0 ;;
        esac
    done
    return 1
}

# Runs a command in the root; its output goes to the log and is shown when it fails.
step() {
    if ! (cd "$root" && "$@") 2>&1 | show_progress "$log" 10 >&2; then
        tail -n 40 "$log" >&2
        echo "run: the build failed; mend what the lines above name and try again, all of them are in $log" >&2
        exit 1
    fi
}

build() {
    if command -v ccache >/dev/null; then
        export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=time_macros
    fi
    mkdir -p "$root/build"
    : >"$log"
    section "configure"
    [ -f "$root/build/release/build.ninja" ] || step cmake --preset release -DPTV_BUILD_BENCHMARKS=OFF
    section "build"
    step cmake --build --preset release --target kestrel
}

# The user's own list, which begins as a copy of the example.
start_on_display() {
    local list=${XDG_DATA_HOME:-$HOME/.local/share}/Kestrel/processors.kvtl
    if given list "$@" || given control "$@"; then
        exec "$kestrel" "$@"
    fi
    if [ ! -e "$list" ]; then
        mkdir -p "$(dirname "$list")"
        cp "$root/examples/studio.kvtl" "$list"
    fi
    exec "$kestrel" --list "$list" "$@"
}

play() {
    QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=$work XDG_CONFIG_HOME=$work "$kestrel" "$@" \
        2> >(grep -v 'does not support propagateSizeHints' >&2)
}

# Each with a list and a folder of its own.
play_faults() {
    local name
    for name in "${faults[@]}"; do
        mkdir -p "$1/$name"
        rm -f "$1/$name"/[0-9][0-9]-*.png
        cp "$root/examples/studio.kvtl" "$work/$name.kvtl"
        play --list "$work/$name.kvtl" --scenario "$root/examples/$name.json" --shots "$1/$name"
    done
}

start_without_display() {
    local shots=$root/shots defaults=()
    work=$(mktemp -d)
    trap 'rm -rf "$work"' EXIT
    if given control "$@"; then
        mkdir -p "$shots"
        given shot "$@" || given shots "$@" || set -- --shot "$shots/kestrel.png" "$@"
    elif ! given list "$@"; then
        cp "$root/examples/studio.kvtl" "$work/list.kvtl"
        defaults+=(--list "$work/list.kvtl")
    fi
    if ! given shot "$@" && ! given shots "$@"; then
        mkdir -p "$shots"
        rm -f "$shots"/[0-9][0-9]-*.png
        echo "run: no display, so a scenario is played without one, about half a minute; its pictures go to $shots" >&2
        given scenario "$@" || defaults+=(--scenario "$root/examples/day.json")
        defaults+=(--shots "$shots")
    fi
    play "${defaults[@]}" "$@"
    [ $# -gt 0 ] || play_faults "$shots"
}

# Read whole before it runs, so that an edit meanwhile does no harm.
main() {
    if given help "$@" || given h "$@"; then
        usage
        exit 0
    fi
    . "$root/scripts/progress.sh"
    section "packages"
    "$root/scripts/setup.sh" run >&2
    build
    section "start"
    if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
        start_on_display "$@"
    else
        start_without_display "$@"
    fi
}

main "$@"; exit
