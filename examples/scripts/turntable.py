# Takes an animation once through its cycle, with a numbered picture at each of equal parts.
#   kthost --headless SCENE --script turntable.py -- ANIMATION FOLDER [PICTURES]
import os
import sys

import ktHost

if len(sys.argv) not in (3, 4):
    sys.exit("usage: turntable.py ANIMATION FOLDER [PICTURES]")
name, folder = sys.argv[1:3]
pictures = int(sys.argv[3]) if len(sys.argv) == 4 else 36

cycles = [sensor["cycleInterval"] for sensor in ktHost.sensors() if sensor["name"] == name]
if not cycles:
    sys.exit("there is no animation " + name)
if not os.path.isdir(folder):
    os.makedirs(folder)

step = cycles[0] / pictures
startAnimation(name)
for number in range(pictures):
    ktHost.screenshot(os.path.join(folder, "turn-%03d.png" % number), (640, 480))
    ktHost.advance(step, fps=1.0 / step)
