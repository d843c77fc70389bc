#!/bin/sh
# Makes the Debian package of a build and has the distribution's own tools look at it: no error and no
# warning may be left.
#
# usage: scripts/check_package.sh [BUILD]     BUILD is a build folder, build/debug if not given
set -eu
cd "$(dirname "$0")/.."
build=${1:-build/debug}
(cd "$build" && rm -f ./*.deb && cpack -G DEB >/dev/null)
package=$(ls "$build"/*.deb)

lintian --allow-root --fail-on error,warning "$package"
appstreamcli validate --no-net resources/linux/org.tela.Reports.metainfo.xml
desktop-file-validate resources/linux/tela-reports.desktop
# Every command that a program knows stands in its manual page.
for program in tela_catalogue tela_console tela_reports; do
  QT_QPA_PLATFORM=offscreen "$build/src/apps/$program/$program" --help |
    grep -oE '^  +(--?[a-z-]+|[a-z]+)( |,|$)' | tr -d ' ,' | sort -u |
    while read -r word; do
      [ "$word" = -h ] || [ "$word" = -v ] || [ "$word" = --help-all ] ||
        sed 's/\\-/-/g' "resources/linux/man/$program.1" | grep -qwF -- "$word" ||
        { echo "The manual page of $program says nothing of $word" >&2; exit 1; }
    done
done
echo "$package"
