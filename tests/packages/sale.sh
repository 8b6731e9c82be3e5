# A sale against a simulated device, for the checks of what is installed. Who sources it has koraxsim
# in the path, sets `folder`, and calls stop_simulator at its end.
# shellcheck shell=bash disable=SC2154

simulator=
line=$folder/korax0 # where koraxsim keeps its link
device=$line        # what the application calls it

fail() {
    echo "$*" >&2
    exit 1
}

# expect what wanted found
expect() {
    [ "$2" = "$3" ] || fail "$1: \"$3\" instead of \"$2\""
}

stop_simulator() {
    [ -n "$simulator" ] || return 0
    kill "$simulator" 2>/dev/null || true
    wait "$simulator" || fail "koraxsim ended with $?: $(cat "$folder/paper")"
    simulator=
}

start_simulator() {
    koraxsim --type 10 --link "$line" >"$folder/paper" 2>&1 </dev/null &
    simulator=$!
    for _ in $(seq 100); do
        [ ! -e "$line" ] || return 0
        kill -0 "$simulator" 2>/dev/null || break
        sleep 0.05
    done
    fail "koraxsim did not come up: $(cat "$folder/paper")"
}

# same_total said paper: what the application said and what the device printed.
same_total() {
    local printed
    printed=$(sed -n 's/^S U M A   P L N *//p' "$2" | tr -d ' ')
    [ -n "$printed" ] || fail "No receipt on the paper: $(cat "$2")"
    expect "The application's total" "$printed" "$(sed -n 's/.*total \([0-9,]*\).*/\1/p' "$1")"
}

# sell command...: runs the application, with the device as its last argument.
sell() {
    start_simulator
    "$@" "$device" >"$folder/said" 2>&1 || fail "$*: $(cat "$folder/said")"
    stop_simulator
    same_total "$folder/said" "$folder/paper"
}
