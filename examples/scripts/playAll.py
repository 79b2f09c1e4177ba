# Starts every animation of the scene and lets time pass until the longest has gone through once.
#   kthost --headless SCENE --script playAll.py --dump
import ktHost

names = getAnimations()
for name in names:
    startAnimation(name)

cycles = [sensor["cycleInterval"] for sensor in ktHost.sensors()]
ktHost.advance(max(cycles + [0.0]))
print "played", ", ".join(names) or "nothing"
