#!/bin/sh
# Installs a package on a Debian 12 that has nothing else, uses it there, starts it from its entry in the
# desktop's menu and removes it: nothing of it may be left. Needs root, debootstrap and a mirror.
#
# usage: scripts/try_package.sh PACKAGE.deb
set -eu
package=$(realpath "$1")
folder=$(mktemp -d)
leave() {
  umount "$folder/proc" 2>/dev/null || true
  rm -rf "$folder"
}
trap leave EXIT

debootstrap --variant=minbase bookworm "$folder" >/dev/null
mount -t proc proc "$folder/proc"
cp "$package" "$folder/tmp/tela.deb"
within() { chroot "$folder" env DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 HOME=/root "$@"; }
files() { (cd "$folder" && find usr etc opt root home | sort); }

within apt-get update -qq
# What the package needs, and a desktop without a screen; both stay, so that what is left over shows.
within apt-get install -y -qq --no-install-recommends xvfb xauth xdotool dex >/dev/null
needed=$(dpkg-deb -f "$package" Depends | tr ',' '\n' | sed 's/(.*//; s/|.*//')
# shellcheck disable=SC2086
within apt-get install -y -qq --no-install-recommends $needed >/dev/null
files >"$folder/tmp/before"

within apt-get install -y -qq --no-install-recommends /tmp/tela.deb >/dev/null
within tela_catalogue demo --days 3 --bills-per-day 20 --items 50
echo 'open frmDailyS_R' | within tela_console >/dev/null
within man -w tela_reports >/dev/null 2>&1 || test -e "$folder/usr/share/man/man1/tela_reports.1.gz"
within xvfb-run -a sh -c 'dex /usr/share/applications/tela-reports.desktop &
  for i in 1 2 3 4 5 6 7 8 9 10; do
    sleep 1; xdotool search --name "." getwindowname %@ 2>/dev/null && exit 0
  done; exit 1'
rm -rf "$folder/root/.local"

within dpkg --purge tela >/dev/null
files >"$folder/tmp/after"
diff "$folder/tmp/before" "$folder/tmp/after"
echo "installed, used, started and removed without a trace"
