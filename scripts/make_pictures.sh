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

# A bill on a receipt printer that is a file.
mkdir "$root/ports"
: >"$root/ports/LPT1"
"$build/src/apps/tela_console/tela_console" --root "$root" >/dev/null <<SCRIPT
sql update PrinterSet set PrintNo=1,PortNo='LPT1'
open frmDailyS_R
set DTPicker1 31/03/2024
pick Combo1 ALL COUNTER
press cmdView
doubleclick MSHF 1
answer ok
press cmdprint
SCRIPT
"$build/tests/tools/escpos_picture/escpos_picture" "$root/ports/LPT1" docs/pictures/receipt.png 48
ls docs/pictures
