#!/usr/bin/env bash
# Installs what is missing, builds and starts the program.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
bash "$root/scripts/deps.sh"
bash "$root/scripts/build.sh"
exec "${BUILD_DIR:-$root/build}/src/app/ZorvaneReactionTimes"
