#!/usr/bin/python3
"""Makes the sample log: forty minutes of a yacht crossing the Channel on her
way from the Needles to Cherbourg, with thirty ships and an aircraft.

  make_crossing.py PROGRAM_FOLDER [--check]

All of it is made up: the ships keep to lanes such as there are off the
Casquets, westbound in the north and eastbound in the south, and their
numbers begin with 200, which is no country's.  One of them passes close
ahead of the yacht.  With --check gpsdecode (package gpsd-clients) reads the
log, and what it finds must be what was put in.
"""
import json
import math
import os
import random
import subprocess
import sys

import ais

SECONDS = 2400
START = 9 * 3600 + 20 * 60  # UTC on 14 June 2026
DATE = "140626"
YACHT = (50.245, -1.645, 6.2, 177.0)
WESTBOUND, EASTBOUND = 256.0, 76.0
CLOSE_AT, CLOSE_MILES = 1380, 0.12
# Names, ship types and dimensions in metres (bow, stern, port, starboard,
# draught in tenths) in turn; destinations by the way they go.
NAMES = """ARDENT TRADER|BALTIC HERON|CAPE LORNE|DELTA MERCURY|EASTERN PEARL
|FJORD CARRIER|GRACE OF LEITH|HANSA KESTREL|IBERIAN SKY|JADE HORIZON|KITTIWAKE
|LYS MARITIME|MARE TRANQUIL|NORTHERN LOOM|OCEAN CADENCE|PORTLAND SPIRIT
|QUAY EXPRESS|RHINE MEADOW|SILVER PLOVER|TAMAR BRIDGE|UMBRIA STAR
|VALE OF CLWYD|WESTERN TERN|YELLOW BUNTING""".replace("\n", "").split("|")
KINDS = ((70, 180, 25, 14, 16, 98), (80, 210, 33, 20, 22, 132),
         (71, 260, 40, 18, 22, 125), (79, 85, 15, 6, 8, 52),
         (60, 160, 30, 14, 14, 65), (89, 140, 25, 11, 13, 88))
WEST_PORTS = ("NEW YORK", "LISBOA", "DAKAR", "MONTREAL", "SANTOS", "BREST")
EAST_PORTS = ("ROTTERDAM", "HAMBURG", "ANTWERPEN", "GDANSK", "LE HAVRE")
SMALL = (("WINDHOVER", 36), ("MARY ELLEN", 30), ("TERN OF POOLE", 36),
         ("BLUE PETER", 37), ("SAINTE ANNE", 30), ("CORMORANT", 36))


def moved(latitude, longitude, miles, course):
    north = miles * math.cos(math.radians(course))
    east = miles * math.sin(math.radians(course))
    return (latitude + north / 60,
            longitude + east / math.cos(math.radians(latitude)) / 60)


def miles_between(a, b):
    middle = math.radians((a[0] + b[0]) / 2)
    return 60 * math.hypot(b[0] - a[0], (b[1] - a[1]) * math.cos(middle))


class Mover:
    def __init__(self, place, speed, course):
        self.place, self.speed, self.course = place, speed, course

    def at(self, second):
        return moved(*self.place, self.speed * second / 3600, self.course)


YACHT_MOVER = Mover(YACHT[:2], YACHT[2], YACHT[3])


def closest(mover):
    return min(miles_between(mover.at(second), YACHT_MOVER.at(second))
               for second in range(0, SECONDS, 10))


def lane_ship(choose, westbound):
    """In her lane, and no nearer to the yacht than half a mile."""
    while True:
        middle = 50.205 if westbound else 50.085
        place = (middle + choose.uniform(-0.035, 0.035),
                 choose.uniform(-2.15, -1.1))
        course = WESTBOUND if westbound else EASTBOUND
        place = (place[0] + (place[1] + 1.63) * 0.16, place[1])
        mover = Mover(place, choose.uniform(9.5, 20.5),
                      course + choose.uniform(-2, 2))
        if closest(mover) > 0.5:
            return mover


def close_ship():
    ahead = moved(*YACHT_MOVER.at(CLOSE_AT), CLOSE_MILES, YACHT[3])
    start = moved(*ahead, 13.4 * CLOSE_AT / 3600, WESTBOUND - 180)
    return Mover(start, 13.4, WESTBOUND)


def nmea_place(latitude, longitude):
    def field(value, digits):
        thousandths = round(abs(value) * 60000)
        return "%0*d%06.3f" % (digits, thousandths // 60000,
                               thousandths % 60000 / 1000)
    return "%s,%s,%s,%s" % (field(latitude, 2), "NS"[latitude < 0],
                            field(longitude, 3), "EW"[longitude < 0])


