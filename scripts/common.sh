# Shared by the scripts in this folder: the Debian packages the project needs and the build steps.
# Source it; it sets ROOT to the project folder.

ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"

PACKAGES=(
    g++ cmake ninja-build
    qt6-base-dev qt6-base-dev-tools qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools libgl-dev
    qcoro-qt6-dev qtkeychain-qt6-dev libarchive-dev
    libbenchmark-dev clang libclang-rt-14-dev
    curl python3 python3-pyftpdlib gnome-keyring dbus
    xvfb fonts-dejavu-core
    appstream desktop-file-utils
)

# Installs what is missing: with apt-get as root, with sudo when that needs no password,
# otherwise says which command to run.
ensure_packages() {
    local missing=() pkg
    for pkg in "${PACKAGES[@]}"; do
        dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q "install ok installed" || missing+=("$pkg")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing missing packages: ${missing[*]}" >&2
    local sudo=()
    if [ "$(id -u)" -ne 0 ]; then
        if command -v sudo >/dev/null 2>&1 && sudo -n true 2>/dev/null; then
            sudo=(sudo)
        else
            echo "Please install the missing packages first:" >&2
            echo "  sudo apt-get install -y --no-install-recommends ${missing[*]}" >&2
            exit 1
        fi
    fi
    "${sudo[@]}" apt-get update -q
    DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
}

# Configures (once) and builds the main tree in build/, incrementally. Extra arguments go to cmake.
build_main() {
    cmake -S "$ROOT" -B "$ROOT/build" -G Ninja "$@" >/dev/null
    cmake --build "$ROOT/build"
}
