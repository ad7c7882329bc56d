"""Two ways to predict the tide: every constituent, and the program's method.

Both are written apart from the engine, so that each can be held against it.
Phases are Greenwich lags, times universal time, angles degrees.
"""
import datetime
import json
import math
import os

import numpy as np

HERE = os.path.dirname(os.path.abspath(__file__))


def load_stations():
    with open(os.path.join(HERE, "stations.json"), encoding="utf-8") as stream:
        return json.load(stream)["stations"]


def constants(station):
    """Constituent name -> (amplitude, Greenwich lag)."""
    return {name: (amplitude, lag)
            for name, amplitude, lag in station["constituents"]}


# --- every constituent ------------------------------------------------------

# Multiples of mean lunar time, s, h, p and p1, the constant in degrees, and
# the names of the nodal terms.  3N2, S1, M3, S3 and T3 are left out: authors
# differ on their arguments, they stay within 4 cm everywhere, and nothing
# fitted here depends on them.
CONSTITUENTS = {
    "SA": (0, 0, 1, 0, 0, 0, ""), "SSA": (0, 0, 2, 0, 0, 0, ""),
    "MM": (0, 1, 0, -1, 0, 0, "mm"), "MF": (0, 2, 0, 0, 0, 0, "mf"),
    "MSF": (0, 2, -2, 0, 0, 0, "-m2"), "MTM": (0, 3, 0, -1, 0, 0, "mm"),
    "MSQM": (0, 4, -2, 0, 0, 0, "-m2"),
    "2Q1": (1, -3, 0, 2, 0, -90, "o1"), "SGM": (1, -3, 2, 0, 0, -90, "o1"),
    "Q1": (1, -2, 0, 1, 0, -90, "o1"), "RHO1": (1, -2, 2, -1, 0, -90, "o1"),
    "O1": (1, -1, 0, 0, 0, -90, "o1"), "M1": (1, 0, 0, 1, 0, 90, "m1"),
    "P1": (1, 1, -2, 0, 0, -90, ""),
    "K1": (1, 1, 0, 0, 0, 90, "k1"), "J1": (1, 2, 0, -1, 0, 90, "j1"),
    "OO1": (1, 3, 0, 0, 0, 90, "k2-o1"),
    "EP2": (2, -3, 2, 1, 0, 0, "m2"), "2N2": (2, -2, 0, 2, 0, 0, "m2"),
    "MU2": (2, -2, 2, 0, 0, 0, "m2"), "N2": (2, -1, 0, 1, 0, 0, "m2"),
    "NU2": (2, -1, 2, -1, 0, 0, "m2"), "MA2": (2, 0, -1, 0, 0, 0, ""),
    "M2": (2, 0, 0, 0, 0, 0, "m2"), "MB2": (2, 0, 1, 0, 0, 0, ""),
    "MKS2": (2, 0, 2, 0, 0, 0, "m2 k2"),
    "LAMBDA2": (2, 1, -2, 1, 0, 180, "m2"), "L2": (2, 1, 0, -1, 0, 180, "l2"),
    "3L2": (2, 1, 0, 0, 0, 0, "l2"),
    "T2": (2, 2, -3, 0, 1, 0, ""), "S2": (2, 2, -2, 0, 0, 0, ""),
    "R2": (2, 2, -1, 0, -1, 180, ""), "K2": (2, 2, 0, 0, 0, 0, "k2"),
    "2SM2": (2, 4, -4, 0, 0, 0, "-m2"),
    "R3": (3, 3, -2, 0, 0, 90, "k1"),
    "N4": (4, -2, 0, 2, 0, 0, "m2 m2"), "MN4": (4, -1, 0, 1, 0, 0, "m2 m2"),
    "M4": (4, 0, 0, 0, 0, 0, "m2 m2"), "MS4": (4, 2, -2, 0, 0, 0, "m2"),
    "S4": (4, 4, -4, 0, 0, 0, ""),
    "2MO5": (5, -1, 0, 0, 0, -90, "m2 m2 o1"),
    "2MK5": (5, 1, 0, 0, 0, 90, "m2 m2 k1"),
    "M6": (6, 0, 0, 0, 0, 0, "m2 m2 m2"), "2MS6": (6, 2, -2, 0, 0, 0, "m2 m2"),
    "M8": (8, 0, 0, 0, 0, 0, "m2 m2 m2 m2"),
}

EPOCH_2000 = datetime.datetime(2000, 1, 1, 12)