def clock(second):
    second += START
    return "%02d%02d%02d" % (second // 3600, second // 60 % 60, second % 60)


def rmc(second, choose):
    return ais.sentence("GPRMC,%s,A,%s,%.1f,%05.1f,%s,,,A" % (
        clock(second), nmea_place(*YACHT_MOVER.at(second)),
        YACHT[2] + choose.uniform(-0.2, 0.2),
        YACHT[3] + choose.uniform(-2, 2), DATE), "$")


def comment(second, *lines):
    lines = list(lines) + [""] * (5 - len(lines))
    head = "%s,%s,%s" % (nmea_place(*YACHT_MOVER.at(second)), DATE,
                         clock(second))
    return [ais.sentence("PSKLOG,6,%d,%s" % (number, text), "$")
            for number, text in enumerate([head] + lines, 1)]


def raw(mover, second):
    latitude, longitude = mover.at(second)
    return dict(speed=round(mover.speed * 10), accuracy=1,
                longitude=round(longitude * 600000),
                latitude=round(latitude * 600000),
                course=round(mover.course * 10) % 3600,
                second=(START + second) % 60)


def ships(choose):
    """(first second, interval, maker of the bits) of everything sent."""
    out = []
    movers = [close_ship()] + [lane_ship(choose, i < 14)
                               for i in range(1, len(NAMES))]
    for i, (name, mover) in enumerate(zip(NAMES, movers)):
        kind, length, beam, port, starboard, draught = KINDS[i % len(KINDS)]
        ports = WEST_PORTS if i < 14 else EAST_PORTS
        static = ais.static_and_voyage(
            200001001 + 37 * i, 9000007 + 11 * i, "ZZ%02dA" % i, name, kind,
            length - 30, 30, min(port, 63), min(starboard, 63), 1, 6,
            15 + i % 9, 2 * i % 24, 30, draught, ports[i % len(ports)])

        def position(second, mover=mover, i=i):
            return ais.class_a(1, 200001001 + 37 * i, 0, 0, heading=round(
                mover.course), **raw(mover, second))
        out.append((i * 7 % 20, 20, position))
        out.append((10 + i * 29 % 330, 360, lambda _, bits=static: bits))
    for i, (name, kind) in enumerate(SMALL):
        place = moved(YACHT[0], YACHT[1], 1.5 + 1.1 * i, 60 * i + 20)
        mover = Mover(place, 5.0 + 0.7 * i if kind != 30 else 2.4,
                      (185 + 61 * i) % 360)
        mmsi = 200009001 + i

        def position(second, mover=mover, mmsi=mmsi):
            return ais.class_b(mmsi, heading=511, **raw(mover, second))
        out.append((3 + i * 5, 30, position))
        out.append((12 + i * 9, 360, lambda _, bits=ais.class_b_name(
            mmsi, name): bits))
        out.append((14 + i * 9, 360, lambda _, bits=ais.class_b_static(
            mmsi, kind, "SKR", "ZY%dB" % i, 8, 3, 2, 2): bits))
    aircraft = Mover((50.42, -2.02), 110.0, 128.0)

    def flight(second):
        report = raw(aircraft, second)
        report["speed"] = round(aircraft.speed)
        return ais.aircraft(111200999, 150, **report)
    out.append((1200, 10, flight))
    return out


def make():
    choose = random.Random(5122026)
    lines, sent = [], []
    events = [(second, 0, None) for second in range(0, SECONDS, 10)]
    for order, (first, interval, bits) in enumerate(ships(choose), 1):
        last = 1600 if interval == 10 else SECONDS
        events += [(second, order, bits)
                   for second in range(first, last, interval)]
    events.sort(key=lambda event: event[:2])
    sequence = 0
    for second, order, bits in events:
        if bits is None:
            lines.append(rmc(second, choose))
            if second == 300:
                lines += comment(second, "In the westbound lane",
                                 "Course 177, wind SW 4")
            if second == 1500:
                lines += comment(second, "Ardent Trader passed close ahead")
            continue
        message = bits(second)
        made = ais.sentences(message, "AB"[order % 2], sequence)
        if len(made) > 1:
            sequence = (sequence + 1) % 10
        lines += made
        sent.append(message)
    return lines, sent


def check(lines, sent):
    text = "".join(line + "\r\n" for line in lines
                   if line.startswith("!AIVDM"))
    out = subprocess.run(["gpsdecode", "-j", "-u", "-s"], check=True,
                         text=True, input=text, capture_output=True).stdout
    found = [json.loads(line) for line in out.splitlines()]
    if len(found) != len(sent):
        sys.exit("gpsdecode finds %d messages of %d"
                 % (len(found), len(sent)))
    for bits, fields in zip(sent, found):
        wanted = {"type": int(bits[:6], 2), "mmsi": int(bits[8:38], 2)}
        if wanted["type"] == 1:
            wanted["speed"] = int(bits[50:60], 2)
            wanted["lon"] = int(bits[61:89], 2) - (int(bits[61]) << 28)
            wanted["lat"] = int(bits[89:116], 2)
            wanted["course"] = int(bits[116:128], 2)
        for name, value in wanted.items():
            if fields[name] != value:
                sys.exit("gpsdecode: %s of %s" % (name, fields))


def main():
    lines, sent = make()
    if "--check" in sys.argv[2:]:
        check(lines, sent)
    path = os.path.join(sys.argv[1], "Samples", "Channel crossing.nmea")
    with open(path, "w", encoding="ascii", newline="") as stream:
        stream.write("".join(line + "\r\n" for line in lines))
    print("%d lines, %d AIS messages" % (len(lines), len(sent)))


if __name__ == "__main__":
    main()
