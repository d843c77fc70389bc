#!/bin/sh
# Makes the pictures of the user guide anew, from the program itself on an invented shop. Needs no
# desktop.
#
# usage: scripts/make_pictures.sh [BUILD]     BUILD is a build folder, build/debug if not given
set -eu

cd "$(dirname "$0")/.."
build=${1:-build/debug}
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT

"$build/src/apps/tela_catalogue/tela_catalogue" --root "$root" demo \
  --days 20 --bills-per-day 60 --items 300 --seed 7 --to 31/03/2024
mkdir -p docs/pictures
QT_QPA_PLATFORM=offscreen "$build/src/apps/tela_reports/tela_reports" --root "$root" \
  --pictures docs/pictures
ls docs/pictures
