# Follows one animation while time passes, and starts another when the first is half way.
#   kthost --headless SCENE --script reactToTime.py -- FIRST SECOND
import sys

import ktHost

if len(sys.argv) != 3:
    sys.exit("usage: reactToTime.py FIRST SECOND")
first, second = sys.argv[1:]


def sensor(name):
    for found in ktHost.sensors():
        if found["name"] == name:
            return found
    sys.exit("there is no animation " + name)


sensor(second)
resetAnimation(second)
startAnimation(first)
while sensor(first)["fraction"] < 0.5:
    ktHost.advance(0.04)
startAnimation(second)
print "%s is half way at %.2f s, %s starts" % (first, ktHost.time(), second)
