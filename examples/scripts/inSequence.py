# Plays animations one after the other, each once: those that are named, or all.
#   kthost --headless SCENE --script inSequence.py -- [ANIMATION...]
import sys

import ktHost


def sensor(name):
    for found in ktHost.sensors():
        if found["name"] == name:
            return found
    sys.exit("there is no animation " + name)


for name in getAnimations():
    stopAnimation(name)
for name in sys.argv[1:] or getAnimations():
    length = sensor(name)["cycleInterval"]
    startAnimation(name)
    print "%s from %.2f s to %.2f s" % (name, ktHost.time(), ktHost.time() + length)
    ktHost.advance(length)
    stopAnimation(name)
