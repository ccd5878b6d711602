#!/usr/bin/env bash
# Installs what the build needs on a Debian 12 machine (once), then configures and builds into build/.
set -euo pipefail
cd "$(dirname "$0")/.."
packages=(cmake g++ make pkg-config qt6-base-dev qt6-pdf-dev libsqlcipher-dev sqlcipher sqlite3
  libgtest-dev libbenchmark-dev poppler-utils fonts-dejavu-core libgl-dev xvfb xdotool openbox xclip
  dpkg-dev file desktop-file-utils appstream fonts-smc-meera fonts-liberation2
  libxlsxwriter-dev libzip-dev python3-openpyxl python3-odf python3-xlwt)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  sudo=""; [ "$(id -u)" -ne 0 ] && sudo="sudo"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j2
