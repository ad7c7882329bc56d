#!/usr/bin/python3
"""Makes the sample routes from routes.csv."""
import csv
import os
import sys

import records


def load():
    path = os.path.join(os.path.dirname(os.path.abspath(__file__)),
                        "routes.csv")
    routes = {}
    with open(path, encoding="utf-8") as stream:
        for row in csv.DictReader(stream):
            routes.setdefault(row["file"], []).append(row)
    return routes


def main(program):
    folder = os.path.join(program, "Samples")
    os.makedirs(folder, exist_ok=True)
    routes = load()
    for name, rows in routes.items():
        records.write(
            os.path.join(folder, name + ".rte"),
            b"".join(records.ROUTE_POINT.pack(
                records.text(row["name"], 35), float(row["latitude"]),
                float(row["longitude"]), float(row["speed"]))
                for row in rows))
    print("%d routes" % len(routes))


if __name__ == "__main__":
    main(sys.argv[1])
