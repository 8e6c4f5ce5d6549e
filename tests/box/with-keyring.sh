#!/bin/sh
# Runs a command on a private session bus with an unlocked gnome-keyring of its own, so that tests
# use a real secret service without touching the user's keyring.
set -eu
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT INT TERM
mkdir -p "$home/data" "$home/config" "$home/runtime"
chmod 700 "$home/runtime"
export HOME="$home" XDG_DATA_HOME="$home/data" XDG_CONFIG_HOME="$home/config" XDG_RUNTIME_DIR="$home/runtime"
# Keeps TestSupport::isolateUserFolders() from cutting the private bus.
export CORVANDEL_TEST_KEYRING=1
# gnome-keyring creates the login keyring (the default collection) only for a non-empty unlock
# password; without one, every write would wait for a prompt that cannot appear here.
dbus-run-session -- sh -c '
    printf "corvandel-test" | gnome-keyring-daemon --unlock --components=secrets >/dev/null
    # Wait until the secret service owns its name on the bus.
    for i in $(seq 50); do
        if dbus-send --session --print-reply --dest=org.freedesktop.DBus /org/freedesktop/DBus \
            org.freedesktop.DBus.NameHasOwner string:org.freedesktop.secrets 2>/dev/null | grep -q true; then
            break
        fi
        sleep 0.1
    done
    "$@"
' sh "$@"
