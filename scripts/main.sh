#!/usr/bin/env bash
# Installs what is missing, builds the release configuration and runs the
# main job on the embedded SQLite default: on first use it creates the
# per-user practice database with the official fee tables and a small demo
# firm, then prices two fee items with the avlor command.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake --preset release
cmake --build --preset release --target avlor

avlor=build/release/cli/avlor
if ! "$avlor" db versione >/dev/null 2>&1; then
  "$avlor" db init --demo
fi

echo
echo "Diritti94, voce 132 (fascia fissa da 15.000 a 50.000 lire), rilevanza 37:"
"$avlor" tariffa --tabella Diritti94 --id 132 --valore 1000000 --rilevanza 37
echo
echo "OnorariStrag2004Euro, voce 10 (percentuale del valore), valore 25.900 euro, rilevanza 50:"
"$avlor" tariffa --tabella OnorariStrag2004Euro --id 10 --valore 25900 --rilevanza 50
echo
echo "Filtro di riservatezza sulle pratiche per l'utente 3 dello studio di prova:"
"$avlor" utenti filtro-pratiche 3
