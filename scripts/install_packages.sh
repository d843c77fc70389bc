#!/bin/sh
# Installs the Debian packages that building and testing need: one apt step, and only if something is
# missing. Runs as root or with sudo, and does nothing the second time.
#
# usage: scripts/install_packages.sh [--lint]     with --lint also what the checks of .ci/run need
set -eu

packages="cmake ninja-build g++ ccache mold git
  libsqlite3-dev sqlite3 nlohmann-json3-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  qt6-base-dev qt6-svg-dev qt6-charts-dev libqt6opengl6-dev libgl1-mesa-dev
  unixodbc-dev odbcinst tdsodbc libsqliteodbc
  xvfb fonts-dejavu-core fonts-liberation poppler-utils"

installed() {
  [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null || true)" = installed ]
}

# The spreadsheet program, with its windows where there is a desktop to see them on.
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || installed libreoffice-calc; then
  packages="$packages libreoffice-calc"
else
  packages="$packages libreoffice-calc-nogui"
fi
packages="$packages libreoffice-dev libreoffice-dev-common"

if [ "${1:-}" = --lint ]; then
  packages="$packages clang libclang-rt-dev clang-format clang-tidy
    dpkg-dev lintian appstream desktop-file-utils"
fi

missing=""
for package in $packages; do
  installed "$package" || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

as_root=""
if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null; then
    echo "These packages are missing, and installing them needs root or sudo:$missing" >&2
    exit 1
  fi
  as_root=sudo
fi

export DEBIAN_FRONTEND=noninteractive
echo "Installing:$missing"
$as_root apt-get update -qq
# shellcheck disable=SC2086
$as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >/dev/null
