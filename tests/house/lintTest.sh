#!/usr/bin/env bash
# tools/lint finds what is formatted, guarded or sized otherwise than the house does it.
source "$(dirname "${BASH_SOURCE[0]}")/support.sh"
mkdir -p "$tree/tools" && cp "$source_root/tools/lint" "$tree/tools/" && cp "$source_root/.clang-format" "$tree/"
lint=$tree/tools/lint

file sdk/good.h <<'T'
#pragma once

/// Nothing.
struct Good
{
    int value = 0;
};
T
run "$lint"
expect_status 0

file sdk/unguarded.h <<<'struct Unguarded;'
run "$lint"
expect_status 1
expect_err "sdk/unguarded.h:1: no #pragma once"
rm "$tree/sdk/unguarded.h"

{ echo '#pragma once'; yes '// A line.' | head -n 300; } | file sdk/long.h
run "$lint"
expect_status 1
expect_err "sdk/long.h:301: longer than 300 lines"
rm "$tree/sdk/long.h"

clang-format --version | grep -q 'version 14\.' || { echo "another clang-format: the format is not tested"; finish; }
file sdk/crooked.cpp <<<'int  crooked( ) { return 0 ; }'
run "$lint"
expect_status 1
expect_err "sdk/crooked.cpp:1"

run "$lint" --fix
expect_status 0
run "$lint"
expect_status 0

finish
