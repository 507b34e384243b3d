#!/usr/bin/env bash
# Checks that every C and C++ source of the repository is laid out as
# .clang-format says. Prints the places that differ and exits 1 when any does;
# `scripts/check-format.sh --fix` rewrites them instead.
set -euo pipefail
cd "$(dirname "$0")/.."
mapfile -t files < <(git ls-files '*.cpp' '*.h' '*.c')
if [[ "${1:-}" == "--fix" ]]; then
  clang-format -i "${files[@]}"
else
  clang-format --dry-run -Werror "${files[@]}"
fi
