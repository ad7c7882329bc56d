"""Prints the rows of tests/tides/reference_test.cpp, harmonic_streams_test.cpp and
diamond_report_test.cpp: tides and streams by the simplified method.

Written from the published form of the method and apart from the program: double precision, complex
vectors, and the constants of the ports taken from the bytes of the sample file. Run it again after
the sample data were made anew:  python3 tests/reference/simplified_tides.py
"""
import calendar
import cmath
import datetime
import math
import os
import struct

# Mean longitudes of moon (s), sun (h), lunar perigee (p), lunar node (N) and solar perigee (p1) at
# 0 h of 1 January, degrees, and what each gains in a day.
JANUARY = {1992: (230.3, 279.91, 117.78, 279.8, 282.8), 1995: (271.63, 280.18, 239.87, 221.76, 282.85),
           2000: (211.73, 279.97, 83.3, 125.07, 282.94)}
RATES = (13.176396, 0.985647, 0.111404, -0.052954, 0.000047)

DAYS = [(1995, 7, 1), (2000, 12, 31), (1986, 3, 1), (2026, 12, 5), (2037, 1, 1)]
PORTS = ["Dover", "Saint Malo", "Southampton"]
TIMES = [0.0, 4.5, 11.0, 18.0, 23.5]
MONTH_ENDS = [31, 59, 90, 120, 151, 182, 212, 243, 273, 304, 334, 366]


def longitudes(year, day):
    """At 0 h of a day of the year, which may lie outside the year."""
    start = year if year in JANUARY else 1992
    days = (datetime.date(year, 1, 1) - datetime.date(start, 1, 1)).days + day - 1
    return [value + days * rate for value, rate in zip(JANUARY[start], RATES)]


def groups(year, day):
    """Phase (unrounded) and factor of M2, S2, K1, O1."""
    s, h, p, n, p1 = longitudes(year, day)
    sn, cn = (lambda k: math.sin(math.radians(k * n))), (lambda k: math.cos(math.radians(k * n)))
    u = {"m2": -2.14 * sn(1), "o1": 10.8 * sn(1) - 1.34 * sn(2) + 0.19 * sn(3),
         "k1": -8.86 * sn(1) + 0.68 * sn(2) - 0.07 * sn(3),
         "j1": -12.94 * sn(1) + 1.34 * sn(2) - 0.19 * sn(3),
         "k2": -17.74 * sn(1) + 0.68 * sn(2) - 0.04 * sn(3)}
    f = {"m2": 1.0004 - 0.0373 * cn(1) + 0.0002 * cn(2),
         "o1": 1.0089 + 0.1871 * cn(1) - 0.0147 * cn(2) + 0.0014 * cn(3),
         "k1": 1.006 + 0.115 * cn(1) - 0.0088 * cn(2) + 0.0006 * cn(3),
         "j1": 1.0129 + 0.1676 * cn(1) - 0.017 * cn(2) + 0.0016 * cn(3),
         "k2": 1.0246 + 0.2863 * cn(1) + 0.0083 * cn(2) - 0.0015 * cn(3)}
    # L2 beats with the perigee: the vector 1 - 0.25 e^(2ip) - ..., its angle and its length.
    turn = lambda degrees: cmath.rect(1, math.radians(degrees))
    l2 = (1 - 0.25 * turn(2 * p) - 0.1102 * turn(2 * p - n) - 0.0156 * turn(2 * p - 2 * n)
          - 0.037 * turn(n))
    u["l2"], f["l2"] = math.degrees(cmath.phase(l2)), abs(l2)
    members = [
        [(2 * h - 4 * s + 2 * p + 30, "m2", 0.02534), (4 * h - 4 * s + 30, "m2", 0.03057),
         (2 * h - 3 * s + p + 15, "m2", 0.19146), (4 * h - 3 * s - p + 15, "m2", 0.03636),
         (2 * h - 2 * s, "m2", 1), (p - s + 165, "m2", 0.00738), (2 * h - s - p + 165, "l2", 0.02827)],
        [(p1 - h, "", 0.05861), (0, "", 1), (2 * h, "k2", 0.27215)],
        [(p1 - 2 * h - 90, "", 0.01939), (-h - 90, "", 0.33093), (h + 90, "k1", 1),
         (3 * h + 90, "", 0.01424), (h + s - p + 90, "j1", 0.05591)],
        [(h - 4 * s + 2 * p - 90, "o1", 0.02534), (3 * h - 4 * s - 90, "o1", 0.03056),
         (h - 3 * s + p - 90, "o1", 0.1946), (3 * h - 3 * s - p - 90, "o1", 0.03637),
         (h - 2 * s - 90, "o1", 1)]]
    result = []
    for group in members:
        total = sum(amplitude * f.get(name, 1) * turn(phase + u.get(name, 0))
                    for phase, name, amplitude in group)
        result.append((-math.degrees(cmath.phase(total)) % 360, abs(total)))
    return result


