#!/bin/sh
# Invents shops and has all reports of each tie out, on all processors. A shop that does not is shrunk to
# the few rows that show it and printed with its number, by which it can be tried again alone.
#
# usage: scripts/try_shops.sh [SHOPS] [FIRST]     SHOPS is 1000 and FIRST the number 1, if not given
set -eu
cd "$(dirname "$0")/.."
shops=${1:-1000}
first=${2:-1}
cmake --preset debug >/dev/null
cmake --build --preset debug --target tela_shops_test
export TELA_SHOPS="$shops" TELA_FIRST_SHOP="$first"

seq 0 3 | xargs -P "$(nproc)" -I PART \
  build/debug/tests/shops/tela_shops_test --gtest_brief=1 --gtest_filter='*/InventedShops.TieOut/PART'
echo "The reports of $shops shops tie out, from number $first on."
