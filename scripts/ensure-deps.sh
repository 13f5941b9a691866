#!/usr/bin/env bash
# Installs the Debian packages Corvantis needs to build, test and run.
# Nothing is installed when everything is already there; sudo is used when
# not root.
set -euo pipefail

CORVANTIS_PACKAGES=(
  cmake ninja-build g++ ccache pkg-config
  qt6-base-dev qt6-multimedia-dev libqt6sql6-sqlite libsqlite3-dev qt6-qpa-plugins
  libgl-dev gstreamer1.0-plugins-good fonts-dejavu-core zlib1g-dev libfontconfig-dev
  qt6-pdf-dev poppler-utils libreoffice-writer libreoffice-impress
)

missing=()
for p in "${CORVANTIS_PACKAGES[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  SUDO=""
  if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update -qq
  $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