def ports():
    path = os.path.join(os.path.dirname(__file__), "../../program/TS/UK.hc")
    with open(path, "rb") as stream:
        data = stream.read()
    found = {}
    for at in range(0, len(data) - 196, 197):
        name = data[at + 5:at + 36].split(b"\0")[0].decode("cp1252").rstrip()
        found[name] = struct.unpack_from("<13f12f12f", data, at + 49)
    return found


def height(port, year, day, time):
    """`time` hours after 0 h of the day; the day goes on along the lines of the day before."""
    z0, *gh = port[:13]
    lags, amplitudes = gh[0:8:2], list(gh[1:8:2])
    sf4, lf4, sf6, lf6 = gh[8:12]
    month = next(m for m, end in enumerate(MONTH_ENDS) if day <= end)
    amplitudes[0] = port[25 + month]
    t = 24 + time
    waves = []
    for i, limit in enumerate((600, 600, 300, 300)):
        (v0, f0), (v1, f1) = groups(year, day - 1)[i], groups(year, day)[i]
        v0, v1 = round(v0) % 360, round(v1) % 360
        gain = v0 - v1
        while gain <= limit:
            gain += 360
        factor = f0 + t * (f1 - f0) / 24
        waves.append(factor * amplitudes[i]
                     * cmath.rect(1, math.radians(lags[i] + v0 - t * gain / 24)))
    semi = waves[0] + waves[1]
    shallow = ((semi ** 2 * lf4 * cmath.rect(1, math.radians(sf4))).real
               + (semi ** 3 * lf6 * cmath.rect(1, math.radians(sf6))).real)
    return sum(wave.real for wave in waves) + z0 + port[13 + month] + shallow


# A harmonic station, as harmonic_streams_test.cpp has it: amplitude (knots) and lag of M2, S2, K1
# and O1, eastward and northward.
STATION = ([(2.5, 110.0), (0.8, 155.0), (0.12, 30.0), (0.09, 285.0)],
           [(1.75, 62.5), (0.55, 118.0), (0.2, 301.0), (0.07, 14.0)])
MOMENTS = [(1995, 182, 6.25), (2000, 366, 23.75), (2026, 339, 1 / 60), (2026, 339, 14.5)]


def component(terms, year, day, hours):
    """A component of a stream `hours` after 0 h of the day, along the lines of that day itself."""
    total = 0
    for i, limit in enumerate((600, 600, 300, 300)):
        (v0, f0), (v1, f1) = groups(year, day)[i], groups(year, day + 1)[i]
        v0, v1 = round(v0) % 360, round(v1) % 360
        gain = (v0 - v1) % 360
        while gain <= limit:
            gain += 360
        amplitude, lag = terms[i]
        total += ((f0 + hours * (f1 - f0) / 24) * amplitude
                  * math.cos(math.radians(lag + v0 - hours * gain / 24)))
    return total


def print_streams():
    for year, day, hours in MOMENTS:
        for number in (day, day + 1):
            for v, _ in groups(year, number):
                assert abs(v % 1 - 0.5) > 0.02, (year, number, v)
        x, y = (component(terms, year, day, hours) for terms in STATION)
        print("    {%d, %d, %.6fF, %.5f, %.5f, %.5f, %.3f}," % (
            year, day, hours, x, y, math.hypot(x, y), math.degrees(math.atan2(x, y)) % 360))


