#!/usr/bin/python3
"""Makes the messages that hold the AIS decoder, with what gpsdecode (package
gpsd-clients) reads in them.

  make_ais_messages.py OUTPUT

A line a message: its sentences and, behind a tab each, the fields as
gpsdecode gives them.  Every field is varied over its whole range: its ends,
each of its bits alone, and values at random.
"""
import json
import random
import subprocess
import sys

import ais

MESSAGES = 2100
FIELDS = {
    1: ("mmsi", "status", "speed", "lon", "lat", "course"),
    5: ("mmsi", "callsign", "shipname", "shiptype", "to_bow", "to_stern",
        "to_port", "to_starboard", "eta", "draught", "destination"),
    9: ("mmsi", "alt", "speed", "lon", "lat", "course"),
    18: ("mmsi", "speed", "lon", "lat", "course"),
    19: ("mmsi", "speed", "lon", "lat", "course", "shipname", "shiptype",
         "to_bow", "to_stern", "to_port", "to_starboard"),
    24: ("mmsi", "part", "shipname", "shiptype", "callsign", "to_bow",
         "to_stern", "to_port", "to_starboard"),
}
FIELDS[2] = FIELDS[3] = FIELDS[1]
choose = random.Random(20260131)


def over(low, high):
    """An end of the range, a power of two in it, or any value."""
    kind = choose.randrange(4)
    if kind == 0:
        return choose.choice((low, high))
    if kind == 1:
        value = 1 << choose.randrange(max(high.bit_length(), 1))
        value = value if low >= 0 or choose.randrange(2) else -value
        return min(max(value, low), high)
    return choose.randint(low, high)


def words(characters):
    """A name whose last character shows; "@" would end it."""
    if choose.randrange(12) == 0:
        return ""
    count = choose.choice((1, characters, choose.randint(1, characters)))
    letters = [choose.choice(ais.SIX_BIT[1:]) for _ in range(count - 1)]
    return "".join(letters).lstrip() + choose.choice(ais.SIX_BIT[1:27])


def ship():
    return dict(bow=over(0, 511), stern=over(0, 511), port=over(0, 63),
                starboard=over(0, 63))


def report():
    return dict(mmsi=over(1, 2**30 - 1), speed=over(0, 1023),
                accuracy=over(0, 1), longitude=over(-2**27, 2**27 - 1),
                latitude=over(-2**26, 2**26 - 1), course=over(0, 4095),
                second=over(0, 63))


def message(kind):
    if kind in (1, 2, 3):
        return ais.class_a(kind, status=over(0, 15), turn=over(-128, 127),
                           heading=over(0, 511), **report())
    if kind == 5:
        return ais.static_and_voyage(
            over(1, 2**30 - 1), over(0, 2**30 - 1), words(7), words(20),
            over(0, 255), fix=over(0, 15), month=over(0, 15),
            day=over(0, 31), hour=over(0, 31), minute=over(0, 63),
            draught=over(0, 255), destination=words(20), **ship())
    if kind == 9:
        return ais.aircraft(altitude=over(0, 4095), **report())
    if kind == 18:
        return ais.class_b(heading=over(0, 511), **report())
    if kind == 19:
        return ais.class_b_extended(heading=over(0, 511), name=words(20),
                                    ship_type=over(0, 255), **ship(),
                                    **report())
    # Not 98MIDXXXX: the second half of its report has no dimensions.
    mmsi = over(1, 979999999)
    if choose.randrange(2):
        return ais.class_b_name(mmsi, words(20))
    return ais.class_b_static(mmsi, over(0, 255), words(7), words(7),
                              **ship())


def decoded(messages):
    """What gpsdecode reads in each message, raw."""
    text = "".join(line + "\r\n" for lines in messages for line in lines)
    out = subprocess.run(["gpsdecode", "-j", "-u", "-s"], check=True,
                         text=True, input=text, capture_output=True).stdout
    return [json.loads(line) for line in out.splitlines()]


def main():
    kinds = [(1, 2, 3, 5, 9, 18, 19, 24)[i % 8] for i in range(MESSAGES)]
    messages = [ais.sentences(message(kind), choose.choice("AB"), i % 10)
                for i, kind in enumerate(kinds)]
    found = decoded(messages)
    if [fields["type"] for fields in found] != kinds:
        raise SystemExit("gpsdecode reads other messages")
    with open(sys.argv[1], "w", encoding="ascii", newline="\n") as stream:
        for kind, lines, fields in zip(kinds, messages, found):
            values = ["%s=%s" % (name, fields[name]) for name in FIELDS[kind]
                      if name in fields]
            stream.write("\t".join([" ".join(lines)] + values) + "\n")


if __name__ == "__main__":
    main()
