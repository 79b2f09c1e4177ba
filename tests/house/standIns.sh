# Sourced after support.sh by the tests of ./run and ./test: a tree whose tools are stand-ins, first in the PATH.
# MISSING, BROKEN and STATUS in the environment make them fail.
# shellcheck shell=bash

cp -r "$source_root/run" "$source_root/test" "$source_root/tools" "$source_root/CMakePresets.json" "$tree/"
stand_in() { file "bin/$1" && chmod +x "$tree/bin/$1"; }

stand_in dpkg-query <<'T'
#!/bin/sh
[ -n "$MISSING" ] && exit 1
echo installed
T
stand_in apt-get <<'T'
#!/bin/sh
echo "E: Unable to locate package" >&2
exit 100
T
stand_in apt-cache <<<'#!/bin/sh'
stand_in id <<'T'
#!/bin/sh
echo 0
T
stand_in cmake <<'T'
#!/bin/sh
[ -n "$BROKEN" ] && { echo "broken.cpp:1: error: no such thing"; exit 1; }
while [ $# -gt 0 ]; do
    [ "$1" = --preset ] && preset=$2
    shift
done
mkdir -p "build/$preset/bin"
cp "$(dirname "$0")/kthost" "build/$preset/bin/"
touch "build/$preset/build.ninja"
echo "ninja: no work to do."
T
stand_in kthost <<'T'
#!/bin/sh
echo "display ${DISPLAY:-none}"
for word; do echo "word $word"; done
[ -n "$READ" ] && cat
exit ${STATUS:-0}
T
stand_in xdpyinfo <<'T'
#!/bin/sh
[ "$DISPLAY" = :7 ]
T
stand_in Xvfb <<'T'
#!/bin/sh
echo $$ >"$XVFB_PID"
echo 42 >&3
exec 3>&-
exec tail -f /dev/null
T
export PATH=$tree/bin:$PATH XVFB_PID=$scratch/xvfb STATUS='' BROKEN='' MISSING='' READ=''
export KT_SCRIPTING=OFF
unset DISPLAY WAYLAND_DISPLAY KT_PRESET
