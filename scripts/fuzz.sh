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
clang++ -std=c++17 -O1 -g -fPIC -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=undefined -Isrc -Ihost \
    tests/fuzz/ListFormatFuzz.cpp \
    host/CorvidControl/{CListFormat,CListReader,CListWriter,CNameRules}.cpp \
    src/data/{SNode,SProcessorNode,SProcessorGroupNode,SProcessorAllNode}.cpp \
    "${qt_flags[@]}" -o "$out/ListFormatFuzz"

# No leak check: Qt 5.15's JSON parser leaks a few hundred bytes on some malformed texts. The tests of the
# format run under the leak sanitizer.
"$out/ListFormatFuzz" -artifact_prefix="$out/" -max_len=65536 -timeout=5 -rss_limit_mb=1024 -malloc_limit_mb=64 \
    -detect_leaks=0 -verbosity=0 \
    -max_total_time="$seconds" -print_final_stats=1 "$out/corpus" tests/fuzz/corpus examples
