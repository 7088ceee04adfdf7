#!/bin/sh
# setup.sh SET...: installs the Debian packages of the sets that this machine lacks, and nothing else.
# The one place that knows what the project needs:
#   build   to compile and run the programs
#   test    to compile and run the tests and the fuzz targets; the browser opens the web pages of maps,
#           the display server, window manager and pointer are for sessions in a real window
#   bench   the peers that the benchmarks stand beside
set -e

packages_of() {
    case $1 in
    build)
        echo g++ cmake ninja-build ccache pkg-config \
            libcli11-dev nlohmann-json3-dev \
            libpng-dev zlib1g-dev libjpeg-dev libgif-dev \
            libvorbis-dev libmpg123-dev libfluidsynth-dev timgm6mb-soundfont \
            libopenal-dev libsdl2-dev qt6-base-dev fonts-vlgothic
        ;;
    test) echo libgtest-dev clang libclang-rt-14-dev python3 chromium xvfb xdotool imagemagick openbox ;;
    bench) echo libbenchmark-dev libpugixml-dev libpcre2-dev lua5.4 liblua5.4-dev luajit libcairo2-dev tiled ;;
    *)
        echo "setup.sh: there is no set '$1'" >&2
        exit 2
        ;;
    esac
}

missing=
for set in "$@"; do
    for package in $(packages_of "$set"); do
        state=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)
        [ "$state" = installed ] || missing="$missing $package"
    done
done
[ -n "$missing" ] || exit 0

if [ "$(id -u)" = 0 ]; then
    as_root=
elif command -v sudo >/dev/null; then
    as_root=sudo
else
    echo "These packages are missing, and installing them needs root or sudo:$missing" >&2
    exit 1
fi
echo "Installing:$missing" >&2
$as_root apt-get update -qq
# shellcheck disable=SC2086
DEBIAN_FRONTEND=noninteractive $as_root apt-get install -y -qq --no-install-recommends $missing >/dev/null
