#!/usr/bin/env bash
# Builds the .deb from an existing build folder, unpacks it into a fresh folder root and checks
# what a desktop needs of it: the program and report tool, the desktop entry, the AppStream
# metadata, the icon and the .rtd file type; then starts the unpacked program once, headless.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${BUILD_DIR:-$root/build}"
app_id=org.zorvane.ReactionTimes

cmake --build "$build" --parallel "$(nproc 2>/dev/null || echo 2)" --target ZorvaneReactionTimes zorvanes-report
rm -rf "$build/package"
cpack --config "$build/CPackConfig.cmake" -G DEB -B "$build/package" >/dev/null
deb="$(ls "$build"/package/*.deb)"
echo "package: $deb"

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
dpkg-deb -x "$deb" "$work/root"
share="$work/root/usr/share"

fail() { echo "package-check: $*" >&2; exit 1; }
for f in usr/bin/ZorvaneReactionTimes usr/bin/zorvanes-report \
         "usr/share/applications/$app_id.desktop" "usr/share/metainfo/$app_id.metainfo.xml" \
         "usr/share/mime/packages/$app_id.xml"; do
  [ -f "$work/root/$f" ] || fail "missing /$f"
done
for size in 16 24 32 48 64 128 256; do
  [ -f "$share/icons/hicolor/${size}x${size}/apps/$app_id.png" ] || fail "missing the ${size}x${size} icon"
done
[ -x "$work/root/usr/bin/ZorvaneReactionTimes" ] || fail "the program is not executable"
dpkg-deb -f "$deb" Depends | grep -q 'libqt6widgets6' || fail "Depends does not name the Qt libraries"

desktop-file-validate "$share/applications/$app_id.desktop"
grep -qx 'Exec=ZorvaneReactionTimes %f' "$share/applications/$app_id.desktop" || fail "Exec does not take a file"
grep -q '^MimeType=.*application/x-zorvane-rtd;' "$share/applications/$app_id.desktop" || fail "no MimeType"
appstreamcli validate --no-net --strict "$share/metainfo/$app_id.metainfo.xml"

# The file type must register: a .rtd file name maps to it in the database built from the package.
update-mime-database "$share/mime" >/dev/null 2>&1
grep -q 'application/x-zorvane-rtd:\*\.rtd' "$share/mime/globs2" || fail ".rtd is not registered"

# The unpacked program starts and paints once, with a settings folder of its own.
mkdir -p "$work/home/Documents"
HOME="$work/home" XDG_DOCUMENTS_DIR="$work/home/Documents" QT_QPA_PLATFORM=offscreen ZRT_EXIT_AFTER_FIRST_PAINT=1 \
  timeout 30 "$work/root/usr/bin/ZorvaneReactionTimes" || fail "the installed program did not start"
echo "package-check: all checks passed"