def _mean_longitudes(hours_2000):
    """s, h, p, N, p1 in degrees; the argument counts from 2000-01-01 12:00."""
    century = hours_2000 / 24.0 / 36525.0
    return (218.3164477 + 481267.88123421 * century,
            280.46646 + 36000.76983 * century,
            83.3532465 + 4069.0137287 * century,
            125.04452 - 1934.136261 * century,
            282.93735 + 1.71946 * century)


def _nodal_terms(p, n):
    """Factor and phase of the nodal modulations, as complex numbers."""
    p, n = np.radians(p), np.radians(n)

    def term(f, u):
        return f * np.exp(1j * np.radians(u))

    l_x = (1 - 0.2505 * np.cos(2 * p) - 0.1102 * np.cos(2 * p - n)
           - 0.0156 * np.cos(2 * p - 2 * n) - 0.037 * np.cos(n))
    l_y = (-0.2505 * np.sin(2 * p) - 0.1102 * np.sin(2 * p - n)
           - 0.0156 * np.sin(2 * p - 2 * n) - 0.037 * np.sin(n))
    m1 = (2 * np.cos(p) + 0.4 * np.cos(p - n)
          + 1j * (np.sin(p) + 0.2 * np.sin(p - n)))
    m2 = term(1.0004 - 0.0373 * np.cos(n) + 0.0002 * np.cos(2 * n),
              -2.14 * np.sin(n))
    return {
        "m2": m2,
        "-m2": np.conj(m2),
        "o1": term(1.0089 + 0.1871 * np.cos(n) - 0.0147 * np.cos(2 * n)
                   + 0.0014 * np.cos(3 * n),
                   10.8 * np.sin(n) - 1.34 * np.sin(2 * n)
                   + 0.19 * np.sin(3 * n)),
        "k1": term(1.006 + 0.115 * np.cos(n) - 0.0088 * np.cos(2 * n)
                   + 0.0006 * np.cos(3 * n),
                   -8.86 * np.sin(n) + 0.68 * np.sin(2 * n)
                   - 0.07 * np.sin(3 * n)),
        "j1": term(1.0129 + 0.1676 * np.cos(n) - 0.017 * np.cos(2 * n)
                   + 0.0016 * np.cos(3 * n),
                   -12.94 * np.sin(n) + 1.34 * np.sin(2 * n)
                   - 0.19 * np.sin(3 * n)),
        "k2": term(1.0246 + 0.2863 * np.cos(n) + 0.0083 * np.cos(2 * n)
                   - 0.0015 * np.cos(3 * n),
                   -17.74 * np.sin(n) + 0.68 * np.sin(2 * n)
                   - 0.04 * np.sin(3 * n)),
        "mm": term(1 - 0.1311 * np.cos(n), 0 * n),
        "mf": term(1.084 + 0.415 * np.cos(n) + 0.039 * np.cos(2 * n),
                   -23.7 * np.sin(n) + 2.7 * np.sin(2 * n)
                   - 0.4 * np.sin(3 * n)),
        "l2": l_x + 1j * l_y,
        # The constituent carries +p, its two parts +p and -p.
        "m1": m1 * np.exp(-1j * p),
    }


def harmonic_height(port_constants, hours_2000):
    """Heights above the mean level from every constituent."""
    s, h, p, n, p1 = _mean_longitudes(hours_2000)
    # Hours are counted from a noon, and tau from the moon's lower transit.
    lunar = 15.0 * (hours_2000 % 24.0) + 180.0 + h - s
    nodal = _nodal_terms(p, n)
    nodal["k2-o1"] = nodal["k2"] * np.conj(nodal["o1"])
    height = np.zeros_like(hours_2000)
    for name, (amplitude, lag) in port_constants.items():
        if name not in CONSTITUENTS:
            continue
        tau, ks, kh, kp, kp1, constant, modulation = CONSTITUENTS[name]
        angle = (tau * lunar + ks * s + kh * h + kp * p + kp1 * p1 + constant
                 - lag)
        wave = np.exp(1j * np.radians(angle))
        for term in modulation.split():
            wave = wave * nodal[term]
        height += amplitude * wave.real
    return height


def hours_2000(year, day, hour=0.0):
    """Hours since noon of 2000-01-01 at an hour of a day of a year."""
    start = datetime.datetime(year, 1, 1) - EPOCH_2000
    return start.total_seconds() / 3600.0 + (day - 1) * 24.0 + hour


# --- the program's method ---------------------------------------------------

