#!/usr/bin/env bash
# Installs what is missing, builds and runs every test (headless).
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
bash "$root/scripts/deps.sh"
bash "$root/scripts/build.sh" -DZRT_BUILD_TESTS=ON
export QT_QPA_PLATFORM=offscreen
cd "${BUILD_DIR:-$root/build}"
ctest --output-on-failure --timeout 600 -j2
