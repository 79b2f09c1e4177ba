#!/usr/bin/env bash
# tools/check-paths names every line that holds a place of one machine. The bad paths are put together here, so that
# this file passes the check itself.
source "$(dirname "${BASH_SOURCE[0]}")/support.sh"
check=$source_root/tools/check-paths
home=/ho'me'/someone
scrap=/tm'p'/out.png

file good.txt <<'T'
#!/usr/bin/env bash
build/tmp/x and ${prefix}/home/x and examples/home/door.wrl
T
file build/ignored.txt <<<"$home"
run "$check" "$tree"
expect_status 0

file docs/a.md <<<"see $home/kt"
file code.cpp <<T

open("$scrap");
T
run "$check" "$tree"
expect_status 1
expect_line "./docs/a.md:1:see $home/kt"
expect_line "./code.cpp:2:open(\"$scrap\");"

finish
