#!/usr/bin/env bash
# Makes the two Debian packages, build/package/*.deb, and checks them; one line per check, non-zero when one fails.
# What a check printed is kept in build/package/checks/. After a first run only what has changed is built.
set -uo pipefail
cd "$(dirname "$0")/.."
umask 022

out=build/package
log_dir=$out/checks
root=$out/unpacked # what the packages hold

if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=time_macros
fi

make_packages() {
    rm -f "$out"/*.deb
    cmake --preset package && cmake --build --preset package && (cd "$out" && cpack)
}

unpack() {
    local package
    rm -rf "$root"
    for package in "$out"/*.deb; do
        dpkg-deb --extract "$package" "$root" || return
    done
}

# The version stands in CMakeLists.txt; the changelog of the packages must know it.
check_version() {
    local version changelog package
    version=$(sed -n 's/^project(ProcessorTreeView VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
    changelog=$(dpkg-parsechangelog -l packaging/debian/changelog -S Version)
    echo "CMakeLists.txt: $version, packaging/debian/changelog: $changelog"
    [ -n "$version" ] && [ "$version" = "$changelog" ] || return
    for package in processortreeview processortreeview-dev; do
        [ "$(dpkg-deb --field "$out/${package}_${version}_$(dpkg --print-architecture).deb" Version)" = "$version" ] || return
    done
}

check_lintian() {
    local as_root=()
    [ "$(id -u)" != 0 ] || as_root=(--allow-root)
    lintian "${as_root[@]}" --pedantic --display-info --fail-on error,warning,info,pedantic "$out"/*.deb
}

binaries() {
    find "$root/usr/bin" "$root/usr/lib" -type f \( -name 'lib*.so.*' -o -path '*/bin/*' \)
}

# Not asked for: the mark of control flow protection, which the linker drops because the system's own start files have
# none; and calls with a checked size in libraries, which have few calls of the kind, all with sizes that the compiler
# does not know. That both are compiled in, the commands of the build say.
check_hardening() {
    local option files
    for option in -fstack-protector-strong -fstack-clash-protection -D_FORTIFY_SOURCE=2; do
        ! grep '"command"' "$out/compile_commands.json" | grep -vF -- "$option" || return
    done
    mapfile -t files < <(binaries | grep '/lib/')
    [ "${#files[@]}" = 4 ] && hardening-check --nocfprotection --nofortify "${files[@]}" \
        && hardening-check --nocfprotection "$root/usr/bin/kestrel"
}

# A binary that can be made anywhere says neither where it was made nor where its libraries are.
check_origin() {
    local file files
    mapfile -t files < <(binaries)
    ! grep -rlF "$PWD" "$root" || return
    for file in "${files[@]}"; do
        ! readelf --dynamic "$file" | grep -E 'R(UN)?PATH' || return
    done
}

run() {
    local name=$1 start=$SECONDS log=$log_dir/${1// /-}.log
    shift
    if "$@" >"$log" 2>&1; then
        printf '%-14s ok      %3d s\n' "$name" $((SECONDS - start))
        return 0
    fi
    cat "$log"
    printf '%-14s FAILED  %3d s\n' "$name" $((SECONDS - start))
    result=1
    return 1
}

main() {
    mkdir -p "$log_dir"
    run packages make_packages && run unpacked unpack || exit 1
    run version check_version
    run lintian check_lintian
    run hardening check_hardening
    run origin check_origin
    run "menu entry" desktop-file-validate "$root"/usr/share/applications/*.desktop
    run surface scripts/surface.py check "$out/bin"
    exit "$result"
}

result=0
main
