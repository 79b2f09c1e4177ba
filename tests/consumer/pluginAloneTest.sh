#!/usr/bin/env bash
# Our plug-in, built alone against the installed SDK, does its work in the installed host.
#   pluginAloneTest.sh PREFIX BUILD-FOLDER
source "$(dirname "${BASH_SOURCE[0]}")/../house/support.sh"
prefix=$1 build=$2

file scene.wrl <<'T'
#VRML V2.0 utf8
DEF Door TimeSensor { cycleInterval 2 }
DEF Frame Transform { children [ DEF Lamp TimeSensor { } ] }
T

run "$prefix/bin/kthost" --headless --plugin "$build/lib/kthost/plugins/libktAnimation.so" "$tree/scene.wrl" --list
expect_status 0
expect_out $'Door\nLamp'

# Scripts find it too, and the installed interpreter its library.
if [ -e "$prefix/lib/kthost/python" ]; then
    file names.py <<<'import json; print json.dumps(getAnimations())'
    run "$prefix/bin/kthost" --headless --plugin "$build/lib/kthost/plugins/libktAnimation.so" "$tree/scene.wrl" \
        --script "$tree/names.py"
    expect_status 0
    expect_line '["Door", "Lamp"]'
fi

[ ! -e "$build/bin/kthost" ] || complain "expected that the host was not built along with it"
finish
