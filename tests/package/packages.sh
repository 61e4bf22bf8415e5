#!/bin/sh
# packages.sh BUILD COMPILER: makes the Debian packages of a build, installs them into a fresh root, uses them there as
# operators and host developers do, and removes them again. Run it from the top of the sources.
set -eu
export QT_QPA_PLATFORM=offscreen
build="$1" compiler="$2"
work="$build/tests/package/work"
root="$work/root"
usr="$root/usr"

fail() {
    echo "package: $*" >&2
    exit 1
}
# The fresh root knows no package that ours depend on; what runs here takes Qt from the machine.
dpkg_root() {
    dpkg --root="$root" --force-depends --force-not-root --force-script-chrootless "$@" 2>&1 \
        | grep -v '^dpkg: \|^ .* depends on \|^  Package .* not installed' || true
}

rm -rf "$work"
mkdir -p "$root/var/lib/dpkg/info" "$root/var/lib/dpkg/updates"
touch "$root/var/lib/dpkg/status" "$root/var/lib/dpkg/available"
cpack -G DEB --config "$build/CPackConfig.cmake" -B "$work/debs" >"$work/cpack.log" 2>&1 || { cat "$work/cpack.log"; fail "cpack"; }
dpkg_root --install "$work"/debs/*.deb
[ "$(dpkg --root="$root" --get-selections | grep -c 'install$')" -eq 4 ] || fail "not all four packages are installed"

"$usr/bin/orbel" params "$usr/share/orbelparser/examples/forms/receiver.orbel" | grep -q '<ReceiverSettings' \
    || fail "the command"
gzip -dc "$usr/share/man/man1/orbel-check.1.gz" | grep -q -- '\\-\\-run' || fail "the manual pages"
bash -n "$usr/share/bash-completion/completions/orbel" || fail "the completion"
for header in $(grep -rlE --include='*.h' 'ORBEL_(HOST_|CHECK_|SESSION_|TESTSUPPORT_)?EXPORT ' host orbelparser check session testsupport); do
    [ -n "$(find "$usr/include" -name "$(basename "$header")")" ] || fail "$header exports something, and is not installed"
done

# build_and_run SOURCE COMMAND...: against the packages by find_package(), then runs the command in the build.
build_and_run() {
    source="$1"
    shift
    name="$(basename "$source")"
    cmake -S "$source" -B "$work/$name" -G Ninja -DCMAKE_PREFIX_PATH="$usr" -DCMAKE_CXX_COMPILER="$compiler" \
        >"$work/$name.log" 2>&1 && cmake --build "$work/$name" >>"$work/$name.log" 2>&1 \
        || { cat "$work/$name.log"; fail "$source does not build"; }
    (cd "$work/$name" && "$@")
}
build_and_run tests/package/consumer ./consumer | grep -q '<Mode>text</Mode>' || fail "the consumer"
# It shows its form until it is closed.
build_and_run "$usr/share/orbelparser/examples/host" \
    timeout 2 ./orbel-examplehost "$usr/share/orbelparser/examples/forms/receiver.orbel" \
    && fail "the example host ended by itself"
[ $? -eq 124 ] || fail "the example host"
build_and_run "$usr/share/orbelparser/examples/receiver" timeout 2 host/receiverhost \
    && fail "the receiver's host ended by itself"
[ $? -eq 124 ] || fail "the receiver's host"

build_and_run "$usr/share/orbelparser/examples/formtest" ./tst_receiverform >"$work/formtest.log" \
    || { cat "$work/formtest.log"; fail "the example test"; }

export PKG_CONFIG_PATH="$usr/lib/pkgconfig"
pkg-config --exists --print-errors orbelhost orbelparser orbelcheck orbelsession orbeltestsupport || fail "pkg-config"
# Words are meant to be split here: these are lists of options.
# shellcheck disable=SC2046
"$compiler" -std=c++17 -fPIC tests/package/consumer/main.cpp -o "$work/by-pkg-config" \
    $(pkg-config --cflags --libs orbelparser) -Wl,-rpath,"$usr/lib"
"$work/by-pkg-config" | grep -q '<Mode>text</Mode>' || fail "what pkg-config builds"

# shellcheck disable=SC2046
dpkg_root --purge $(dpkg --root="$root" --get-selections | cut -f1)
[ -z "$(find "$root" -path "$root/var" -prune -o -type f -print)" ] || fail "something is left after the removal"
