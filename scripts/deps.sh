#!/usr/bin/env bash
# Installs what the build, the program and the tests need on Debian 12, skipping what is there.
set -euo pipefail
# qt6-tools-dev brings the CMake package of the Linguist tools, qt6-l10n-tools lupdate and lrelease.
packages=(build-essential cmake ninja-build pkg-config
          qt6-base-dev qt6-multimedia-dev qt6-svg-dev qt6-tools-dev qt6-l10n-tools libgl1-mesa-dev
          libgtest-dev libbenchmark-dev
          fonts-liberation xvfb xauth poppler-utils
          libx11-dev libxtst-dev pulseaudio pulseaudio-utils)
# The .deb's dependency scan and the checks of scripts/package-check.sh.
packages+=(dpkg-dev desktop-file-utils appstream shared-mime-info)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  SUDO=""
  [ "$(id -u)" -eq 0 ] || SUDO="sudo"
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
