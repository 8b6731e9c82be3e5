# For the scripts beside it, which source it: the project's folder, and one line per step.
# shellcheck shell=bash

set -euo pipefail

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$project"

# step "What is done" command...: quiet when the command succeeds, its whole output when it fails.
step() {
    local title=$1 log status=0
    shift
    log=$(mktemp)
    printf '%s ... ' "$title"
    "$@" >"$log" 2>&1 </dev/null || status=$?
    if [ "$status" -eq 0 ]; then
        echo "ok"
    else
        echo "failed ($status)"
        cat "$log"
    fi
    rm -f "$log"
    return "$status"
}

# build_preset name [target...]
build_preset() {
    local preset=$1
    shift
    cmake --preset "$preset" && cmake --build --preset "$preset" ${1:+--target "$@"}
}

# as_root command...: with sudo where that is needed.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}
