#!/usr/bin/env bash
# Installs, starts, upgrades and removes the package in a Debian of its own: a folder that debootstrap fills. As root.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh

usage="usage: scripts/try_package.sh PACKAGE.deb FOLDER [PICTURE.png]"
package="${1:?$usage}"
root="${2:?$usage}"
picture="${3:-}"
[ "$(id -u)" -eq 0 ] || fail "only root can make a Debian of its own"
command -v debootstrap >/dev/null || apt_get install --no-install-recommends debootstrap

inside() {
    chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"
}

# Every file with its kind, but for what the package manager keeps about itself and its work.
list_files() {
    (cd "$root" && find . -xdev \( -path ./proc -o -path ./sys -o -path ./tmp -o -path ./root -o -path ./var/lib/dpkg \
        -o -path ./var/lib/apt -o -path ./var/cache -o -path ./var/log \) -prune -o -printf '%y %p\n' | sort)
}

if [ ! -x "$root/usr/bin/dpkg" ]; then
    say "Filling $root"
    debootstrap --variant=minbase bookworm "$root" >/dev/null
fi
cp /etc/apt/sources.list "$root/etc/apt/" 2>/dev/null || true
cp -r /etc/apt/sources.list.d/. "$root/etc/apt/sources.list.d/" 2>/dev/null || true
mountpoint -q "$root/proc" || mount -t proc proc "$root/proc"
trap 'umount "$root/proc"' EXIT
inside apt-get -q update >/dev/null

say "What it depends on"
cp "$package" "$root/tmp/package.deb"
needed="$(dpkg-deb -f "$package" Depends | sed 's/([^)]*)//g; s/|[^,]*//g; s/,/ /g')"
# shellcheck disable=SC2086 # a list of names
inside apt-get install -qy --no-install-recommends $needed xvfb imagemagick x11-apps >/dev/null
list_files >"$root/tmp/before"

say "Installing"
inside apt-get install -qy --no-install-recommends /tmp/package.deb >/dev/null
inside tavo --version
printf 'BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\nUID:a\r\nDTSTART:20261224T180000\r\nSUMMARY:Dinner\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n' \
    >"$root/tmp/a.ics"
inside tavo import /tmp/a.ics
inside tavo agenda --from 2026-12-24 --to 2026-12-24 --tsv | grep -q Dinner || fail "the imported entry is not listed"
say "Printing, and what else other programs of it draw"
inside tavo print /tmp/month.pdf --month 2026-12-24
head -c 5 "$root/tmp/month.pdf" | grep -q "%PDF-" || fail "the month was not printed"
[ -s "$root/usr/share/man/man1/tavo.1.gz" ] || fail "there is no manual page"
inside tavo reminders on
inside tavo reminders off
say "Starting the window"
inside sh -c 'Xvfb :7 -screen 0 480x640x24 >/dev/null 2>&1 & x=$!; sleep 2
              DISPLAY=:7 tavocalendar >/tmp/said 2>&1 & p=$!; sleep 6
              DISPLAY=:7 import -window root /tmp/picture.png; kill -0 $p; alive=$?; kill $p; sleep 1; tavo reminders off; kill $x; exit $alive' ||
    fail "the window did not stay: $(cat "$root/tmp/said")"
[ -z "$picture" ] || cp "$root/tmp/picture.png" "$picture"

say "Upgrading to itself, then removing"
inside dpkg -i /tmp/package.deb >/dev/null
inside apt-get purge -qy tavocalendar >/dev/null
list_files >"$root/tmp/after"
diff "$root/tmp/before" "$root/tmp/after" && say "Nothing of it is left"
