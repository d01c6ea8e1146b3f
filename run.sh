#!/usr/bin/env bash
# Starts Kestrel with the example list; installs and builds what is missing first. Options go to Kestrel
# (./run.sh --help). Without a display it plays the example scenario and writes pictures of it.
set -euo pipefail
cd "$(dirname "$0")"

scripts/setup.sh run
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=time_macros
fi
mkdir -p build
log=build/run.log
build() {
    { [ -f build/release/CMakeCache.txt ] || cmake --preset release -DPTV_BUILD_BENCHMARKS=OFF; } \
        && cmake --build --preset release --target kestrel
}
if ! build >"$log" 2>&1; then
    tail -n 40 "$log"
    echo "run: the build failed, see $log" >&2
    exit 1
fi

kestrel=build/release/bin/kestrel
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    case " $* " in
    *" --list"* | *" --help"*) exec "$kestrel" "$@" ;;
    esac
    # The user's own list, which begins as a copy of the example.
    list=${XDG_DATA_HOME:-$HOME/.local/share}/Kestrel/processors.kvtl
    if [ ! -e "$list" ]; then
        mkdir -p "$(dirname "$list")"
        cp examples/studio.kvtl "$list"
    fi
    exec "$kestrel" --list "$list" "$@"
fi

shots=$PWD/shots
echo "No display: playing examples/day.json without one, about 20 seconds. The pictures go to $shots"
mkdir -p "$shots"
rm -f "$shots"/[0-9][0-9]-*.png
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp examples/studio.kvtl "$work/list.kvtl"
export QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=$work
"$kestrel" --list "$work/list.kvtl" --scenario examples/day.json --shots "$shots" "$@" \
    2> >(grep -v 'does not support propagateSizeHints' >&2)
