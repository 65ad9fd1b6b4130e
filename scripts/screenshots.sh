#!/usr/bin/env bash
# Builds the program and takes the documentation's screenshots under a virtual display.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
bash "$root/scripts/deps.sh"
bash "$root/scripts/build.sh" >/dev/null
build="${BUILD_DIR:-$root/build}"
# The journeys start their own X server, drive the real window and capture it from the server.
ZRT_SHOT_DIR="$root/docs/screenshots" "$build/tests/journey/test_journey" --gtest_filter='Screens.*'
xvfb-run -a -s "-screen 0 1280x1024x24" "$build/tools/gallery/zrt_gallery" --screenshot "$root/docs/screenshots/controls_gallery.png"
