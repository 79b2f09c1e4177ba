# Opens scenes and projects again and again, also such as do not open, and lets each run for a moment.
#   kthost --headless --plugin ... --script loads.py -- LOADS EVERY FOLDER FILES...
# Each EVERY loads there is a record; FOLDER takes the projects that are saved now and then.
import os
import random
import sys

import ktHost

loads, every, folder, files = int(sys.argv[1]), int(sys.argv[2]), sys.argv[3], sys.argv[4:]
choice = random.Random(7)
refused = 0
for i in range(1, loads + 1):
    if choice.random() < 0.05:
        ktHost.save(os.path.join(folder, "saved%d.ktproj" % choice.randrange(5)))
    projects = [os.path.join(folder, name) for name in sorted(os.listdir(folder)) if name.endswith(".ktproj")]
    try:
        ktHost.open(choice.choice(files + projects))
    except ktHost.Error:
        refused += 1
    for sensor in ktHost.sensors():
        ktHost.sendMessage("animationStart", animation=sensor["name"])
    ktHost.advance(0.1)
    if i % every == 0:
        ktHost.sendMessage("soakRecord", animation=str(i))
print "%d loads, %d refused" % (loads, refused)
