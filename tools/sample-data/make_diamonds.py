#!/usr/bin/python3
"""Makes TS/Sample Chart.l25 from the model in diamonds.csv.

A row says when the stream sets in towards the flood direction (hours from
high water at the port), how long it lasts, where it runs both ways, how fast
at springs, and how much of it turns round the compass instead of stopping
(the share of the cross stream; the sense is clockwise).  Each way the rate
rises and falls as a sine.  Neap rates stand to spring rates as the port's
neap range to its spring range.  The figures are illustrative.
"""
import csv
import json
import math
import os
import sys

import make_ports
import records

CHART_NUMBER = 9999
TIDE_HOURS = 12.42


def stream(row, hour):
    """Direction and spring rate at an hour from high water."""
    begins, lasts, flood, ebb, flood_rate, ebb_rate, turning = (
        float(row[key]) for key in ("begins", "lasts", "flood", "ebb",
                                    "flood_rate", "ebb_rate", "turning"))
    since = (hour - begins) % TIDE_HOURS
    if since < lasts:
        angle = math.pi * since / lasts
        rate, course = flood_rate * math.sin(angle), flood
    else:
        angle = math.pi * (1 + (since - lasts) / (TIDE_HOURS - lasts))
        rate, course = -ebb_rate * math.sin(angle), ebb
    # The cross stream, to the right of the flood direction.
    across = -turning * (flood_rate + ebb_rate) / 2 * math.cos(angle)
    side = across if course == flood else -across
    return ((course + math.degrees(math.atan2(side, rate))) % 360.0,
            math.hypot(rate, side))


def columns(row, neap_share):
    directions, springs, neaps = [0.0], [0.0], [0.0]
    for hour in range(-6, 7):
        direction, rate = stream(row, hour)
        spring = round(rate, 1)
        neap = round(rate * neap_share, 1)
        slack = spring == 0
        directions.append(0.0 if slack else float(round(direction) % 360))
        springs.append(spring)
        neaps.append(neap)
    return directions + springs + neaps


def load():
    path = os.path.join(os.path.dirname(os.path.abspath(__file__)),
                        "diamonds.csv")
    with open(path, encoding="utf-8") as stream_:
        return list(csv.DictReader(stream_))


def main(program, build):
    with open(os.path.join(build, "ports.json")) as stream_:
        ports = json.load(stream_)
    data = b""
    rows = load()
    for number, row in enumerate(rows, 1):
        name = row["port"]
        m2, s2 = ports[name]["M2"][0], ports[name]["S2"][0]
        springs, neaps = round(2 * (m2 + s2), 1), round(2 * (m2 - s2), 1)
        data += records.DIAMOND.pack(
            CHART_NUMBER, number,
            make_ports.REFERENCE_PORTS.index(name) + 1, springs, neaps,
            float(row["latitude"]), float(row["longitude"]),
            *columns(row, neaps / springs))
    records.write(os.path.join(program, "TS", "Sample Chart.l25"), data)
    print("%d diamonds" % len(rows))


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2])
