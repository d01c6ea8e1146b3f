#!/usr/bin/env bash
# Line and branch coverage of src/ by the quick tests of its folders, with clang: builds the coverage preset, runs the
# tests, and checks the limits and that each line and branch left out has its reason in tests/coverage/reasons.txt.
#   scripts/coverage.sh
# build/coverage/report/uncovered.txt has what is left out, build/coverage/report/html the sources with their counts.
set -euo pipefail
cd "$(dirname "$0")/.."

tests='^tst_(data|model|tree|delegate|toolbar|dialogs|shell)_'
report=build/coverage/report
jobs=$(nproc)
# Loads the built library, which would need all of the stand-in control library and covers nothing more.
left_out='^tst_shell_pluginfile$'

cmake --preset coverage >/dev/null
listing=$(ctest --test-dir build/coverage -N -L '^quick$' -R "$tests" -E "$left_out" 2>/dev/null)
mapfile -t names < <(sed -n 's/^ *Test *#[0-9]*: //p' <<<"$listing")
cmake --build --preset coverage -j "$jobs" --target "${names[@]}"

rm -rf "$report"
mkdir -p "$report/profiles"
export LLVM_PROFILE_FILE=$PWD/$report/profiles/%p.profraw
ctest --preset coverage -j "$jobs" -L '^quick$' -R "$tests" -E "$left_out" --no-tests=error
llvm-profdata merge --sparse --output "$report/all.profdata" "$report"/profiles/*.profraw
rm -r "$report/profiles"

# Each program holds all of src/.
coverage=(-instr-profile "$report/all.profdata" "build/coverage/bin/${names[0]}")
llvm-cov export --format=lcov "${coverage[@]}" >"$report/lcov.info"
llvm-cov show --format=html --show-branches=count --output-dir "$report/html" "${coverage[@]}" "$PWD/src"
tests/coverage/judge.py "$report/lcov.info" tests/coverage/reasons.txt "$report/uncovered.txt"
