#!/usr/bin/env bash
# tools/check-headers compiles each private header with the flags of its neighbours, and names those that need others.
source "$(dirname "${BASH_SOURCE[0]}")/support.sh"
mkdir -p "$tree/tools" "$tree/bin" && cp "$source_root/tools/check-headers" "$tree/tools/"
check=$tree/tools/check-headers

# The public headers are CMake's own check, which a stand-in answers for.
file bin/cmake <<'T'
#!/bin/sh
case "$*" in *"--target all_verify_interface_header_sets"*) exit ${PUBLIC:-0} ;; esac
exit 3
T
chmod +x "$tree/bin/cmake"
export PATH=$tree/bin:$PATH

# As CMake writes it, with the quotes of a definition escaped for the shell and once more for JSON.
file build/dev/compile_commands.json <<T
[
{
  "directory": "$tree/build/dev",
  "command": "c++ -DTEXT=\\\\\\"ab\\\\\\" -I\\"$tree\\" -o a.dir/a.cpp.o -c $tree/module/a.cpp",
  "file": "$tree/module/a.cpp"
},
{
  "directory": "$tree/build/dev",
  "command": "c++ -DHOST=1 -o b.dir/a.cpp.o -c $tree/host/app/a.cpp",
  "file": "$tree/host/app/a.cpp"
}
]
T

file module/good.h <<'T'
#pragma once
inline const char* text() { return TEXT; }
T
file registry/good.h <<'T'
#pragma once
#include "module/good.h"
T
file host/app/deep/good.h <<'T'
#pragma once
static_assert(HOST == 1);
T
run "$check"
expect_status 0

PUBLIC=1 run "$check"
expect_status 1

file host/app/needy.h <<'T'
#pragma once
inline Missing* missing() { return nullptr; }
T
run "$check"
expect_status 1
expect_err "host/app/needy.h: does not compile alone"
rm "$tree/host/app/needy.h"

run "$check" build/nowhere
expect_status 2
expect_err "build/nowhere is not configured"

finish
