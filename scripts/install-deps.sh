#!/usr/bin/env bash
# Installs, with apt-get, whatever the build and the tests need and this machine lacks.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config ccache
  qt6-base-dev qt6-base-dev-tools qt6-serialport-dev libgl1-mesa-dev
  libsqlite3-dev sqlite3 libcsv-dev mdbtools-dev libphonenumber-dev libical-dev
  qtkeychain-qt6-dev
  radicale xandikos
  # The tests of the address book server: curl plays the phone, openssl makes a self-signed certificate.
  curl openssl
  libgtest-dev libgmock-dev libbenchmark-dev
  fonts-dejavu-core fonts-liberation2 adwaita-icon-theme
  poppler-utils xvfb xauth
  dpkg-dev file lintian desktop-file-utils appstream
  "$@"
)
# The print queue of the printing test. Without root or sudo, or where they do not install, they are left
# out and that test is skipped.
optional=(cups printer-driver-cups-pdf)
# The label sheets of many makers; without them the program offers its own catalogue only.
optional+=(glabels-data)
# A second reader of the calendar of birthdays; without it that check is skipped.
optional+=(python3-icalendar)
# The other sync tool the benchmark of the address book server measures beside the program's own.
optional+=(vdirsyncer)
# The label program the benchmark of the largest label run measures beside the program's own.
optional+=(glabels)

missing_of() {
  for p in "$@"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || echo "$p"
  done
}

sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
updated=""
install() {
  [ -n "$updated" ] || { $sudo apt-get update -qq; updated=1; }
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "$@"
}

mapfile -t missing < <(missing_of "${packages[@]}")
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  install "${missing[@]}"
fi

if [ "$(id -u)" -eq 0 ] || sudo -n true 2>/dev/null; then
  mapfile -t missing < <(missing_of "${optional[@]}")
  if [ ${#missing[@]} -gt 0 ]; then
    install "${missing[@]}" || echo "Could not install ${missing[*]}: the tests that need them will be skipped."
  fi
fi
