# Shared by the scripts of this folder; source it. Sets ROOT, the folder of the checkout.

set -euo pipefail
ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"

say() {
    printf '\n== %s\n' "$*"
}

# install_missing [LIST...]: installs the packages of packages.txt, and of the lists named, that are missing, and does
# nothing when none is.
install_missing() {
    local package list lists=("$ROOT/scripts/packages.txt") missing=()
    for list in "$@"; do
        lists+=("$ROOT/scripts/$list")
    done
    while read -r package; do
        case "$package" in ''|'#'*) continue ;; esac
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)" = installed ] \
            || missing+=("$package")
    done < <(cat "${lists[@]}")
    [ ${#missing[@]} -eq 0 ] && return

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || { echo "missing packages: ${missing[*]} (and no sudo to install them)" >&2; exit 1; }
        as_root=(sudo)
    fi
    say "installing ${missing[*]}"
    "${as_root[@]}" apt-get -qq update
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get -qq install --no-install-recommends -y "${missing[@]}" >/dev/null
}

# build PRESET [TARGET...]: configures and builds; without targets, everything.
build() {
    local preset="$1" target targets=()
    shift
    for target in "$@"; do
        targets+=(--target "$target")
    done
    cd "$ROOT"
    cmake --preset "$preset" >"$ROOT/build/$preset-configure.log" 2>&1 || {
        cat "$ROOT/build/$preset-configure.log" >&2
        return 1
    }
    cmake --build --preset "$preset" "${targets[@]}"
}

mkdir -p "$ROOT/build"