def record(name, size, number, form, at):
    with open(os.path.join(os.path.dirname(__file__), "../../program", name), "rb") as stream:
        data = stream.read()
    return struct.unpack_from(form, data, (number - 1) * size + at)


def diamond_day(ref, year, day):
    """Rate, direction and slot of a diamond of the sample area at each 10 minutes of a day."""
    chart, dia = (float(part) for part in ref.split("-"))
    path = os.path.join(os.path.dirname(__file__), "../../program/TS/Sample Chart.l25")
    with open(path, "rb") as stream:
        records = list(struct.iter_unpack("<49f", stream.read()))
    diamond = next(r for r in records if r[0] == chart and r[1] == dia)
    port = record("RefPorts.hc", 197, int(diamond[2]), "<13f12f12f", 49)
    # Three days of heights, six an hour; the second day begins at index 144.
    h = [height(port, year, number, i / 6) for number in (day - 1, day, day + 1)
         for i in range(144)] + [height(port, year, day + 1, 24)]
    result = []
    for entry in range(144):
        start, minute = 144 + entry, 10 * entry
        tops = [i for i in range(start + 1, start + 38) if h[i - 1] < h[i] > h[i + 1]]
        if tops:
            high = tops[-1]
        else:
            high = next(i for i in range(start + 1, start - 44, -1) if h[i - 1] < h[i] > h[i + 1])
        spread = h[start - 39:start + 40]
        tide = min(max(max(spread) - min(spread), diamond[4]), diamond[3])
        after = minute - 10 * (high - 144)  # minutes past high water, below 0 before it
        slot = math.floor((after + 30) / 60)
        left = 60 - (after + 30) % 60
        if left == 60:
            slot, left = slot - 1, 0
        column = slot + 7
        share = (tide - diamond[4]) / (diamond[3] - diamond[4])
        rates = [neap + share * (spring - neap)
                 for neap, spring in zip(diamond[35:49], diamond[21:35])]
        behind = column + 1 if column < 13 else 1
        rate = rates[column] + (60 - left) / 60 * (rates[behind] - rates[column])
        result.append((rate, diamond[7 + (column if left >= 30 else behind)], slot))
    return result


def print_diamond():
    stream = diamond_day("9999-51", 2026, 339)
    rates = [entry[0] for entry in stream]
    clock = lambda tens: "%02d:%02d" % (tens * 10 // 60 % 24, tens * 10 % 60)
    for k in (0, 35, 71, 100, 143):
        print("    {%d, %.4f, %.0fF, %d}," % (k, *stream[k]))
    turns = range(142)
    print("    slack", ["%s %.3f" % (clock(k + 3), rates[k]) for k in turns
                        if rates[k] > rates[k + 1] < rates[k + 2]])
    print("    flood", ["%s %.3f" % (clock(k + 3), rates[k]) for k in turns
                        if rates[k] < rates[k + 1] > rates[k + 2]])
    print("    above", [clock(k + 1) for k in range(143)
                        if rates[k] < 1.5 <= rates[k + 1] or rates[k] > 1.5 >= rates[k + 1]])


def main():
    found = ports()
    for year, month, day_of_month in DAYS:
        day = (datetime.date(year, month, day_of_month) - datetime.date(year, 1, 1)).days + 1
        for number in (day - 1, day):
            for v, _ in groups(year, number):
                assert abs(v % 1 - 0.5) > 0.02, (year, number, v)  # no tie that the last bit decides
        values = groups(year, day)
        print("    {%d, %d, {%s}, {%s},\n     {%s}}," % (
            year, day, ", ".join("%d" % (round(v) % 360) for v, _ in values),
            ", ".join("%.5f" % f for _, f in values),
            ",\n      ".join("{%s}" % ", ".join("%.4f" % height(found[p], year, day, t)
                                               for t in TIMES) for p in PORTS)))
    print_streams()
    print_diamond()


main()
