#!/usr/bin/env bash
# Builds the program and takes the documentation's screenshots under a virtual display.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
bash "$root/scripts/deps.sh"
bash "$root/scripts/build.sh" >/dev/null
build="${BUILD_DIR:-$root/build}"
xvfb-run -a -s "-screen 0 1280x1024x24" "$build/tools/screenshots/zrt_screenshots" "$root/docs/screenshots"
xvfb-run -a -s "-screen 0 1280x1024x24" "$build/tools/gallery/zrt_gallery" --screenshot "$root/docs/screenshots/controls_gallery.png"
