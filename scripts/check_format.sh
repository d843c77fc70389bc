#!/bin/sh
# Tells which sources are not as clang-format leaves them.
set -eu
cd "$(dirname "$0")/.."
git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
