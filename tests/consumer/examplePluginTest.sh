#!/usr/bin/env bash
# The example plug-in, built outside, does its work in the installed host.
#   examplePluginTest.sh PREFIX BUILD-FOLDER
source "$(dirname "${BASH_SOURCE[0]}")/../house/support.sh"
prefix=$1 build=$2

file scene.wrl <<'T'
#VRML V2.0 utf8
DEF Door TimeSensor { cycleInterval 2 }
DEF Lamp TimeSensor { }
DEF Frame Transform { children [ DEF Lamp Group { } ] }
T

run "$prefix/bin/kthost" --headless --plugin "$build/libnodeCounter.so" "$tree/scene.wrl" \
    --send nodeCount=Lamp --send nodeCount=Window
expect_status 0
grep -qE '^[1-9][0-9]* nodes, 2 called "Lamp"$' <<<"$out" || complain "expected the count of both nodes"
grep -qE '^[1-9][0-9]* nodes, 0 called "Window"$' <<<"$out" || complain "expected that no node fits"

# What the host reads files with came along.
for program in kthost-scene-check kthost-image-reader; do
    [ -x "$(find "$prefix" -name "$program")" ] || complain "expected $program among the installed files"
done

# Without it nobody knows the message.
run "$prefix/bin/kthost" --headless "$tree/scene.wrl" --send nodeCount=Lamp
grep -q 'called' <<<"$out" && complain "expected that the plug-in's message is the plug-in's"

# A library that is no plug-in is refused with the status that says so.
run "$prefix/bin/kthost" --headless --plugin "$prefix/lib/libktHost.so" "$tree/scene.wrl"
expect_status 6

finish
