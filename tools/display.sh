# Sourced after tools/setup.sh: finds out whether a display answers, and makes one where none does.
# shellcheck shell=bash

# display_answers: $DISPLAY names an X server that lets us in.
display_answers()
{
    [ -n "${DISPLAY:-}" ] || return 1
    command -v xdpyinfo >/dev/null || return 0
    timeout 10 xdpyinfo >/dev/null 2>&1
}

# start_display: starts Xvfb on a free display number, exports DISPLAY, and ends it when the script ends.
start_display()
{
    command -v Xvfb >/dev/null || fail "there is no display, and no Xvfb to make one"
    local pipe number
    pipe=$(mktemp -u) && mkfifo -m 600 "$pipe" || fail "cannot make a pipe to Xvfb"
    # A session of its own: Ctrl-C is for the program, which still needs its display to close.
    setsid Xvfb -displayfd 3 -screen 0 1600x1200x24 -nolisten tcp 3>"$pipe" >/dev/null 2>&1 </dev/null &
    kt_display_server=$!
    trap end_display EXIT
    read -r -t 30 number <"$pipe"
    rm -f "$pipe"
    [ -n "$number" ] || fail "Xvfb did not start"
    export DISPLAY=:$number
    unset WAYLAND_DISPLAY
}

end_display()
{
    [ -n "${kt_display_server:-}" ] || return 0
    kill "$kt_display_server" 2>/dev/null
    wait "$kt_display_server" 2>/dev/null
    kt_display_server=
}
