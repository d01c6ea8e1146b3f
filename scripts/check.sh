#!/usr/bin/env bash
# All checkers, each finding an error: clang-format over all sources, clang-tidy and clazy over src/ and
# host/. "check.sh --all" checks again what was found clean before; without it a file whose
# preprocessed text, checker and options are unchanged is passed over (build/check-cache).
# Needs a built dev preset, for the compile commands and moc's files.
set -uo pipefail
cd "$(dirname "$0")/.."

build_dir=build/dev
cache_dir=build/check-cache
jobs=${CHECK_JOBS:-$(nproc)}
[ "${1:-}" != --all ] || rm -rf "$cache_dir"
mkdir -p "$cache_dir"

# Level 0 to 2 without:
#   qproperty-type-mismatch, function-args-by-value, function-args-by-ref: by the contract with the host, signatures take
#     ids, texts and records by value
#   qt6-*: the panel is for Qt 5.15
#   rule-of-three, rule-of-two-soft: records declare what they hide (see SNode)
#   copyable-polymorphic: node records are values with one virtual operation, on purpose
#   non-pod-global-static: the store and the control objects are globals of the process by the contract with the host
#   ctor-missing-parent-argument: the contract with the host fixes the constructors of the items and of the worker
#   old-style-connect does not occur and stays on
clazy_checks=level0,level1,level2,detaching-member
clazy_checks+=,no-function-args-by-value,no-function-args-by-ref,no-rule-of-three,no-rule-of-two-soft
clazy_checks+=,no-copyable-polymorphic,no-non-pod-global-static,no-ctor-missing-parent-argument

check_format() {
    # By the tree, not by git: a source archive is checked, too.
    find . -mindepth 1 \( -name '.*' -o -name build -o -name shots \) -prune -o -name '*.h' -print -o -name '*.cpp' -print \
        | xargs -P "$jobs" -n 20 clang-format-19 --dry-run --Werror
}

checked_sources() {
    python3 - "$build_dir/compile_commands.json" <<'PY'
import json, os, sys
root = os.getcwd()
files = {os.path.normpath(os.path.join(entry["directory"], entry["file"])) for entry in json.load(open(sys.argv[1]))}
print("\n".join(sorted(f for f in files if f.startswith((root + "/src/", root + "/host/")))))
PY
}

# The key of one check of one file: all that goes into it. Empty when the file does not preprocess.
cache_key() {
    python3 - "$build_dir/compile_commands.json" "$1" "$2" <<'PY'
import hashlib, json, os, shlex, subprocess, sys
commands, checker, source = sys.argv[1:]
entry = next(e for e in json.load(open(commands)) if os.path.normpath(os.path.join(e["directory"], e["file"])) == source)
words = [w for w in shlex.split(entry["command"]) if w != "ccache"]
del words[words.index("-o"):words.index("-o") + 2]
words[words.index("-c")] = "-E"
words = [w for w in words if w not in ("-MD", "-Werror")]
for option in ("-MT", "-MF"):
    if option in words:
        del words[words.index(option):words.index(option) + 2]
text = subprocess.run(words + ["-P"], cwd=entry["directory"], capture_output=True)
if text.returncode == 0:
    rules = open(".clang-tidy", "rb").read() + open("scripts/check.sh", "rb").read()
    print(hashlib.sha256(checker.encode() + rules + open(source, "rb").read() + text.stdout).hexdigest())
PY
}

# Runs a checker over one file unless it was found clean before; its findings go to stdout.
check_file() {
    local checker=$1 source=$2 key output
    key=$(cache_key "$checker" "$source")
    if [ -n "$key" ] && [ -e "$cache_dir/$key" ]; then
        return 0
    fi
    if [ "$checker" = tidy ]; then
        output=$(clang-tidy -p "$build_dir" --quiet "$source" 2>&1)
    else
        output=$(CLANGXX=clang++ clazy-standalone -p "$build_dir" --checks="$clazy_checks" \
            --header-filter='/(src|host)/[^.]*\.h' --ignore-dirs='/usr/|_autogen/' "$source" 2>&1)
    fi
    if [ $? -eq 0 ] && ! grep -qE '(warning|error):' <<<"$output"; then
        [ -z "$key" ] || touch "$cache_dir/$key"
        return 0
    fi
    grep -vE '^[0-9]+ warnings? (generated|treated)|^Suppressed|^Use -header-filter' <<<"$output"
    return 1
}

run() {
    local start=$SECONDS name=$1
    shift
    if "$@"; then
        printf '%-14s ok      %3d s\n' "$name" $((SECONDS - start))
    else
        printf '%-14s FAILED  %3d s\n' "$name" $((SECONDS - start))
        result=1
    fi
}

over_sources() {
    checked_sources | xargs -P "$jobs" -I{} bash -c 'check_file "$0" "$1"' "$1" {}
}

export -f check_file cache_key
export build_dir cache_dir clazy_checks
result=0
[ -f "$build_dir/compile_commands.json" ] || { echo "check: build the dev preset first"; exit 1; }
run clang-format check_format
run clang-tidy over_sources tidy
run clazy over_sources clazy
exit "$result"
