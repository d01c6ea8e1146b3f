#!/usr/bin/env bash
# Everything that must hold: builds, quick tests, sanitizers, checkers, end to end. Installs what is
# missing first. The last line but the exit code: "N passed, N failed", summed over all CTest runs; a
# build or checker that fails counts as one failed.
set -uo pipefail
cd "$(dirname "$0")"

passed=0
failed=0
jobs=$(nproc)
log_dir=build/test-logs
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

section() {
    printf '\n=== %s   (%d:%02d)\n' "$1" $((SECONDS / 60)) $((SECONDS % 60))
}

# A step that is no CTest run; its output is shown only when it fails.
step() {
    local name=$1
    shift
    if "$@" >"$log_dir/step.log" 2>&1; then
        echo "$name: ok"
        return 0
    fi
    tail -n 60 "$log_dir/step.log"
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
    local log=$log_dir/ctest-$preset.log
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

# Read whole before it runs, so that an edit meanwhile does no harm.
main() {
    section "Setup"
    step "packages" scripts/setup.sh test

    section "Build"
    build dev

    section "Quick tests"
    run_tests dev -j "$jobs" -L '^quick$'

    section "Address, undefined behaviour, leaks"
    build asan --target ptv_tests && run_tests asan -j "$jobs" -L '^(quick|stress)$'

    section "Threads"
    build tsan --target ptv_tests_thread && run_tests tsan -j "$jobs" -L '^thread$'

    section "Memory that Qt's own code touches"
    run_tests dev -j "$jobs" -L '^memcheck$'

    section "Fuzzing the reader of list files"
    step "fuzzing, 20 s" scripts/fuzz.sh 20

    section "Checkers"
    step "checkers" scripts/check.sh

    section "Stress and end to end"
    run_tests dev -L '^(e2e|stress)$'

    section "Done"
    echo "$passed passed, $failed failed"
    [ "$failed" = 0 ]
}

main; exit
