#!/usr/bin/env bash
# Installs, with apt-get, whatever the build and the tests need and this machine lacks.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config
  qt6-base-dev qt6-base-dev-tools libqt6serialport6-dev libgl1-mesa-dev
  libsqlite3-dev sqlite3
  libgtest-dev libgmock-dev libbenchmark-dev
  fonts-dejavu-core fonts-liberation2 adwaita-icon-theme
  poppler-utils xvfb xauth
  "$@"
)
# The print queue of the printing test; without root or sudo they are left out and that test is skipped.
optional=(cups printer-driver-cups-pdf)
if [ "$(id -u)" -eq 0 ] || sudo -n true 2>/dev/null; then
  packages+=("${optional[@]}")
fi

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
echo "Installing: ${missing[*]}"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
