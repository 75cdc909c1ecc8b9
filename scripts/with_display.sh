#!/usr/bin/env bash
# Runs a command on an X display of its own that can be reached over VNC, from this machine only.
#
# usage: scripts/with_display.sh COMMAND [ARGUMENT...]
#
# The server listens on the loopback interface and asks for a password that is new at every start. While it runs, a second
# start uses the same display, so the calendar's window comes forward where it already is.
set -euo pipefail

state="${XDG_RUNTIME_DIR:-/tmp}/tavocalendar-display-$(id -u)"
server=""
manager=""
child=""

# shellcheck disable=SC2317,SC2329 # the trap calls it
clean_up() {
    # The calendar goes first and in peace: it saves what it has before its display goes.
    if [ -n "$child" ] && kill "$child" 2>/dev/null; then
        wait "$child" 2>/dev/null || true
    fi
    [ -z "$manager" ] || kill "$manager" 2>/dev/null || true
    if [ -n "$server" ]; then
        kill "$server" 2>/dev/null || true
        wait "$server" 2>/dev/null || true
        rm -rf "$state"
    fi
}

random_text() { # LENGTH CHARACTERS
    # head ends the pipe early, which is no failure here.
    (set +o pipefail && LC_ALL=C tr -dc "$2" </dev/urandom | head -c "$1")
}

tell() { # PORT PASSWORD
    cat <<TEXT
There is no display here, so the calendar is shown on one of its own.
It is reached over VNC, from this machine only: 127.0.0.1, port $1.

  On this machine:      vncviewer 127.0.0.1::$1
  From another one:     ssh -N -L $1:127.0.0.1:$1 $(id -un)@$(hostname)
                        and there: vncviewer 127.0.0.1::$1
  Password, this once:  $2

The x of a page puts the calendar into the background; ./run once more brings it back. Ctrl+C here ends it.
TEXT
}

is_free() { # NUMBER: neither the display nor its port is taken
    [ ! -e "/tmp/.X11-unix/X$1" ] && [ ! -e "/tmp/.X$1-lock" ] &&
        ! (: <"/dev/tcp/127.0.0.1/$((5900 + $1))") 2>/dev/null
}

if ! mkdir -m 700 "$state" 2>/dev/null; then
    # Only a folder of one's own is trusted: /tmp is everybody's.
    if [ ! -O "$state" ] || [ -L "$state" ]; then
        echo "error: $state belongs to somebody else" >&2
        exit 1
    fi
    if [ -r "$state/pid" ] && [ "$(cat "/proc/$(cat "$state/pid")/comm" 2>/dev/null)" = Xtigervnc ]; then
        echo "Using the display that is already there: port $(cat "$state/port"), password as told at its start."
        number="$(cat "$state/number")"
        export DISPLAY=":$number" XAUTHORITY="$state/xauthority"
        exec "$@"
    fi
    rm -rf "$state"
    mkdir -m 700 "$state"
fi
trap clean_up EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

# start_server NUMBER: false when the server ends at once, as it does when somebody else was quicker.
start_server() {
    number="$1"
    port=$((5900 + number))
    xauth -q -f "$state/xauthority" add ":$number" . "$(random_text 32 '0-9a-f')" 2>/dev/null
    Xtigervnc ":$number" -localhost=1 -rfbport "$port" -SecurityTypes VncAuth -PasswordFile "$state/password" \
        -auth "$state/xauthority" -nolisten tcp -AlwaysShared=1 -AcceptSetDesktopSize=1 \
        -geometry 520x720 -depth 24 -desktop "Tavo Calendar" </dev/null >"$state/log" 2>&1 &
    server=$!
    local _
    for _ in {1..100}; do
        sleep 0.1
        kill -0 "$server" 2>/dev/null || return 1
        if [ -S "/tmp/.X11-unix/X$number" ] && (: <"/dev/tcp/127.0.0.1/$port") 2>/dev/null; then
            return 0
        fi
    done
    return 1
}

password="$(random_text 8 'a-km-zA-HJ-NP-Z2-9')"
tigervncpasswd -f <<<"$password" >"$state/password"
chmod 600 "$state/password"
started=no
for candidate in {10..99}; do
    if is_free "$candidate" && start_server "$candidate"; then
        started=yes
        break
    fi
done
if [ $started = no ]; then
    echo "error: no display from :10 to :99 would start. The last one said:" >&2
    cat "$state/log" >&2
    exit 1
fi
echo "$server" >"$state/pid"
echo "$port" >"$state/port"
echo "$number" >"$state/number"
export DISPLAY=":$number" XAUTHORITY="$state/xauthority"

if command -v matchbox-window-manager >/dev/null; then
    matchbox-window-manager >/dev/null 2>&1 &
    manager=$!
fi
tell "$port" "$password"
status=0
"$@" <&0 &
child=$!
wait "$child" || status=$?
exit "$status"
