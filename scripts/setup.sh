#!/usr/bin/env bash
# Installs what is missing: "setup.sh run" for building and running, "setup.sh test" for the tests and
# checkers too. Debian 12, as root or with sudo; done in an instant when nothing is missing. On another
# system it installs nothing and says in one line what is missing.
set -euo pipefail

run_packages=(
    g++ cmake ninja-build ccache
    qtbase5-dev libqt5svg5-dev qttools5-dev qttools5-dev-tools
    libarchive-dev              # reports of Kestrel
    librapidcheck-dev           # the sequences of the contract kit
    fonts-inter fonts-wqy-microhei
    qttranslations5-l10n        # the texts of Qt's own dialogs
    qtwayland5                  # the window on a desktop with Wayland alone
)
test_packages=(
    qtbase5-private-dev         # events of queued calls, for the thread sanitizer
    xvfb openbox xdotool xclip x11-utils # the application on a real X server, by mouse and keyboard
    at-spi2-core python3-pyatspi dbus # what a screen reader hears of the application
    weston                      # the application on Wayland, in a window of that X server
    gdb                         # debugging, as CONTRIBUTING.md does it
    valgrind                    # what Qt's own code, which is not instrumented, does to memory; instructions of benchmarks
    binutils python3 pkg-config # the exported symbols, the include rules, the flags of the fuzzer
    python3-pil                 # pixels of the screen
    git debootstrap             # the README's commands on a bare system
    clang clang-tidy clazy
    llvm                        # the counts of the coverage
    clang-format-19             # the release's own cannot insert braces
    lld                         # links the test programs in a quarter of the time
    libclang-rt-14-dev          # its sanitizers and fuzzer, which clang only recommends
    doxygen                     # the reference of the contract
    libbenchmark-dev
    lintian devscripts desktop-file-utils # the packages, by scripts/package.sh
    dpkg-dev file               # what they are made with
    abigail-tools               # the binary surface, by scripts/surface.py
    groff-base                  # the form of the manual page
)

# What stands for the packages where there is no dpkg.
run_commands=(g++ cmake ninja lrelease)
test_commands=(Xvfb openbox weston xdotool xclip xwininfo gdb valgrind nm python3 doxygen clang-format-19 clang-tidy clazy-standalone llvm-cov)
run_modules=(Qt5Core Qt5Widgets Qt5Svg Qt5Network Qt5Concurrent)

die() {
    echo "setup: $*" >&2
    exit 1
}

is_debian_12() {
    [ -r /etc/os-release ] && command -v dpkg-query apt-get >/dev/null \
        && (. /etc/os-release && [ "${ID:-}" = debian ] && [ "${VERSION_ID:-}" = 12 ])
}

missing_packages() {
    local installed
    installed=$(dpkg-query -W -f '${Package} ${Status}\n' "$@" 2>/dev/null | awk '/ installed$/ { print $1 }' || true)
    comm -23 <(printf "%s\n" "$@" | sort -u) <(sort -u <<<"$installed")
}

missing_by_hand() {
    local name
    for name in "${commands[@]}"; do
        command -v "$name" >/dev/null || echo "$name"
    done
    for name in "${run_modules[@]}"; do
        pkg-config --atleast-version=5.15 "$name" 2>/dev/null || echo "$name>=5.15"
    done
    pkg-config --exists libarchive 2>/dev/null || echo libarchive
}

as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    else
        sudo --preserve-env=DEBIAN_FRONTEND "$@"
    fi
}

# An update that fails does no harm where the packages are known and at hand.
install_missing() {
    export DEBIAN_FRONTEND=noninteractive
    local options=(-qq -o Acquire::Retries=3 -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0)
    as_root apt-get "${options[@]}" update || true
    as_root apt-get "${options[@]}" install -y --no-install-recommends "${missing[@]}"
}

explain_failure() {
    if grep -qE 'Could not (resolve|connect)|Failed to fetch|Cannot initiate the connection|Unable to connect' "$log"; then
        die "no mirror of Debian answers; connect to the network or mend apt's sources, then try again (all that apt-get said is in $log)"
    fi
    die "apt-get could not install the packages; mend what it names in $log, then try again"
}

case "${1:-}" in
run) packages=("${run_packages[@]}") commands=("${run_commands[@]}") ;;
test) packages=("${run_packages[@]}" "${test_packages[@]}") commands=("${run_commands[@]}" "${test_commands[@]}") ;;
*) die "usage: setup.sh run|test" ;;
esac

if ! is_debian_12; then
    missing=$(missing_by_hand | tr '\n' ' ')
    [ -z "$missing" ] || die "this is no Debian 12; please install: $missing"
    exit 0
fi

mapfile -t missing < <(missing_packages "${packages[@]}")
[ "${#missing[@]}" -gt 0 ] || exit 0
by_hand="apt-get install --no-install-recommends ${missing[*]}"
if [ "$(id -u)" != 0 ]; then
    command -v sudo >/dev/null || die "packages are missing and there is neither root nor sudo; as root run: $by_hand"
    sudo true || die "packages are missing and sudo refuses; as root run: $by_hand"
fi

echo "setup: installing ${missing[*]}"
log=$(mktemp "${TMPDIR:-/tmp}/setup.XXXXXX.log")
install_missing >"$log" 2>&1 || explain_failure
rm -f "$log"
