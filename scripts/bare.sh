#!/usr/bin/env bash
# Runs the README's two commands on a Debian 12 that has nothing but its base system, made anew for each
# run, from a clone and from an unpacked source archive of HEAD; and installs the two packages there and starts
# Kestrel by its menu entry:
#   scripts/bare.sh [run|test|package|clone|archive]...     only these; of a kind that is not named, all
# One line per run: where from, command, result, minutes:seconds. What a command printed is kept in
# build/bare/, with the picture that the installed Kestrel took. Needs root, debootstrap, git and a mirror; takes
# about an hour and a half on two cores, the packages alone a few minutes.
set -uo pipefail
cd "$(dirname "$0")/.."

suite=bookworm
log_dir=build/bare
tree=/root/ProcessorTreeView # in the new system

die() {
    echo "bare: $*" >&2
    exit 1
}

wants() {
    local given=$1
    shift
    [[ " $* " == *" $given "* ]]
}

# The machine's own sources of that Debian, as lines for a sources.list.
mirrors() {
    apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' 'Origin: Debian' 'Component: main' | grep -E " $suite(-updates|-security)? main$"
}

# What the machine's apt needs to reach its mirrors: names, certificates, proxies, checks of dates.
copy_network() {
    local root=$1
    mirrors >"$root/etc/apt/sources.list"
    apt-config dump | grep -E '^Acquire::(https?|Check-[A-Za-z-]+|ForceIPv[46])(::| )' >"$root/etc/apt/apt.conf.d/00machine"
    cp -L /etc/resolv.conf "$root/etc/resolv.conf"
    if [ -e /etc/ssl/certs/ca-certificates.crt ]; then
        mkdir -p "$root/etc/ssl/certs"
        cp -L /etc/ssl/certs/ca-certificates.crt "$root/etc/ssl/certs/"
    fi
}

make_base() {
    local mirror proxy=
    mirror=$(mirrors | awk -v suite="$suite" '$3 == suite { print $2; exit }')
    [ -n "$mirror" ] || die "apt knows no mirror of $suite (try apt-get update)"
    eval "$(apt-config shell proxy Acquire::http::Proxy)"
    http_proxy=${proxy:-${http_proxy:-}} debootstrap --variant=minbase "$suite" "$work/base" "$mirror" \
        >"$log_dir/debootstrap.log" 2>&1 || die "no base system from $mirror, see $log_dir/debootstrap.log"
    copy_network "$work/base"
}

put_tree() {
    case $1 in
    clone) git clone --quiet . "$2" ;;
    archive) mkdir -p "$2" && git archive HEAD | tar -x -C "$2" ;;
    packages) mkdir -p "$2" && cp build/package/*.deb "$2" && write_package_round >"$2/package.sh" && chmod +x "$2/package.sh" ;;
    esac
}

# What happens to the packages in the new system, without what they only recommend: the rest must be enough. The
# examples of the documents are built there and run for a few seconds.
write_package_round() {
    cat <<'SH'
#!/bin/bash
set -eux
export DEBIAN_FRONTEND=noninteractive
apt-get -qq update
apt-get -qq install -y --no-install-recommends ./*.deb
kestrel --version
cp /usr/share/ProcessorTreeView/examples/studio.kvtl .
kestrel=$(sed -n 's/^Exec=//p' /usr/share/applications/kestrel.desktop)
test -f "/usr/share/icons/hicolor/scalable/apps/$(sed -n 's/^Icon=//p' /usr/share/applications/kestrel.desktop).svg"
export QT_QPA_PLATFORM=offscreen
$kestrel --list studio.kvtl --shot kestrel.png

apt-get -qq install -y --no-install-recommends g++ make cmake
mkdir host library
awk '/^<!-- file: /{ file = $3 } /^```/{ if (inside) file = ""; inside = !inside; next } inside && file { print >file }' \
    /usr/share/doc/processortreeview-dev/*.md
for example in host library; do
    cmake -S $example -B $example/build
    cmake --build $example/build
done
kestrel --control library/build/libMyControl.so --shot library.png
for library in libCorvidControl.so.0 ./library/build/libMyControl.so; do
    code=0
    timeout 5 host/build/myhost $library studio.kvtl || code=$?
    test $code = 124 # it ran until it was stopped
done

apt-get -qq remove -y processortreeview
! test -e /usr/bin/kestrel
SH
}

# In name spaces of its own: with its first process go all others and the mounts. The environment is that of
# a first login.
enter() {
    local root=$1 command=$2
    unshare --mount --pid --fork --kill-child --propagation private -- bash -ec '
        mount --rbind /dev "$0/dev"
        mount -t proc proc "$0/proc"
        exec chroot "$0" /usr/bin/env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin TERM="${TERM:-dumb}" \
            http_proxy="${http_proxy:-}" https_proxy="${https_proxy:-}" no_proxy="${no_proxy:-}" \
            bash -c "cd $1 && exec $2"' "$root" "$tree" "$command" </dev/null &
    child=$!
    wait "$child"
    local code=$?
    child=
    return "$code"
}

run_one() {
    local from=$1 command=$2 root=$work/root log start result
    log=$log_dir/$from-$command.log
    cp -a "$work/base" "$root" && put_tree "$from" "$root$tree" || die "no room for a system in $work"
    start=$SECONDS
    if enter "$root" "./$command.sh" >"$log" 2>&1; then
        result=ok
    else
        result="FAILED, see $log"
        bad=$((bad + 1))
    fi
    [ ! -e "$root$tree/kestrel.png" ] || cp "$root$tree/kestrel.png" "$log_dir/"
    [ "$command" != test ] || result+=" ($(tail -n 1 "$log"))"
    printf '%-8s ./%-8s %s  %d:%02d\n' "$from" "$command.sh" "$result" $(((SECONDS - start) / 60)) $(((SECONDS - start) % 60))
    rm -rf --one-file-system "$root"
}

clean() {
    trap - EXIT
    if [ -n "$child" ]; then
        kill -KILL "$child"
        wait "$child" 2>/dev/null
    fi
    rm -rf --one-file-system "$work"
}

main() {
    local word from command
    for word in "$@"; do
        wants "$word" run test package clone archive || die "usage: bare.sh [run|test|package|clone|archive]..."
    done
    wants clone "$@" || wants archive "$@" || set -- "$@" clone archive
    wants run "$@" || wants test "$@" || wants package "$@" || set -- "$@" run test package
    [ "$(id -u)" = 0 ] || die "needs root"
    for word in debootstrap git unshare apt-config; do
        command -v "$word" >/dev/null || die "needs $word"
    done
    mkdir -p "$log_dir"
    ! wants package "$@" || scripts/package.sh >"$log_dir/packages.log" 2>&1 || die "the packages are not good, see $log_dir/packages.log"
    work=$(mktemp -d "${TMPDIR:-/var/tmp}/bare.XXXXXX")
    trap clean EXIT
    trap 'exit 130' INT TERM HUP
    make_base
    for from in clone archive; do
        for command in run test; do
            ! wants "$from" "$@" || ! wants "$command" "$@" || run_one "$from" "$command"
        done
    done
    ! wants package "$@" || run_one packages package
    [ "$bad" = 0 ]
}

work=
child=
bad=0
main "$@"; exit
