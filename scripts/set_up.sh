# Sourced by the scripts at the top: installs what is missing and configures a build tree.
# Debian 12 or newer. Packages are installed as root, or through sudo; where neither can, the missing ones are named.

build_packages=(
    g++ cmake ninja-build ccache pkg-config git
    qt6-base-dev qt6-serialport-dev qt6-svg-dev
    libsigc++-3.0-dev libpugixml-dev libsqlitecpp-dev libsqlite3-dev sqlite3
    libgtest-dev libgmock-dev poppler-utils libgammu-dev
)
# What a window needs on a machine that never had one: fonts, a virtual display, the platform plugin's libraries.
screen_packages=(
    fonts-dejavu-core fontconfig xvfb xauth libgl1 libegl1 libxkbcommon-x11-0 libxcb-cursor0
    libxcb-icccm4 libxcb-keysyms1 libxcb-shape0 qt6-qpa-plugins
)
bench_packages=(libbenchmark-dev)
check_packages=(clang libclang-rt-14-dev clang-format clang-tidy)

missing_packages() {
    local package
    for package in "$@"; do
        dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || echo "$package"
    done
}

# install_packages PACKAGE...: quiet when all are there.
install_packages() {
    local missing
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -eq 0 ] && return 0
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing and can't be installed without root or sudo: ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing: ${missing[*]}"
    if ! "${as_root[@]}" apt-get update -q >/dev/null ||
        ! "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -qy --no-install-recommends "${missing[@]}" >/dev/null; then
        mapfile -t missing < <(missing_packages "$@")
        if [ ${#missing[@]} -gt 0 ]; then
            echo "These packages are missing and could not be installed: ${missing[*]}" >&2
            return 1
        fi
    fi
}

# configure PRESET: only when the tree is new or the presets are newer; the build itself notices any other change.
configure() {
    local tree=$1
    [ "$tree" = release ] && tree=build || tree=build-$tree
    if [ ! -f "$tree/build.ninja" ] || [ CMakePresets.json -nt "$tree/build.ninja" ]; then
        cmake --preset "$1"
    fi
}