JANUARY_1992 = (230.3, 279.91, 117.78, 279.8, 282.8)
DAILY_RATES = (13.176396, 0.985647, 0.111404, -0.052954, 0.000047)
MONTH_ENDS = (31, 59, 90, 120, 151, 182, 212, 243, 273, 304, 334, 366)


def day_arguments(year, day):
    start = datetime.date(1992, 1, 1)
    days = (datetime.date(year, 1, 1) - start).days + day - 1
    return [(value + rate * days) % 360.0
            for value, rate in zip(JANUARY_1992, DAILY_RATES)]


def day_constituents(year, day):
    """Phase and factor of the M2, S2, K1 and O1 groups at 0 h of a day."""
    s, h, p, n, p1 = day_arguments(year, day)
    nr = math.radians(n)
    sin, cos = math.sin, math.cos
    um2 = -2.14 * sin(nr)
    uo1 = 10.8 * sin(nr) - 1.34 * sin(2 * nr) + 0.19 * sin(3 * nr)
    uk1 = -8.86 * sin(nr) + 0.68 * sin(2 * nr) - 0.07 * sin(3 * nr)
    uj1 = -12.94 * sin(nr) + 1.34 * sin(2 * nr) - 0.19 * sin(3 * nr)
    uk2 = -17.74 * sin(nr) + 0.68 * sin(2 * nr) - 0.04 * sin(3 * nr)
    fm2 = 1.0004 - 0.0373 * cos(nr) + 0.0002 * cos(2 * nr)
    fo1 = (1.0089 + 0.1871 * cos(nr) - 0.0147 * cos(2 * nr)
           + 0.0014 * cos(3 * nr))
    fk1 = 1.006 + 0.115 * cos(nr) - 0.0088 * cos(2 * nr) + 0.0006 * cos(3 * nr)
    fj1 = (1.0129 + 0.1676 * cos(nr) - 0.017 * cos(2 * nr)
           + 0.0016 * cos(3 * nr))
    fk2 = (1.0246 + 0.2863 * cos(nr) + 0.0083 * cos(2 * nr)
           - 0.0015 * cos(3 * nr))
    p2, p2n, p22n = (math.radians((2 * p - k * n) % 360) for k in (0, 1, 2))
    lx = (-0.25 * sin(p2) - 0.1102 * sin(p2n) - 0.0156 * sin(p22n)
          - 0.037 * sin(nr))
    ly = (1 - 0.25 * cos(p2) - 0.1102 * cos(p2n) - 0.0156 * cos(p22n)
          - 0.037 * cos(nr))
    ul2, fl2 = math.degrees(math.atan2(lx, ly)), math.hypot(lx, ly)
    groups = (
        ((2 * h - 4 * s + 2 * p + 30 + um2, 0.02534 * fm2),
         (4 * h - 4 * s + 30 + um2, 0.03057 * fm2),
         (2 * h - 3 * s + p + 15 + um2, 0.19146 * fm2),
         (4 * h - 3 * s - p + 15 + um2, 0.03636 * fm2),
         (2 * h - 2 * s + um2, fm2),
         (-s + p + 165 + um2, 0.00738 * fm2),
         (2 * h - s - p + 165 + ul2, 0.02827 * fl2)),
        ((p1 - h, 0.05861), (0.0, 1.0), (2 * h + uk2, 0.27215 * fk2)),
        ((p1 - 2 * h - 90, 0.01939), (-h - 90, 0.33093), (h + 90 + uk1, fk1),
         (3 * h + 90, 0.01424), (h + s - p + 90 + uj1, 0.05591 * fj1)),
        ((h - 4 * s + 2 * p - 90 + uo1, 0.02534 * fo1),
         (3 * h - 4 * s - 90 + uo1, 0.03056 * fo1),
         (h - 3 * s + p - 90 + uo1, 0.1946 * fo1),
         (3 * h - 3 * s - p - 90 + uo1, 0.03637 * fo1),
         (h - 2 * s - 90 + uo1, fo1)))
    result = []
    for members in groups:
        x = sum(a * sin(math.radians(v)) for v, a in members)
        y = sum(a * cos(math.radians(v)) for v, a in members)
        phase = round(360 - math.degrees(math.atan2(x, y)) % 360) % 360
        result.append((phase, math.hypot(x, y)))
    return result


def month_of(day):
    for month, end in enumerate(MONTH_ENDS):
        if 0 <= day <= end:
            return month
    return None


