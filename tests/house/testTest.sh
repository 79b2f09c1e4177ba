#!/usr/bin/env bash
# ./test in a tree whose tools are stand-ins: which builds it tests, what it counts, and how it ends.
source "$(dirname "${BASH_SOURCE[0]}")/support.sh"
source "$source_root/tests/house/standIns.sh"

# Its report: one test of each outcome that REPORT names.
stand_in ctest <<'T'
#!/bin/sh
echo "ctest $* on ${DISPLAY:-none}, Qt on ${QT_QPA_PLATFORM:-its own choice}"
while [ "$1" != --output-junit ]; do shift; done
{
    echo '<testsuite name="x" tests="9" failures="9">'
    for outcome in $REPORT; do
        case $outcome in
            run | fail | disabled) printf '\t<testcase name="a" status="%s">\n' $outcome ;;
            skip) printf '\t<testcase name="a" status="notrun">\n\t\t<skipped message="SKIP_REGULAR_EXPRESSION_MATCHED"/>\n' ;;
            lost) printf '\t<testcase name="a" status="notrun">\n\t\t<skipped message="Unable to find executable"/>\n' ;;
        esac
    done
} >"$2"
exit ${STATUS:-0}
T
for tool in lint check-includes check-paths check-headers; do
    file tools/$tool <<T
#!/bin/sh
echo "$tool ran"
[ "\$BAD_CHECK" != $tool ]
T
done
export REPORT='run run' BAD_CHECK='' QT_QPA_PLATFORM=offscreen

# All of it: both builds, each on a display of its own making, then the four checks.
run "$tree/test"
expect_status 0
expect_out "8 passed, 0 failed"
expect_err "--preset dev --output-junit $tree/build/dev/tests.xml on :42, Qt on its own choice"
expect_err "--preset asan --output-junit $tree/build/asan/tests.xml on :42"
expect_err "check-headers ran"

# A choice: the plain build alone, unless told otherwise, and no checks.
run "$tree/test" -L unit -R 'a b'
expect_out "2 passed, 0 failed"
expect_err "-L unit -R a b"
run "$tree/test" -R x --asan
expect_out "4 passed, 0 failed"

# What is left out is neither passed nor failed; what could not be started is failed.
REPORT='run skip disabled fail lost' STATUS=8 run "$tree/test" -L unit
expect_status 1
expect_out "1 passed, 2 failed, 2 skipped"

# CTest's own failure counts, such as a choice that fits no test.
REPORT='' STATUS=8 run "$tree/test" -R none
expect_status 1
expect_out "0 passed, 1 failed"

BAD_CHECK=lint run "$tree/test"
expect_status 1
expect_out "7 passed, 1 failed"

# A build that fails ends it without a count.
BROKEN=1 run "$tree/test"
expect_status 1
expect_out ""
expect_err "test: building build/dev failed"

run "$tree/test" --frobnicate
expect_status 2
expect_err "test: usage: ./test"
run "$tree/test" -L
expect_status 2

finish
