# Sourced by the tests of the scripts: a tree to work in, and what is expected of a command.
# shellcheck shell=bash
set -uo pipefail

source_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
scratch=$(mktemp -d) || exit 1
trap 'rm -rf "$scratch"' EXIT
tree=$scratch/tree && mkdir "$tree"
failures=0

# run COMMAND...: its output goes to $out and $err, its exit status to $status.
run()
{
    "$@" >"$scratch/out" 2>"$scratch/err" </dev/null
    status=$?
    out=$(<"$scratch/out")
    err=$(<"$scratch/err")
}

# file PATH: a file of the tree with what comes in.
file()
{
    mkdir -p "$tree/$(dirname "$1")" && cat >"$tree/$1"
}

complain()
{
    printf '%s\n--- status %s\n--- out\n%s\n--- err\n%s\n' "$*" "$status" "$out" "$err" >&2
    failures=$((failures + 1))
}

expect_status() { [ "$status" = "$1" ] || complain "expected status $1"; }
expect_out() { [ "$out" = "$1" ] || complain "expected on the standard output: $1"; }
expect_line() { grep -qxF -- "$1" <<<"$out" || complain "expected the line: $1"; }
expect_err() { grep -qF -- "$1" <<<"$err" || complain "expected on the standard error stream: $1"; }
expect_quiet() { [ -z "$err" ] || complain "expected nothing on the standard error stream"; }

finish() { [ $failures = 0 ]; exit; }
