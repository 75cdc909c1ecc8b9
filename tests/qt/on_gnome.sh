#!/usr/bin/env bash
# Runs a command on a display of its own with the platform theme of the GNOME family, which lets Return press buttons and
# open lists. Gives 77 where there is no server for such a display.
set -euo pipefail
command -v Xvfb >/dev/null || { echo "Xvfb is not installed: skipped"; exit 77; }
folder="$(mktemp -d)"
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$folder/number" 2>"$folder/log" &
server=$!
trap 'kill "$server" 2>/dev/null || true; wait "$server" 2>/dev/null || true; rm -rf "$folder"' EXIT
for _ in {1..100}; do
    [ ! -s "$folder/number" ] || break
    sleep 0.1
done
[ -s "$folder/number" ] || { cat "$folder/log" >&2; exit 1; }
status=0
DISPLAY=":$(cat "$folder/number")" QT_QPA_PLATFORM=xcb QT_QPA_PLATFORMTHEME=gnome XDG_CURRENT_DESKTOP=GNOME \
    TAVO_THEME_TAKES_RETURN=1 "$@" || status=$?
exit "$status"
