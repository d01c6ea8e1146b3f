#!/usr/bin/env bash
# ./test.sh [quick|long|--help]
#
#   (nothing)  everything that must hold: builds, quick tests, sanitizers, checkers, end to end; about an hour on two
#              cores
#   quick      the daily round: a build, the quick tests, the layout of the sources
#   long       everything, then for hours: stress, end to end and quick tests over and over on an overloaded machine,
#              the rounds of years, fuzzing for an hour, random stories with the panel for two
#
# Installs what is missing first (scripts/setup.sh). Each stage has its number and the time at which it began, each
# build says how far it is; logs are kept in build/test-logs. The last line: "N passed, N failed", summed over all
# CTest runs; a build or checker that fails counts as one failed. The exit code is 0 when none failed, 2 for an
# argument that does not exist.
set -uo pipefail
cd "$(dirname "$0")"

passed=0
failed=0
stage=0
jobs=$(nproc)
log_dir=build/test-logs

usage() {
    sed -n '2,/^set /{/^set /d;s/^# \{0,1\}//p}' test.sh
}

case "${1:-all}${2:+ }${2:-}" in
all | quick | long) round=${1:-all} ;;
--help | -h)
    usage
    exit 0
    ;;
*)
    usage >&2
    exit 2
    ;;
esac
case $round in
quick) stages=4 ;;
all) stages=12 ;;
long) stages=17 ;;
esac
mkdir -p "$log_dir"

if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=pch_defines,time_macros
fi
export CLICOLOR_FORCE=0

# The thread sanitizer of older compilers cannot bear all of a newer kernel's random addresses.
fixed_addresses=()
if setarch "$(uname -m)" -R true 2>/dev/null; then
    fixed_addresses=(setarch "$(uname -m)" -R)
fi

. scripts/progress.sh

section() {
    stage=$((stage + 1))
    printf '\n=== %d of %d: %s   (%d:%02d)\n' "$stage" "$stages" "$1" $((SECONDS / 60)) $((SECONDS % 60))
}

# A step that is no CTest run; of its output only its progress is shown, unless it fails.
step() {
    local name=$1 log=$log_dir/${1// /-}.log
    shift
    : >"$log"
    if "$@" 2>&1 | show_progress "$log" 30; then
        echo "$name: ok"
        return 0
    fi
    tail -n 60 "$log"
    echo "$name: FAILED"
    failed=$((failed + 1))
    return 1
}

build() {
    local preset=$1
    shift
    step "configure $preset" cmake --preset "$preset" && step "build $preset" cmake --build --preset "$preset" "$@"
}

# A CTest run of a preset; adds up what ran and what failed, without the skipped.
run_tests() {
    local preset=$1
    shift
    local log=$log_dir/ctest-$preset-$stage.log
    "${fixed_addresses[@]}" ctest --preset "$preset" --no-tests=error "$@" 2>&1 | tee "$log" | grep -vE '^ *Start +[0-9]+:|^$|sec\*proc|^Label Time'
    local summary total bad skipped
    summary=$(grep -E 'tests passed, [0-9]+ tests failed out of [0-9]+' "$log" | tail -n 1)
    if [ -z "$summary" ]; then
        echo "no test ran"
        failed=$((failed + 1))
        return
    fi
    total=$(sed -E 's/.* out of ([0-9]+).*/\1/' <<<"$summary")
    bad=$(sed -E 's/.*, ([0-9]+) tests failed.*/\1/' <<<"$summary")
    skipped=$(grep -cE '^[[:space:]]*[0-9]+ - .* \((Skipped|Disabled)\)$' "$log" || true)
    passed=$((passed + total - bad - skipped))
    failed=$((failed + bad))
}

# Six loops that want all of the machine for as long as this shell lives or release_machine is not called.
load_machine() {
    local i
    busy=()
    for i in 1 2 3 4 5 6; do
        (while kill -0 $$ 2>/dev/null; do for ((n = 0; n < 100000; ++n)); do :; done; done) &
        busy+=($!)
    done
}

release_machine() {
    kill "${busy[@]}"
    wait "${busy[@]}" 2>/dev/null
}

run_quick() {
    section "Setup"
    step "packages" scripts/setup.sh test

    section "Build"
    build dev

    section "Quick tests"
    run_tests dev -j "$jobs" -L '^quick$'
}

run_rest() {
    section "Address, undefined behaviour, leaks"
    build asan --target ptv_tests && run_tests asan -j "$jobs" -L '^(quick|stress)$'

    section "Threads"
    build tsan --target ptv_tests_thread && run_tests tsan -j "$jobs" -L '^thread$'

    section "Memory that Qt's own code touches"
    run_tests dev -j "$jobs" -L '^memcheck$'

    section "Fuzzing the reader of list files"
    step "fuzzing, 20 s" scripts/fuzz.sh 20

    section "Coverage of the panel"
    step "coverage" scripts/coverage.sh

    section "Checkers"
    step "checkers" scripts/check.sh

    section "Debian packages"
    build package && step "Debian packages" scripts/package.sh

    section "Stress"
    run_tests dev -j "$jobs" -L '^stress$'

    section "End to end"
    run_tests dev -L '^e2e$'
}

run_long() {
    section "Stress and end to end, twenty times"
    run_tests dev -L '^(e2e|stress)$' --repeat until-fail:20

    section "Quick tests on an overloaded machine, ten times"
    load_machine
    run_tests dev -j 12 -L '^quick$' --repeat until-fail:10
    release_machine

    section "What the panel holds after years"
    PTV_FLAT_YEARS=1 QTEST_FUNCTION_TIMEOUT=14400000 run_tests dev -R '^tst_flat_(panel|drags)$'

    section "Fuzzing for an hour"
    step "fuzzing, 3600 s" scripts/fuzz.sh 3600

    section "Random stories with the panel, for two hours"
    step "stories" env QT_QPA_PLATFORM=offscreen build/dev/bin/ptv_soak --minutes 120
}

# Read whole before it runs, so that an edit meanwhile does no harm.
main() {
    run_quick
    case $round in
    quick)
        section "Layout of the sources"
        step "clang-format" scripts/check.sh --format
        ;;
    long)
        run_rest
        run_long
        ;;
    *) run_rest ;;
    esac
    printf '\nDone after %d:%02d\n' $((SECONDS / 60)) $((SECONDS % 60))
    echo "$passed passed, $failed failed"
    [ "$failed" = 0 ]
}

main; exit
