#!/usr/bin/env bash
# Installs what is missing, builds the debug configuration (with
# AddressSanitizer and UndefinedBehaviorSanitizer) and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
AVLOR_WITH_POSTGRES_TESTS=1 scripts/install-deps.sh
cmake --preset debug
cmake --build --preset debug
ctest --preset debug
