# Sourced by the other scripts: installs the Debian packages that a purpose needs, if any is missing.

packages_build=(
    build-essential ccache cmake ninja-build pkg-config
    qt6-base-dev qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools qt6-svg-dev
    libbz2-dev libicu-dev libplist-dev libxcb1-dev libxcb-screensaver0-dev libxcb-xkb-dev
)
packages_run=("${packages_build[@]}" qt6-qpa-plugins libqt6svg6 fonts-dejavu-core)
packages_test=("${packages_run[@]}" dbus libgtest-dev openbox python3 x11-xkb-utils xauth xvfb)
packages_bench=("${packages_build[@]}" libbenchmark-dev)
packages_fuzz=("${packages_build[@]}" clang libclang-rt-dev)
packages_format=(clang-format)
packages_tidy=(clang clang-tidy libbenchmark-dev)

# install_packages <names...>
install_packages() {
    local missing=() name
    for name in "$@"; do
        dpkg-query -W -f='${Status}' "$name" 2>/dev/null | grep -q 'ok installed' || missing+=("$name")
    done
    [ ${#missing[@]} -eq 0 ] && return 0

    if ! command -v apt-get >/dev/null; then
        echo "These Debian packages, or what this system calls them, are needed: ${missing[*]}" >&2
        exit 1
    fi
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Please install as root: apt-get install ${missing[*]}" >&2
            exit 1
        fi
        as_root=(sudo)
    fi
    echo "Installing: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# build_preset <preset> [targets...]: configures once, then builds.
build_preset() {
    local preset=$1
    shift
    [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset"
    if [ $# -gt 0 ]; then
        cmake --build --preset "$preset" --target "$@"
    else
        cmake --build --preset "$preset"
    fi
}
