#!/usr/bin/python3
"""Writes the forecast files of this folder with ecCodes, and expected.json with the values that
ecCodes reads back from them. Needs the Debian package python3-eccodes."""
import json
import math
import os

import eccodes

FOLDER = os.path.dirname(os.path.abspath(__file__))


def field(component, ni, nj, step):
    """A wind that turns from point to point, metres a second."""
    return [(9.0 * math.sin(0.31 * i + 0.17 * j + 0.4 * step) - 1.3 if component == "u" else
             7.5 * math.cos(0.23 * i - 0.29 * j + 0.3 * step) + 0.7)
            for j in range(nj) for i in range(ni)]


def message(edition, component, grid, values, date, time, step, missing=(), **keys):
    handle = eccodes.codes_grib_new_from_samples("regular_ll_sfc_grib%d" % edition)
    ni, nj, la1, lo1, la2, lo2, di, dj = grid
    set_key = lambda key, value: eccodes.codes_set(handle, key, value)
    set_key("Ni", ni)
    set_key("Nj", nj)
    set_key("latitudeOfFirstGridPointInDegrees", la1)
    set_key("longitudeOfFirstGridPointInDegrees", lo1)
    set_key("latitudeOfLastGridPointInDegrees", la2)
    set_key("longitudeOfLastGridPointInDegrees", lo2)
    set_key("iDirectionIncrementInDegrees", di)
    set_key("jDirectionIncrementInDegrees", dj)
    set_key("jScansPositively", 1 if la2 > la1 else 0)
    if edition == 1:
        set_key("table2Version", 2)
        set_key("indicatorOfParameter", 33 if component == "u" else 34)
        set_key("indicatorOfTypeOfLevel", 105)
        set_key("level", 10)
    else:
        set_key("discipline", 0)
        set_key("parameterCategory", 2)
        set_key("parameterNumber", 2 if component == "u" else 3)
        set_key("typeOfFirstFixedSurface", 103)
        set_key("scaleFactorOfFirstFixedSurface", 0)
        set_key("scaledValueOfFirstFixedSurface", 10)
    set_key("dataDate", date)
    set_key("dataTime", time)
    set_key("step", step)
    if missing:
        set_key("bitmapPresent", 1)
        set_key("missingValue", 1e20)
        values = [1e20 if i in missing else v for i, v in enumerate(values)]
    for key, value in keys.items():
        set_key(key, value)
    eccodes.codes_set_values(handle, values)
    return handle


CHANNEL = (7, 5, 51.0, -6.0, 49.0, -3.0, 0.5, 0.5)
NORTHWARD = (7, 5, 49.0, -6.0, 51.0, -3.0, 0.5, 0.5)
CASES = {
    "hundredths": (1, CHANNEL, {"decimalPrecision": 2}, ()),
    "bits24": (1, CHANNEL, {"changeDecimalPrecision": 3, "bitsPerValue": 24}, ()),
    "northward": (1, NORTHWARD, {"decimalPrecision": 2}, ()),
    "holes": (1, CHANNEL, {"decimalPrecision": 2}, (0, 8, 34)),
    "coarse": (1, CHANNEL, {"decimalPrecision": 0, "bitsPerValue": 8}, ()),
    "edition2": (2, CHANNEL, {"decimalPrecision": 2}, (3,)),
}


def main():
    expected = {}
    for name, (edition, grid, keys, missing) in CASES.items():
        path = os.path.join(FOLDER, name + (".grb" if edition == 1 else ".grb2"))
        with open(path, "wb") as out:
            for step in (0, 9):
                for component in "uv":
                    handle = message(edition, component, grid,
                                     field(component, grid[0], grid[1], step), 20261205, 600,
                                     step, missing, **keys)
                    eccodes.codes_write(handle, out)
                    eccodes.codes_release(handle)
        fields = []
        with open(path, "rb") as source:
            while (handle := eccodes.codes_grib_new_from_file(source)) is not None:
                eccodes.codes_set(handle, "missingValue", 1e20)
                fields.append({
                    "unit": 2.0 ** eccodes.codes_get(handle, "binaryScaleFactor") /
                            10.0 ** eccodes.codes_get(handle, "decimalScaleFactor"),
                    "reference": eccodes.codes_get(handle, "referenceValue"),
                    "values": [None if v == 1e20 else round(v, 6)
                               for v in eccodes.codes_get_values(handle)]})
                eccodes.codes_release(handle)
        expected[name] = fields
    with open(os.path.join(FOLDER, "expected.json"), "w", encoding="ascii") as out:
        json.dump(expected, out)
        out.write("\n")


if __name__ == "__main__":
    main()
