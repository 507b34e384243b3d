#!/usr/bin/env bash
# Installs, from Debian's packages, whatever the build and the tests need and
# the machine does not have yet. Safe to run again: it installs only what is
# missing. Run as root, or as a user who may use sudo.
set -euo pipefail

# libpq-dev: the PostgreSQL backend of the data layer (always built).
# postgresql: the server the test suite starts for its PostgreSQL runs
# (AVLOR_WITH_POSTGRES_TESTS=1, as scripts/test.sh sets it).
# qt6-base-dev: the Qt 6 Widgets window of the fee-entry dialog (ui/); its
# tests run on Qt's offscreen platform, which needs nothing more.
# xvfb, xauth: the X virtual framebuffer under which one test opens the window
# as a desktop user would and takes its screenshot (xvfb-run needs xauth).
packages=(
  g++ cmake ninja-build pkg-config git
  libsqlite3-dev sqlite3
  libpq-dev
  libinih-dev
  libcli11-dev
  nlohmann-json3-dev
  libgtest-dev libgmock-dev
  libbenchmark-dev
  clang-format
  qt6-base-dev
  xvfb xauth
)
if [[ "${AVLOR_WITH_POSTGRES_TESTS:-}" == 1 ]]; then
  packages+=(postgresql)
fi

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if ((${#missing[@]} == 0)); then
  exit 0
fi

echo "Installing missing packages: ${missing[*]}"
sudo=""
if [[ $(id -u) -ne 0 ]]; then sudo="sudo"; fi
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
