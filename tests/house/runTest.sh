#!/usr/bin/env bash
# ./run in a tree whose tools are stand-ins: when it makes a display, what reaches the program and what it gives back.
source "$(dirname "${BASH_SOURCE[0]}")/support.sh"

source "$source_root/tests/house/standIns.sh"

expect_no_server_left()
{
    [ -e "$XVFB_PID" ] || complain "expected that a display was made"
    kill -0 "$(<"$XVFB_PID")" 2>/dev/null && complain "expected that the display ended with the program"
    rm -f "$XVFB_PID"
}
expect_no_display_made() { [ ! -e "$XVFB_PID" ] || complain "expected that no display was made"; }

# The first call builds; the program's own words are all there is on the standard output.
run "$tree/run" --headless --list "a scene.wrl"
expect_status 0
expect_out $'display none\nword --headless\nword --list\nword a scene.wrl'
expect_err "run: configuring build/release"
expect_no_display_made

# The second call has nothing to do and says nothing.
run "$tree/run" --headless --list
expect_status 0
expect_quiet

# A window needs a display, a picture without a window needs none; the program's status is passed on.
STATUS=4 run "$tree/run" --headless --screenshot=out.png
expect_status 4
expect_line "display none"
expect_no_display_made

STATUS=4 run "$tree/run" door.wrl
expect_status 4
expect_err "run: no display answers"
expect_no_server_left

run "$tree/run"
expect_status 0
expect_out "display :42"$'\n'"word $tree/examples/scenes/courtyard.wrl"
expect_no_server_left

# A display that answers is used; one that does not is not.
DISPLAY=:7 run "$tree/run" door.wrl
expect_out $'display :7\nword door.wrl'
expect_no_display_made
DISPLAY=:8 run "$tree/run" door.wrl
expect_line "display :42"
expect_no_server_left

# The script's own words ask for nothing, and no more do --help and --version.
run "$tree/run" --headless --script a.py -- --screenshot out.png
expect_no_display_made
run "$tree/run" --help
expect_no_display_made
expect_status 0

# The program keeps its standard input on a made display too.
read_it() { echo "from the pipe" | READ=1 "$tree/run" door.wrl; }
run read_it
expect_line "from the pipe"
expect_no_server_left

# A failing step: its words, one clear line, a status of its own.
BROKEN=1 run "$tree/run" --headless --list
expect_status 1
expect_out ""
expect_err "broken.cpp:1: error: no such thing"
expect_err "run: building build/release failed"

# Without package lists they are fetched first; with them they are not.
MISSING=1 run "$tree/run" --headless --list
expect_status 1
expect_out ""
expect_err "run: apt-get update failed: E: Unable to locate package"
stand_in apt-cache <<'T'
#!/bin/sh
printf '%s:\n  Installed: (none)\n  Candidate: 1.0\n' "$2"
T
stand_in apt-get <<'T'
#!/bin/sh
for word; do [ "$word" = update ] && exit 100; done
: >"$INSTALLED"
T
MISSING=1 INSTALLED=$scratch/installed run "$tree/run" --headless --list
expect_status 0
expect_err "run: installing the packages g++ "

finish
