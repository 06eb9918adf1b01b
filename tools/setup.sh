# Shared by run.sh and test.sh: installs what is missing, configures and builds. Sourced, not run.
# SPDX-License-Identifier: MIT

build_packages="g++ cmake ninja-build pkg-config qt6-base-dev qt6-tools-dev qt6-l10n-tools qt6-image-formats-plugins qt6-svg-dev
 libjpeg62-turbo-dev zlib1g-dev libpng-dev libgif-dev libtiff-dev liblcms2-dev libmagick++-dev libheif-dev libjxl-dev libraw-dev
 libglib2.0-dev libcurl4-openssl-dev libc-ares-dev libcups2-dev qtkeychain-qt6-dev libsecret-1-0 libhwy-dev libtbb-dev
 libgstreamer1.0-dev libgstreamer-plugins-base1.0-dev gstreamer1.0-plugins-base
 gstreamer1.0-plugins-good gstreamer1.0-pipewire qt6-wayland qt6-translations-l10n xdg-utils ca-certificates fonts-dejavu-core fonts-liberation"
test_packages="libgtest-dev libgmock-dev git xvfb xauth openbox xdotool xclip x11-apps x11-utils imagemagick graphicsmagick gifsicle
 libimage-exiftool-perl poppler-utils qpdf cups python3 python3-aiosmtpd python3-dnslib python3-dbus python3-gi gir1.2-atspi-2.0 at-spi2-core openssl dbus-daemon pipewire
 wireplumber libpipewire-0.3-dev"

# Wanted, but not on every release of the system; what needs them says so and is passed over there.
optional_test_packages="clang-format-14"

say() { printf '%s\n' "$*" >&2; }

# Installs those of the named packages that are missing. Only Debian's package manager is known here.
install_packages() {
    command -v dpkg-query >/dev/null || {
        say "No Debian package manager here. Please see to it that these are installed:" "$@"
        return 0
    }
    missing=""
    for package in "$@"; do
        dpkg-query -W -f='${db:Status-Abbrev}' "$package" 2>/dev/null | grep -q '^ii' || missing="$missing $package"
    done
    [ -z "$missing" ] && return 0
    as_root=""
    [ "$(id -u)" = 0 ] || as_root="sudo"
    say "Installing:$missing"
    # Another installation may hold the package system; its lists have a lock that apt-get itself does not wait for.
    tries=0
    until $as_root apt-get update -qq; do
        tries=$((tries + 1))
        [ "$tries" -lt 30 ] || return 1
        say "The package system is busy; waiting"
        sleep 10
    done
    # shellcheck disable=SC2086
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=600 \
        install -y -qq --no-install-recommends $missing >/dev/null
}

# Those of the named packages that this release of the system has.
known_packages() {
    for package in "$@"; do
        apt-cache show "$package" >/dev/null 2>&1 && printf '%s ' "$package"
    done
    return 0
}

# configure_and_build FOLDER TARGET... -- CMAKE-OPTION...
configure_and_build() {
    folder=$1; shift
    targets=""
    while [ $# -gt 0 ] && [ "$1" != -- ]; do targets="$targets $1"; shift; done
    [ $# -gt 0 ] && shift
    cmake -S . -B "$folder" -G Ninja "$@" >"$folder.log" 2>&1 || { cat "$folder.log" >&2; return 1; }
    # shellcheck disable=SC2086
    cmake --build "$folder" --target $targets
}
