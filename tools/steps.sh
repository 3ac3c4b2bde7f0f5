# Sourced by the set-up scripts: a step with visible progress and a log of its own.
# shellcheck shell=bash

ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
BUILD=$ROOT/build
STAMPS=$BUILD/stamps
LOGS=$BUILD/logs
mkdir -p "$STAMPS" "$LOGS"

# The last line of the log, cut to the width that a progress line can hold.
last_line() {
    tail -c 2000 "$1" 2>/dev/null | tr '\r' '\n' | grep -v '^[[:space:]]*$' | tail -n 1 | cut -c 1-88
}

# step NAME TITLE COMMAND...: runs the command with its output in build/logs/NAME.log and shows how
# far it is: in place on a terminal, a line every 15 seconds elsewhere. Ends the script on failure
# with the end of the log.
step() {
    local name=$1 title=$2 log started pid waited=0 status=0
    shift 2
    log=$LOGS/$name.log
    started=$SECONDS
    printf '== %s\n' "$title"
    # A process group of its own, so that Ctrl+C ends the step with all that it runs.
    set -m
    "$@" >"$log" 2>&1 </dev/null &
    pid=$!
    set +m
    trap 'kill -- -"$pid" 2>/dev/null; exit 130' INT TERM
    while kill -0 "$pid" 2>/dev/null; do
        sleep 0.2
        waited=$((waited + 1))
        if [ -t 1 ]; then
            printf '\r\033[K   %3d s  %s' $((SECONDS - started)) "$(last_line "$log")"
        elif [ $((waited % 75)) -eq 0 ]; then
            printf '   %3d s  %s\n' $((SECONDS - started)) "$(last_line "$log")"
        fi
    done
    wait "$pid" || status=$?
    trap - INT TERM
    [ -t 1 ] && printf '\r\033[K'
    if [ "$status" -ne 0 ]; then
        printf '** failed: %s (exit code %d). End of %s:\n' "$title" "$status" "${log#"$ROOT"/}" >&2
        tail -n 30 "$log" >&2
        exit 1
    fi
    printf '   %3d s  done\n' $((SECONDS - started))
}

# Whether the stamp NAME was written for just these inputs (files and words).
fresh() { [ -f "$STAMPS/$1" ] && [ "$(cat "$STAMPS/$1")" = "$2" ]; }
stamp() { printf '%s' "$2" >"$STAMPS/$1"; }
digest() { cat "$@" | sha256sum | cut -d ' ' -f 1; }
