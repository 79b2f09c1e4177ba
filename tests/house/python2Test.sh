#!/usr/bin/env bash
# ./run sets Python 2.7 up: where from, only once, without touching the machine's apt; and does without where it fails.
source "$(dirname "${BASH_SOURCE[0]}")/support.sh"

source "$source_root/tests/house/standIns.sh"

unset KT_SCRIPTING
export KT_APT_ETC=$tree/etc KT_DEBIAN_KEYRING=$tree/keyring.gpg CALLS=$scratch/calls GOOD=http://good.example/debian
file keyring.gpg </dev/null

# apt that has the packages at $GOOD only; it notes what it was asked for and with which settings.
stand_in apt-get <<'T'
#!/bin/sh
while [ $# -gt 0 ]; do
    case $1 in
        -c) settings=$2; shift ;;
        update | download | source) action=$1; break ;;
    esac
    shift
done
work=$(sed -n 's/^Dir::State "\(.*\)\/state";$/\1/p' "$settings")
echo "$*" >>"$CALLS"
cat "$settings" "$work/sources.list" >>"$CALLS"
grep -q "$GOOD" "$work/sources.list" || { echo "E: nothing at this mirror" >&2; exit 100; }
case $action in
    download) : >libpython2.7.deb ;;
    source) : >boost1.74_1.74.0.orig.tar.xz ;;
esac
T
stand_in dpkg <<'T'
#!/bin/sh
mkdir -p "$3/usr/lib/python2.7" && echo "unpacked $2" >>"$CALLS"
T
stand_in tar <<'T'
#!/bin/sh
echo "tar $*" >>"$CALLS"
T

# make_sources NAME: the machine's sources, from what comes in; nothing else is there.
make_sources() { rm -rf "$tree/etc" "$tree/build" "$CALLS"; file "etc/$1"; }
expect_call() { grep -qF -- "$1" "$CALLS" || complain "expected in the calls: $1"; }
expect_made() { [ -e "$tree/build/python2/ready" ] || complain "expected that build/python2 was made"; }

# One line a source: options, several suites, comments.
make_sources sources.list <<'T'
# deb http://comment.example/debian bookworm main
deb cdrom:[Debian]/ bookworm main
deb http://security.example/debian-security bookworm-security main
deb [arch=amd64 signed-by=/some/where.gpg] http://good.example/debian bookworm contrib main # ours
T
run "$tree/run" --headless
expect_status 0
expect_made
expect_call "deb [signed-by=$KT_DEBIAN_KEYRING] http://good.example/debian bullseye main"
expect_call "deb-src [signed-by=$KT_DEBIAN_KEYRING] http://good.example/debian bullseye main"
expect_call "Dir::State \"$tree/build/python2/fetched/state\";"
expect_call "Dir::Cache \"$tree/build/python2/fetched/cache\";"
expect_call "Dir::Etc::SourceParts \"/dev/null\";"
expect_call "#clear APT::Update::Post-Invoke;"
expect_call "source --download-only --tar-only boost1.74"
grep -qE 'comment|security.example|cdrom' "$CALLS" && complain "expected that only the release's own mirror is asked"

# Made once: the second call asks nobody and says nothing.
: >"$CALLS"
run "$tree/run" --headless
expect_status 0
expect_quiet
[ ! -s "$CALLS" ] || complain "expected no further call"

# Sources in stanzas, with values over several lines; one mirror after the other is tried.
make_sources sources.list.d/debian.sources <<'T'
Types: deb
URIs: http://bad.example/debian
 http://good.example/debian
Suites: bookworm bookworm-updates
Components: main
Signed-By: /some/where.gpg

Enabled: no
Types: deb
URIs: http://disabled.example/debian
Suites: bookworm
Components: main

Types: deb
URIs: http://security.example/debian-security
Suites: bookworm-security
Components: main
T
run "$tree/run" --headless
expect_status 0
expect_made
expect_call "http://bad.example/debian bullseye main"
expect_call "http://good.example/debian bullseye main"
grep -qE 'disabled|security.example' "$CALLS" && complain "expected that only mirrors in use are asked"

# Where nothing helps, one line says what was tried, and everything else is built.
make_sources sources.list <<<"deb http://bad.example/debian bookworm main"
run "$tree/run" --headless
expect_status 0
expect_line "word --headless"
[ "$(grep -c 'without scripting' <<<"$err")" = 1 ] || complain "expected one line about it"
expect_err "tried the suite bullseye of http://bad.example/debian: E: nothing at this mirror"
expect_err "KT_PYTHON2_ROOT=PREFIX"

# An installed Python needs the sources of Boost.Python alone.
make_sources sources.list <<<"deb http://good.example/debian bookworm main"
KT_PYTHON2_ROOT=$scratch/python run "$tree/run" --headless
expect_status 0
expect_made
expect_call "boost1.74"
grep -q '^download' "$CALLS" && complain "expected that no Python was fetched"

# Scripting that is not wanted is not set up.
make_sources sources.list <<<"deb http://good.example/debian bookworm main"
KT_SCRIPTING=OFF run "$tree/run" --headless
expect_status 0
[ ! -e "$tree/build/python2" ] || complain "expected that nothing was set up"

finish
