#!/bin/sh
# Makes a picture of every chart in every type, on an invented shop, to be looked at when their drawing
# has changed. Needs no desktop.
#
# usage: scripts/make_chart_pictures.sh FOLDER [BUILD]     BUILD is a build folder, build/debug if not given
set -eu

cd "$(dirname "$0")/.."
folder=$1
build=${2:-build/debug}
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT

"$build/src/apps/tela_catalogue/tela_catalogue" --root "$root" demo \
  --days 400 --bills-per-day 40 --items 300 --seed 7 --to 31/03/2024
mkdir -p "$folder"
QT_QPA_PLATFORM=offscreen "$build/src/apps/tela_reports/tela_reports" --root "$root" \
  --chart-pictures "$folder"
ls "$folder"