def _day_parts(port, year, day, t):
    """Diurnal part with level, and the semidiurnal vector x + i y."""
    month = month_of(day - 1)
    if month is None:
        m2, level = port["M2"][0], port["z0"]
    else:
        m2, level = port["MHm2"][month], port["z0"] + port["DeltaZ0"][month]
    before = day_constituents(year, day - 1)
    after = day_constituents(year, day)
    waves = []
    for index, (name, limit) in enumerate(
            (("M2", 600), ("S2", 600), ("K1", 300), ("O1", 300))):
        turn = before[index][0] - after[index][0]
        while turn <= limit:
            turn += 360
        amplitude, lag = port[name]
        if name == "M2":
            amplitude = m2
        factor = before[index][1] + t * (after[index][1] - before[index][1]) / 24
        angle = np.radians(lag + before[index][0] - t * turn / 24)
        waves.append(amplitude * factor * np.exp(1j * angle))
    # e^(i angle) carries cos in its real and sin in its imaginary part.
    return level + waves[2].real + waves[3].real, waves[0] + waves[1]


def _shallow(port, wave):
    quarter = port["lf4"] * np.exp(1j * math.radians(port["sf4"])) * wave ** 2
    sixth = port["lf6"] * np.exp(1j * math.radians(port["sf6"])) * wave ** 3
    return quarter.real + sixth.real


def simplified_day(port, year, day, step=1 / 6):
    """Heights of one day above the datum, from 00:00, as the program has them."""
    t = 24 + np.arange(round(24 / step)) * step
    rest, wave = _day_parts(port, year, day, t)
    return rest + wave.real + _shallow(port, wave)


# --- from constituents to a port record -------------------------------------

# Gauges of these networks have chart datum as their zero.
DATUM_NETWORKS = ("bodc", "da_idh", "refmar")
FIT_DAYS = [(year, day) for year in range(2017, 2036)
            for day in range(2 + year % 17, 366, 17)]


def mid_month_sun():
    """Mean longitude of the sun at the middle of each month of 2026."""
    middles = [(start + end) / 2 for start, end in
               zip((0,) + MONTH_ENDS[:-1], MONTH_ENDS)]
    return [280.46646 + 0.98564736 * (hours_2000(2026, 1) / 24 + day)
            for day in middles]


def port_constants(station):
    """The fields of a port record that come from the constituents."""
    table = constants(station)
    port = {name: table[name] for name in ("M2", "S2", "K1", "O1")}
    network = station["station"].rsplit("-", 1)[1]
    port["z0"] = station["msl"]
    if network not in DATUM_NETWORKS:
        port["z0"] = station["msl"] - station["lat"]
    port["DeltaZ0"], port["MHm2"] = [], []
    m2, m2_lag = port["M2"]
    for sun in mid_month_sun():
        change = 0.0
        for name, turns in (("SA", 1), ("SSA", 2)):
            amplitude, lag = table.get(name, (0.0, 0.0))
            change += amplitude * math.cos(math.radians(turns * sun - lag))
        port["DeltaZ0"].append(change)
        wave = complex(m2)
        for name, turns in (("MA2", -1), ("MB2", 1)):
            amplitude, lag = table.get(name, (0.0, 0.0))
            angle = math.radians(turns * sun - lag + m2_lag)
            wave += amplitude * complex(math.cos(angle), math.sin(angle))
        port["MHm2"].append(abs(wave))
    port.update(_fit_shallow(port, table))
    return port


def _fit_shallow(port, table):
    """Least squares of the full prediction less the four main terms."""
    t = 24 + np.arange(0, 24, 0.5)
    columns, wanted = [], []
    for year, day in FIT_DAYS:
        rest, wave = _day_parts(port, year, day, t)
        times = hours_2000(year, day) + t - 24
        full = harmonic_height(table, times) + port["z0"]
        square, cube = wave ** 2, wave ** 3
        columns.append(np.stack([square.real, -square.imag,
                                 cube.real, -cube.imag]))
        wanted.append(full - rest - wave.real)
    matrix, right = np.concatenate(columns, 1).T, np.concatenate(wanted)
    c4, s4, c6, s6 = np.linalg.lstsq(matrix, right, rcond=None)[0]
    return {"sf4": math.degrees(math.atan2(s4, c4)) % 360,
            "lf4": math.hypot(c4, s4),
            "sf6": math.degrees(math.atan2(s6, c6)) % 360,
            "lf6": math.hypot(c6, s6)}
