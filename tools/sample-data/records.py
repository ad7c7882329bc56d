"""The fixed-length records of the installed files, packed and unpacked."""
import struct

# Number, name, depth, position, zone, level, four lag and amplitude pairs,
# shallow-water terms, the months' levels and the months' M2.
PORT = struct.Struct("<5s31sfffc9f4f12f12f")
DIAMOND = struct.Struct("<49f")
CHART = struct.Struct("<14f8s")
CHART_INDEX = struct.Struct("<16s64s5f1s1s")
ROUTE_POINT = struct.Struct("<35s3f")
# Position, an unused number, and for X and Y the station's reference, an unused
# number, M2, two unused, S2, K1, O1 as amplitude and lag, four unused.
HARMONIC_STATION = struct.Struct("<3f12s15f12s15f")

assert (PORT.size, DIAMOND.size, CHART.size, CHART_INDEX.size,
        ROUTE_POINT.size, HARMONIC_STATION.size) == (197, 196, 64, 102, 47, 156)


def text(value, width):
    data = value.encode("cp1252")
    if len(data) > width:
        raise ValueError("%r is longer than %d" % (value, width))
    return data.ljust(width)


def read(path, layout):
    with open(path, "rb") as stream:
        data = stream.read()
    if len(data) % layout.size:
        raise ValueError("%s is not whole records of %d bytes"
                         % (path, layout.size))
    return list(layout.iter_unpack(data))


def write(path, data):
    with open(path, "wb") as stream:
        stream.write(data)
