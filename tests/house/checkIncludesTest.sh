#!/usr/bin/env bash
# tools/check-includes lets through what the drawing of the house allows, and names every line that goes another way.
source "$(dirname "${BASH_SOURCE[0]}")/support.sh"
check=$source_root/tools/check-includes

file module/good.cpp <<'T'
#include "module/good.h"
#include "sibling.h"
#include "registry/records.h"
#include <kt/ktMessage.h>
#include <osg/Node.h>
#include <qkt/QKTWheelPrec.h>
#include <Qt>
#include <QString>
#include <QtCore/QFile>
#include <qglobal.h>
#include <boost/any.hpp>
#include <string>
// #include "host/app/window/MainWindow.h"
T
file host/vrml/good.cpp <<<'#include <Inventor/SoDB.h>'
file host/scripting/good.cpp <<<'#include <boost/python.hpp>'
file python/good.cpp <<<'#include <Python.h>'
file sdk/src/kt/good.cpp <<<'#include "kt/NameIndex_p.h"'
file tests/host/free.cpp <<<'#include <Inventor/SoDB.h>'

run "$check" "$tree"
expect_status 0
expect_out ""

file panel/host.cpp <<<'#include "host/app/window/MainWindow.h"'
file panel/private.cpp <<<'#include "kt/NameIndex_p.h"'
file module/python.cpp <<<'#include <boost/python.hpp>'
file sdk/src/osg/qt.cpp <<'T'
#include <string>
  #  include <QString>
T
file sdk/include/osg/kt.h <<<'#include <kt/ktMessage.h>'
file sdk/src/kt/plugin.cpp <<<'#include "module/ktAnimation.h"'
file sdk/include/kt/host.h <<<'#include "host/vrml/SceneFile.h"'
file host/app/coin.cpp <<<'#include <Inventor/Qt/SoQt.h>'
file host/project/coin.cpp <<<'#include <Inventor/SoDB.h>'
file host/app/plugin.cpp <<<'#include "registry/records.h"'
file host/view/relative.cpp <<<'#include "../app/MainWindow.h"'
file listwidget/stranger.cpp <<<'#include <json/json.h>'
file examples/plugin/host.cpp <<<'#include "host/app/window/MainWindow.h"'

run "$check" "$tree"
expect_status 1
expect_line "panel/host.cpp:1: host/app/window/MainWindow.h (host) is out of reach for panel/"
expect_line "panel/private.cpp:1: kt/NameIndex_p.h (sdk_private) is out of reach for panel/"
expect_line "module/python.cpp:1: boost/python.hpp (python) is out of reach for module/"
expect_line "sdk/src/osg/qt.cpp:2: QString (qt) is out of reach for sdk/src/osg/"
expect_line "sdk/include/osg/kt.h:1: kt/ktMessage.h (kt) is out of reach for sdk/include/osg/"
expect_line "sdk/src/kt/plugin.cpp:1: module/ktAnimation.h (plugin) is out of reach for sdk/src/"
expect_line "sdk/include/kt/host.h:1: host/vrml/SceneFile.h (host) is out of reach for sdk/include/"
expect_line "host/app/coin.cpp:1: Inventor/Qt/SoQt.h (coin) is out of reach for host/"
expect_line "host/project/coin.cpp:1: Inventor/SoDB.h (coin) is out of reach for host/project/"
expect_line "host/app/plugin.cpp:1: registry/records.h (plugin) is out of reach for host/"
expect_line "host/view/relative.cpp:1: ../app/MainWindow.h is relative; name it from its top folder"
expect_line "listwidget/stranger.cpp:1: json/json.h is nothing this project depends on"
expect_line "examples/plugin/host.cpp:1: host/app/window/MainWindow.h (host) is out of reach for examples/plugin/"
[ "$(wc -l <<<"$out")" = 13 ] || complain "expected the thirteen bad lines and no other"

finish
