#!/usr/bin/env bash
# Installs what is missing, builds everything, and runs every test on the offscreen platform.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build
export QT_QPA_PLATFORM=offscreen
ctest --test-dir build --output-on-failure "$@"
