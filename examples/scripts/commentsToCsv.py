# Writes what the user added to the animations as a table: name, comment, start and stop hotkey.
#   kthost --headless PROJECT --script commentsToCsv.py -- TABLE.csv
import csv
import sys

import ktHost

if len(sys.argv) != 2:
    sys.exit("usage: commentsToCsv.py TABLE.csv")

# The project holds four strings for each animation, one after the other, as UTF-8.
strings = ktHost.project().get("Animations", [])
rows = [strings[i:i + 4] for i in range(0, len(strings), 4)]

with open(sys.argv[1], "wb") as table:
    writer = csv.writer(table)
    writer.writerow(["name", "comment", "start", "stop"])
    writer.writerows(rows)
