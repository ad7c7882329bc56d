#!/usr/bin/python3
"""Makes HarmTS/Sample Chart.l27 from an export of the tidal streams.

  make_harmonics.py CLI EXPORT_FOLDER RESULT
  make_harmonics.py --compare CLI EXPORT_FOLDER STATIONS

The export folder holds the "-X.txt" and "-Y.txt" files that CLI, the program's
command line, writes by "export streams".  For each component the constants of
M2, S2, K1 and O1 are worked out by least squares of what the program predicts
from such constants: their arguments and factors come from CLI's command
"constituents".  A component is a sum of

  (F + hours * rate of F) * hm * cos(g + V - hours * speed)

over the four, which is linear in hm cos g and hm sin g.  The first record is
empty, since the chart does not show it.  With --compare nothing is written:
the stations are held against an export, of another month say.
"""
import glob
import json
import math
import os
import subprocess
import sys

import numpy

import records

GROUPS = (("M2", 600.0), ("S2", 600.0), ("K1", 300.0), ("O1", 300.0))


def read_series(path):
    """Position and [(date, hour, value)] of an export file."""
    with open(path, newline="") as stream:
        lines = stream.read().split("\r\n")
    latitude, longitude = lines[0].split(",")
    readings = []
    for line in lines[1:]:
        if line:
            date, clock, value = line.split(",")
            readings.append((date.replace("/", "-"), int(clock[:2]),
                             float(value)))
    return float(latitude), float(longitude), readings


def constituents(cli, date):
    return json.loads(subprocess.run(
        [cli, "--json", "constituents", "--date", date],
        check=True, stdout=subprocess.PIPE).stdout)


def next_day(date):
    return str(numpy.datetime64(date) + 1)


def speed_of(turn, least):
    while turn <= least:
        turn += 360.0
    return turn / 24.0


def design(cli, days):
    """For each day 24 rows of 8 columns: the parts of hm cos g and hm sin g."""
    table = {}
    known = {}
    for date in days:
        for needed in (date, next_day(date)):
            if needed not in known:
                known[needed] = constituents(cli, needed)
        here, there = known[date], known[next_day(date)]
        rows = numpy.zeros((24, 8))
        for column, (group, least) in enumerate(GROUPS):
            v, f = here["V" + group], here["F" + group]
            speed = speed_of(v - there["V" + group], least)
            rate = (there["F" + group] - f) / 24.0
            for hour in range(24):
                hours = hour if hour > 0 else 1.0 / 60.0
                angle = math.radians(v - hours * speed)
                factor = f + hours * rate
                rows[hour, 2 * column] = factor * math.cos(angle)
                rows[hour, 2 * column + 1] = -factor * math.sin(angle)
        table[date] = rows
    return table


def load(cli, folder):
    """[(reference, latitude, longitude, X values, Y values)] and the rows."""
    stations = []
    table = None
    paths = glob.glob(os.path.join(glob.escape(folder), "*-X.txt"))
    for path in sorted(paths, key=lambda p: [int(n) for n in os.path.basename(
            p)[:-len("-X.txt")].split("-")]):
        reference = os.path.basename(path)[:-len("-X.txt")]
        latitude, longitude, east = read_series(path)
        north = read_series(path[:-len("X.txt")] + "Y.txt")[2]
        moments = [reading[:2] for reading in east]
        if moments != [reading[:2] for reading in north]:
            raise ValueError("%s: X and Y are of other times" % reference)
        if table is None:
            first = moments
            table = design(cli, sorted({date for date, _ in moments}))
            rows = numpy.array([table[date][hour] for date, hour in moments])
        elif moments != first:
            raise ValueError("%s: other times than the first" % reference)
        stations.append((reference, latitude, longitude,
                         numpy.array([reading[2] for reading in east]),
                         numpy.array([reading[2] for reading in north])))
    if not stations:
        raise ValueError("no export in " + folder)
    return stations, rows


def constants(rows, values):
    """[(hm, g)] of the four groups."""
    found = numpy.linalg.lstsq(rows, values, rcond=None)[0]
    pairs = []
    for cos_part, sin_part in found.reshape(4, 2):
        pairs.append((math.hypot(cos_part, sin_part),
                      math.degrees(math.atan2(sin_part, cos_part)) % 360.0))
    return pairs


def half(reference, pairs):
    """What a component has in a record, behind the position."""
    (m2, s2, k1, o1) = pairs
    return (records.text(reference, 12), 0.0, *m2, 0.0, 0.0, *s2, *k1, *o1,
            0.0, 0.0, 0.0, 0.0)


def prediction(rows, halves):
    pairs = (halves[2:4], halves[6:8], halves[8:10], halves[10:12])
    parts = []
    for hm, g in pairs:
        parts += [hm * math.cos(math.radians(g)), hm * math.sin(math.radians(g))]
    return rows @ numpy.array(parts)


def compare(stations, rows, data):
    """RMS of the vector difference, knots, and of the stream, by station."""
    by_name = {}
    for record in data:
        by_name[record[3].decode("cp1252").strip()] = record
    misses, runs = [], []
    for reference, _, _, east, north in stations:
        record = by_name[reference]
        x = prediction(rows, record[3:19])
        y = prediction(rows, record[19:35])
        misses.append(math.sqrt(numpy.mean((x - east) ** 2
                                           + (y - north) ** 2)))
        runs.append(math.sqrt(numpy.mean(east ** 2 + north ** 2)))
    worst = int(numpy.argmax(misses))
    print("%d stations: RMS %.2f kn of %.2f kn, worst %.2f kn of %.2f kn at %s"
          % (len(stations), math.sqrt(numpy.mean(numpy.square(misses))),
             math.sqrt(numpy.mean(numpy.square(runs))), misses[worst],
             runs[worst], stations[worst][0]))


def main(arguments):
    comparing = arguments[0] == "--compare"
    cli, folder, path = arguments[1:] if comparing else arguments
    stations, rows = load(cli, folder)
    if not comparing:
        data = b"\0" * records.HARMONIC_STATION.size
        for reference, latitude, longitude, east, north in stations:
            data += records.HARMONIC_STATION.pack(
                latitude, longitude, 0.0,
                *half(reference, constants(rows, east)),
                *half(reference, constants(rows, north)))
        os.makedirs(os.path.dirname(path), exist_ok=True)
        records.write(path, data)
    compare(stations, rows,
            records.read(path, records.HARMONIC_STATION)[1:])


if __name__ == "__main__":
    main(sys.argv[1:])
