#!/usr/bin/python3
"""Makes TS/UK.hc and RefPorts.hc from stations.json."""
import json
import os
import sys

import records
import tides

# The ports the diamonds may name, in record order.  New ones go at the end:
# a diamond knows its port by this position.
REFERENCE_PORTS = (
    "Dover", "Portsmouth", "Devonport", "Cherbourg", "Saint Malo",
    "St Helier", "Le Havre", "Brest", "Dieppe", "Calais", "Dunkerque",
    "Newlyn", "Milford Haven", "Avonmouth", "Holyhead", "Liverpool",
    "Harwich", "Immingham", "Aberdeen", "Vlissingen", "Hoek van Holland",
    "Dublin", "Galway")
DOVER_RECORD = 76


def pack(number, station, port, reference):
    fields = [records.text(str(number), 5), b"", 0.0,
              station["latitude"], station["longitude"], b"L", port["z0"]]
    for constituent in ("M2", "S2", "K1", "O1"):
        amplitude, lag = port[constituent]
        fields += [lag, amplitude]
    fields += [port["sf4"], port["lf4"], port["sf6"], port["lf6"]]
    fields += port["DeltaZ0"] + port["MHm2"]
    packed = bytearray(records.PORT.pack(*fields))
    # A reference port's name runs on over the depth of an area port.
    width = 35 if reference else 31
    packed[5:5 + width] = records.text(station["name"], width)
    return bytes(packed)


def main(program, build):
    stations = tides.load_stations()
    ports = {}
    for station in stations:
        port = {}
        for key, value in tides.port_constants(station).items():
            port[key] = ([round(item, 4) for item in value]
                         if isinstance(value, (list, tuple))
                         else round(value, 5))
        ports[station["name"]] = port
    if stations[DOVER_RECORD - 1]["name"] != "Dover":
        sys.exit("ports.csv: Dover is not record %d" % DOVER_RECORD)

    os.makedirs(os.path.join(program, "TS"), exist_ok=True)
    by_name = {station["name"]: station for station in stations}
    records.write(
        os.path.join(program, "TS", "UK.hc"),
        b"".join(pack(number, station, ports[station["name"]], False)
                 for number, station in enumerate(stations, 1)))
    records.write(
        os.path.join(program, "RefPorts.hc"),
        b"".join(pack(number, by_name[name], ports[name], True)
                 for number, name in enumerate(REFERENCE_PORTS, 1)))
    os.makedirs(build, exist_ok=True)
    with open(os.path.join(build, "ports.json"), "w") as stream:
        json.dump(ports, stream)
    print("%d ports, %d reference ports"
          % (len(stations), len(REFERENCE_PORTS)))


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2])
