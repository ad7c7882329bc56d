#!/usr/bin/env python3
"""Writes program/Polars.db: four set-ups of made-up boats, from a simple model. They are there to
try the program with and are no boat's polars.

The model. In a wind of w knots, on its best point of sailing, a boat makes

    top(w) = cruise * (1 - exp(-(w / rise)^1.3)) + surf * (1 - exp(-max(0, w - 14) / 10))

knots: it gathers way quickly in light air and then comes up to its hull speed; a light hull gains
on top of that as it begins to surf. At the true wind angle a the part of it is

    shape(a, w) = (1 - exp(-(a - closest) / opening)) * (1 - sag(w) * max(0, (a - best) / (180 - best))^2)

which rises from nothing at the angle `closest`, above which the boat does not sail, is flat about
`best`, and falls off before the wind, less so the more it blows: sag(w) = lee * exp(-w / 16).
Without wind the boat does not move.
"""
import math
import os
import sqlite3

# name, knots: cruise, rise, surf; degrees: closest, opening, best; lee
BOATS = [
    ("Cruising sloop 10 m", 7.0, 7.0, 0.4, 20, 17, 105, 0.62),
    ("Performance cruiser 12 m", 8.3, 6.0, 1.8, 18, 14, 112, 0.55),
    ("Long-keeler 11 m", 6.7, 9.0, 0.1, 24, 24, 100, 0.60),
    ("Catamaran 12 m", 10.4, 7.5, 3.2, 26, 22, 108, 0.48),
]
WINDS = range(0, 31, 2)
ANGLES = range(30, 181, 5)
COLUMNS = ["windangle", "Wind0kn", "wind2kn", "wind4kn", "wind6kn", "wind8kn", "wind10kn",
           "Wind12kn", "wind14kn", "wind16kn", "wind18kn", "wind20kn", "Wind22kn", "Wind24kn",
           "Wind26kn", "Wind28kn", "Wind30kn"]


def boat_speed(boat, angle, wind):
    _, cruise, rise, surf, closest, opening, best, lee = boat
    top = cruise * (1 - math.exp(-(wind / rise) ** 1.3)) + surf * (1 - math.exp(-max(0, wind - 14) / 10))
    sag = lee * math.exp(-wind / 16)
    shape = 1 - math.exp(-(angle - closest) / opening)
    shape *= 1 - sag * max(0, (angle - best) / (180 - best)) ** 2
    return top * shape


def main():
    path = os.path.join(os.path.dirname(__file__), "..", "..", "program", "Polars.db")
    if os.path.exists(path):
        os.remove(path)
    database = sqlite3.connect(path)
    database.execute("PRAGMA page_size = 4096")
    database.execute("CREATE TABLE SetUps (SetUp TEXT NOT NULL)")
    for boat in BOATS:
        name = boat[0] + " (illustrative)"
        database.execute("INSERT INTO SetUps VALUES (?)", (name,))
        columns = ", ".join('"%s" REAL' % column for column in COLUMNS)
        database.execute('CREATE TABLE "%s" (%s)' % (name, columns))
        for angle in ANGLES:
            row = [angle] + [round(boat_speed(boat, angle, wind), 2) for wind in WINDS]
            database.execute('INSERT INTO "%s" VALUES (%s)' % (name, ", ".join("?" * len(row))),
                             row)
    database.commit()
    database.execute("VACUUM")
    database.close()


if __name__ == "__main__":
    main()
