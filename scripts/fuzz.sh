#!/usr/bin/env bash
# Fuzzes the reader of list files with libFuzzer under the address and undefined behaviour sanitizers:
#   scripts/fuzz.sh [SECONDS]     the corpus, then new inputs for that long (default 20)
# New inputs are kept in build/fuzz/corpus and serve the next run; one that breaks a promise is left in
# build/fuzz and fails the run.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-20}
out=build/fuzz
mkdir -p "$out/corpus"

read -ra qt_flags <<<"$(pkg-config --cflags --libs Qt5Core Qt5Network)"
clang++ -std=c++17 -O1 -g -fPIC -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=undefined -Isrc -Isrc/data -Ihost \
    tests/fuzz/ListFormatFuzz.cpp \
    host/CorvidControl/file/{ListFormat,CListReader,CListWriter}.cpp host/CorvidControl/list/{NameRules,FaultText}.cpp \
    src/data/nodes/{SNode,SProcessorNode,SProcessorGroupNode,SProcessorAllNode}.cpp \
    "${qt_flags[@]}" -o "$out/ListFormatFuzz"

# A few inputs of the length that matters for time and memory, which mutation alone reaches in hours.
mkdir -p "$out/large"
head -c 1048576 /dev/zero | tr '\0' '[' >"$out/large/deep"
head -c 1048576 /dev/zero | tr '\0' '"' >"$out/large/quotes"
printf '{"groups":[{"aux":[%s]}]}' "$(seq -s, 150000)" >"$out/large/numbers"
printf '{%s}' "$(seq -f '"%.0f":0' -s, 100000)" >"$out/large/keys"
printf '{"processors":[%s]}' "$(seq -f '{"id":"%.0f"}' -s, 60000)" >"$out/large/processors"

# No leak check, neither between the inputs nor at the end: Qt 5.15's JSON parser leaks a few hundred bytes on
# some malformed texts. The tests of the format run under the leak sanitizer.
export ASAN_OPTIONS=detect_leaks=0
limits=(-artifact_prefix="$out/" -max_len=1048576 -timeout=5 -rss_limit_mb=1024 -malloc_limit_mb=64 -detect_leaks=0 -verbosity=0)
"$out/ListFormatFuzz" "${limits[@]}" "$out"/large/*
"$out/ListFormatFuzz" "${limits[@]}" -max_total_time="$seconds" -print_final_stats=1 "$out/corpus" tests/fuzz/corpus examples
