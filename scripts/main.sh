#!/usr/bin/env bash
# Installs what is missing, builds the release configuration and runs the
# main job on the embedded SQLite default.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake --preset release
cmake --build --preset release
echo "AvlorLogic built in build/release (the avlor command arrives with the pricing work)."
