#!/usr/bin/env bash
# scripts/reference.sh
#
# Makes the reference of the contract, in HTML, from the comments of its headers: build/reference/html/index.html.
# A warning fails it: what is declared there for others has a comment, and each comment fits its declaration. Needs
# doxygen (scripts/setup.sh test).
set -euo pipefail
cd "$(dirname "$0")/.."

# An override, a default or a constructor without a comment of its own promises what its base or its class does.
without_the_obvious() {
    awk '{
        obvious = / (override|= default);$/ || /^ *(explicit )?[CS][A-Za-z]+\([^()]*\)( : .*)?(;| \{ \})$/
        print obvious && before !~ /\/\/\// ? "" : $0
        before = $0
    }' "$1"
}

case "${1:-}" in
"") ;;
--filter)
    without_the_obvious "$2"
    exit
    ;;
*)
    sed -n '2,/^set /{/^set /d;s/^# \{0,1\}//p}' "$0"
    [ "$1" = --help ] && exit
    exit 2
    ;;
esac

mkdir -p build/reference
doxygen - <<CONFIGURATION
PROJECT_NAME         = ProcessorTreeView
INPUT                = src/interfaces src/data/nodes host/controlhost
FILE_PATTERNS        = *.h
RECURSIVE            = YES
INPUT_FILTER         = "scripts/reference.sh --filter"
STRIP_FROM_PATH      = src src/data host
MACRO_EXPANSION      = YES
EXPAND_ONLY_PREDEF   = YES
PREDEFINED           = CORVIDCONTROL_EXPORT= COMMONCOMPONENT_EXPORT= CONTROLHOST_EXPORT= Q_DECL_EXPORT= Q_OBJECT=
JAVADOC_AUTOBRIEF    = YES
OUTPUT_DIRECTORY     = build/reference
GENERATE_LATEX       = NO
HAVE_DOT             = NO
QUIET                = YES
WARN_IF_UNDOCUMENTED = YES
WARN_AS_ERROR        = FAIL_ON_WARNINGS
CONFIGURATION
