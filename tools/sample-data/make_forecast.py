#!/usr/bin/env python3
"""Writes program/Samples/Channel low.grb: a made-up forecast, GRIB edition 1, of a depression that
runs from Biscay over Brittany to the east in five days. It is there to try the program with and
forecasts nothing.

The wind is that of two parts. A steady stream from 60 degrees of 3 m/s, and a vortex about a
centre that moves from 46.0 N 14 W to 48.0 N 6 E: at a distance of r nautical miles it blows
against the clock at

    peak * (r / core) * exp((1 - (r / core)^2) / 2)

m/s, with a peak of 9 m/s at the core's 230 miles, turned 18 degrees inwards. Every 3 hours for 120
hours, every quarter of a degree from 47.5 to 52.5 N and 8 W to 3.5 E, to a hundredth of a metre a
second.
"""
import math
import os

NORTH, SOUTH, WEST, EAST, STEP = 52.5, 47.5, -8.0, 3.5, 0.25
NJ = round((NORTH - SOUTH) / STEP) + 1
NI = round((EAST - WEST) / STEP) + 1
DATE = (2026, 12, 5)  # from 0 h
HOURS = range(0, 121, 3)
STREAM_FROM, STREAM = 60.0, 3.0
PEAK, CORE, INWARDS = 9.0, 230.0, 18.0


def centre(hour):
    part = hour / 120
    return 46.0 + 2.0 * part, -14.0 + 20.0 * part


def wind(latitude, longitude, hour):
    low_latitude, low_longitude = centre(hour)
    north = 60 * (latitude - low_latitude)
    east = 60 * (longitude - low_longitude) * math.cos(math.radians((latitude + low_latitude) / 2))
    distance = math.hypot(north, east)
    part = distance / CORE
    speed = PEAK * part * math.exp((1 - part * part) / 2)
    # Against the clock, and inwards.
    heading = math.atan2(east, north) - math.radians(90 + INWARDS)
    stream = math.radians(STREAM_FROM + 180)
    return (speed * math.sin(heading) + STREAM * math.sin(stream),
            speed * math.cos(heading) + STREAM * math.cos(stream))


def signed(value, octets):
    size = abs(value)
    if value < 0:
        size |= 1 << (8 * octets - 1)
    return size.to_bytes(octets, "big")


def ibm(value):
    """A whole number in the floating-point form of the System/360."""
    sign, value = (0x80, -value) if value < 0 else (0, value)
    if value == 0:
        return bytes(4)
    exponent = 0
    while value >= 16 ** exponent:
        exponent += 1
    mantissa = value * 2 ** 24 // 16 ** exponent
    return bytes([sign | (64 + exponent)]) + mantissa.to_bytes(3, "big")


def message(parameter, hour, values):
    whole = [round(100 * value) for value in values]
    least = min(whole)
    bits = max(1, (max(whole) - least).bit_length())
    product = bytes([0, 0, 28, 2, 255, 255, 255, 128, parameter, 105, 0, 10, DATE[0] - 2000,
                     DATE[1], DATE[2], 0, 0, 1, hour, 0, 0, 0, 0, 0, 21, 0]) + signed(2, 2)
    grid = (bytes([0, 0, 32, 0, 255, 0]) + NI.to_bytes(2, "big") + NJ.to_bytes(2, "big") +
            signed(round(1000 * NORTH), 3) + signed(round(1000 * WEST), 3) + bytes([128]) +
            signed(round(1000 * SOUTH), 3) + signed(round(1000 * EAST), 3) +
            round(1000 * STEP).to_bytes(2, "big") * 2 + bytes(5))
    packed = 0
    for value in whole:
        packed = packed << bits | (value - least)
    total = bits * len(whole)
    octets = (total + 7) // 8
    octets += (11 + octets) % 2  # sections have an even length
    unused = 8 * octets - total
    data = ((11 + octets).to_bytes(3, "big") + bytes([unused & 15]) + signed(0, 2) + ibm(least) +
            bytes([bits]) + (packed << unused).to_bytes(octets, "big"))
    size = 8 + len(product) + len(grid) + len(data) + 4
    return b"GRIB" + size.to_bytes(3, "big") + b"\x01" + product + grid + data + b"7777"


def main():
    path = os.path.join(os.path.dirname(__file__), "..", "..", "program", "Samples",
                        "Channel low.grb")
    with open(path, "wb") as out:
        for hour in HOURS:
            field = [wind(NORTH - STEP * j, WEST + STEP * i, hour)
                     for j in range(NJ) for i in range(NI)]
            out.write(message(33, hour, [u for u, _ in field]))
            out.write(message(34, hour, [v for _, v in field]))


if __name__ == "__main__":
    main()
