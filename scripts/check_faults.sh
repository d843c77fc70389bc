#!/bin/sh
# Runs clang-tidy over the sources that differ from those of a commit, or over all of them.
#
# usage: scripts/check_faults.sh [COMMIT]     needs a configured build/debug
set -eu
cd "$(dirname "$0")/.."
if [ -n "${1:-}" ]; then
  files=$(git diff --name-only --diff-filter=d "$1" -- 'src/*.cpp')
else
  files=$(git ls-files 'src/*.cpp')
fi
[ -n "$files" ] || exit 0
# shellcheck disable=SC2086
run-clang-tidy -quiet -p build/debug -j "$(nproc)" $files
