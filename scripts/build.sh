#!/usr/bin/env bash
# Configures and builds into build/ (or $BUILD_DIR); extra arguments go to CMake's configure step.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${BUILD_DIR:-$root/build}"
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE="${BUILD_TYPE:-RelWithDebInfo}" "$@"
cmake --build "$build" --parallel "$(nproc 2>/dev/null || echo 2)"
