#!/usr/bin/python3
"""Draws the sample charts and writes their calibration, index and previews."""
import csv
import math
import os
import re
import sys
import unicodedata

import cairo
from PIL import Image

import chart_sheet
import coast
import make_diamonds
import records
from chart_sheet import (COAST, INK, LAND, LAND_INK, MAGENTA, SANS, SERIF,
                         WATER_INK, Sheet)

# A single holds this year and fraction exactly: shown as 2026/625.
ISSUE = 2026.0625

PLANS = (
    {"number": 1, "title": "English Channel", "scale": 1250000,
     "frame": (48.0, 51.65, -6.6, 2.45), "shallows": (3.0, 1.0),
     "grid": 30, "labels": 30, "bars": 5, "ticks": 1,
     "rose": (49.02, -5.95, 220), "block": (51.34, -1.60), "bar": (50, 10),
     "lettering": 1.0},
    {"number": 2, "title": "Central English Channel", "scale": 600000,
     "frame": (49.2, 51.0, -3.3, 0.3), "shallows": (1.5, 0.5),
     "grid": 30, "labels": 10, "bars": 5, "ticks": 1,
     "rose": (49.86, -0.35, 230), "block": (50.862, -2.62), "bar": (20, 5),
     "lettering": 1.08},
    {"number": 3, "title": "The Solent and Approaches", "scale": 150000,
     "frame": (50.46, 50.95, -1.90, -0.75), "shallows": (0.6, 0.2),
     "grid": 10, "labels": 5, "bars": 1, "ticks": 0.2,
     "rose": (50.555, -1.62, 330), "block": (50.885, -1.695), "bar": (5, 1),
     "lettering": 1.4},
    {"number": 4, "title": "Channel Islands", "scale": 300000,
     "frame": (48.50, 49.92, -3.0, -1.2), "shallows": (1.0, 0.3),
     "grid": 15, "labels": 5, "bars": 1, "ticks": 0.5,
     "rose": (49.67, -2.80, 310), "block": (49.47, -1.53), "bar": (10, 2),
     "lettering": 1.4},
)


# Whether a name is left off the sheets where the program writes it itself:
# those of the tidal ports and of the sample waypoints. The signs stay but for
# a port's, which has a mark of the program's own.
LEAVE_TO_PROGRAM = True

HERE = os.path.dirname(os.path.abspath(__file__))


def load_names(number):
    with open(os.path.join(HERE, "names.csv"), encoding="utf-8") as stream:
        return [row for row in csv.DictReader(stream)
                if str(number) in row["charts"].split()]


def plain(name):
    """A name as it is compared: no accents, blanks or signs, "st" for saint."""
    letters = unicodedata.normalize("NFKD", name).lower()
    return re.sub("[^a-z0-9]", "", letters).replace("saint", "st")


def load_program_names():
    """(name, latitude, longitude) of what the program names on the chart."""
    with open(os.path.join(HERE, "ports.csv"), encoding="utf-8") as stream:
        found = [(row["name"], row["latitude"], row["longitude"])
                 for row in csv.DictReader(stream)]
    source = os.path.join(HERE, "..", "..", "src", "routes",
                          "waypoint_sample.cpp")
    with open(source, encoding="utf-8") as stream:
        found += re.findall(r'\{"([^"]+)", (-?[\d.]+)F, (-?[\d.]+)F\}',
                            stream.read())
    return [(plain(name), float(latitude), float(longitude))
            for name, latitude, longitude in found]


def left_to_program(row, names):
    """Whether the program names the place of a row: under the same name within
    six miles, or a buoy within half a mile under whatever name."""
    latitude, longitude = float(row["latitude"]), float(row["longitude"])
    for name, lat, lon in names:
        miles = 60 * math.hypot(lat - latitude, (lon - longitude)
                                * math.cos(math.radians(latitude)))
        if miles < (6 if name == plain(row["name"]) else
                    0.5 if row["kind"] in ("buoy", "vessel") else 0):
            return True
    return False


# --- signs ------------------------------------------------------------------

def draw_sign(sheet, kind, x, y):
    """A sign of the size of the sheet's lettering."""
    context = sheet.context
    context.save()
    context.translate(x, y)
    context.scale(sheet.zoom ** 0.7, sheet.zoom ** 0.7)
    trace_sign(context, kind)
    context.restore()
    reach = 12 * sheet.zoom
    sheet.taken.append((x - reach, y - reach, x + reach, y + reach))
    if kind == "light":
        sheet.taken.append((x, y, x + 30 * sheet.zoom, y + 26 * sheet.zoom))


def trace_sign(context, kind):
    x = y = 0
    if kind == "port":
        context.arc(x, y, 6, 0, 2 * math.pi)
        context.set_source_rgb(1, 1, 1)
        context.fill_preserve()
        context.set_source_rgb(*INK)
        context.set_line_width(2.6)
        context.stroke()
    elif kind == "light":
        # A flare from the light, and its star.
        context.save()
        context.translate(x, y)
        context.rotate(math.radians(130))
        context.move_to(0, -5)
        context.curve_to(8, -22, 9, -34, 0, -40)
        context.curve_to(-9, -34, -8, -22, 0, -5)
        context.set_source_rgb(*MAGENTA)
        context.fill()
        context.restore()
        for point in range(10):
            radius = 9 if point % 2 == 0 else 3.8
            angle = math.radians(36 * point - 90)
            context.line_to(x + radius * math.cos(angle),
                            y + radius * math.sin(angle))
        context.close_path()
        context.set_source_rgb(*INK)
        context.fill()
    elif kind in ("buoy", "vessel"):
        context.set_source_rgb(*INK)
        context.set_line_width(2.2)
        context.arc(x, y, 3.5, 0, 2 * math.pi)
        context.stroke()
        context.move_to(x - 10, y - 3)
        context.line_to(x - 4, y - 3)
        context.move_to(x + 4, y - 3)
        context.line_to(x + 10, y - 3)
        context.stroke()
        if kind == "buoy":
            context.move_to(x - 7, y - 4)
            context.line_to(x, y - 24)
            context.line_to(x + 7, y - 4)
        else:
            context.move_to(x - 15, y - 4)
            context.line_to(x + 15, y - 4)
            context.line_to(x + 10, y + 5)
            context.line_to(x - 10, y + 5)
            context.close_path()
            context.move_to(x, y - 4)
            context.line_to(x, y - 26)
        context.stroke()
    elif kind == "head":
        context.arc(x, y, 2.6, 0, 2 * math.pi)
        context.set_source_rgb(*INK)
        context.fill()


def draw_diamonds(sheet):
    """The diamonds; where they crowd, the later ones wait for a larger
    scale."""
    context = sheet.context
    drawn = []
    size = round(17 * sheet.zoom ** 0.7)
    for number, row in enumerate(make_diamonds.load(), 1):
        x, y = sheet.point(float(row["latitude"]), float(row["longitude"]))
        if not (sheet.left + size < x < sheet.right - size
                and sheet.top + size < y < sheet.bottom - size):
            continue
        if any(abs(x - a) < 2.4 * size and abs(y - b) < 1.9 * size
               for a, b in drawn):
            continue
        drawn.append((x, y))
        context.move_to(x, y - size)
        context.line_to(x + size * 1.25, y)
        context.line_to(x, y + size)
        context.line_to(x - size * 1.25, y)
        context.close_path()
        context.set_source_rgb(0.99, 0.965, 0.98)
        context.fill_preserve()
        context.set_source_rgb(*MAGENTA)
        context.set_line_width(2)
        context.stroke()
        sheet.text_centre(str(number), x, y + 0.32 * size, 0.88 * size, SANS, halo=False,
                          bold=True, colour=MAGENTA)
        sheet.taken.append((x - size * 1.3, y - size - 1,
                            x + size * 1.3, y + size + 1))


# --- names ------------------------------------------------------------------

LAND_NAMES = ("port", "head", "light")


def sign_point(sheet, row):
    x, y = sheet.point(float(row["latitude"]), float(row["longitude"]))
    if row["kind"] == "head":
        x, y = sheet.on_coast(x, y, sheet.mile)
    return x, y


def place_name(sheet, row):
    """Writes a name beside its sign, where it crowds nothing."""
    kind, label = row["kind"], row["name"]
    size = float(row["size"]) * sheet.zoom
    x, y = sign_point(sheet, row)
    bold = kind == "port" and float(row["size"]) >= 32
    italic = kind in ("buoy", "vessel", "head", "light")
    family = SANS if kind in ("port", "buoy", "vessel") else SERIF
    if family == SERIF:
        size *= 1.12
    sheet.face(family, size, italic, bold)
    extents = sheet.context.text_extents(label)
    width, height = extents.width, size * 0.74
    best = None
    for ring, gap in enumerate((16, 24, 36, 52, 74, 100)):
        for turn in range(16):
            angle = math.radians(22.5 * turn)
            cx = x + math.cos(angle) * (gap + width / 2)
            cy = y + math.sin(angle) * (gap + height / 2)
            box = (cx - width / 2 - 4, cy - height / 2 - 4,
                   cx + width / 2 + 4, cy + height / 2 + 4)
            if not (sheet.left + 8 < box[0] and box[2] < sheet.right - 8
                    and sheet.top + 8 < box[1] and box[3] < sheet.bottom - 8):
                continue
            if not sheet.is_free(*box):
                continue
            share = sheet.land_share(*box)
            crossing = 4 * share * (1 - share)
            if kind in LAND_NAMES:
                cost = 2.0 * (1 - share) + 1.5 * crossing
            else:
                cost = 4.0 * share + 3.0 * crossing
            cost += 0.55 * ring + 0.06 * (turn % 4 != 0)
            cost += 0.1 * (turn in (3, 4, 5, 11, 12, 13))
            if best is None or cost < best[0]:
                best = (cost, cx, cy, box, share)
    if best is None:
        return False
    _, cx, cy, box, share = best
    sheet.halo_text(label, cx - width / 2 - extents.x_bearing,
                    cy + height / 2 - size * 0.06, INK,
                    LAND if share > 0.5 else (1, 1, 1))
    sheet.taken.append(box)
    return True


def draw_names(sheet):
    rows = load_names(sheet.plan["number"])
    signs = ("port", "light", "head", "buoy", "vessel")
    for row in rows:
        kind = row["kind"]
        if kind in ("area", "sea", "land"):
            x, y = sheet.point(float(row["latitude"]),
                               float(row["longitude"]))
            size = float(row["size"]) * sheet.zoom ** 0.5
            colour = LAND_INK if kind == "land" else WATER_INK
            spread = {"area": 0.85, "sea": 0.06, "land": 0.30}[kind]
            if row["name"].isupper():
                spread = max(spread, 0.22)
            sheet.spaced_text(row["name"], x, y, size,
                              float(row["angle"]), size * spread, colour,
                              italic=kind != "land", halo=kind != "land")
    draw_diamonds(sheet)
    others = load_program_names() if LEAVE_TO_PROGRAM else []
    for row in rows:
        if row["kind"] == "port" and left_to_program(row, others):
            continue
        if row["kind"] in signs:
            draw_sign(sheet, row["kind"], *sign_point(sheet, row))
    order = {"isle": 0, "port": 1, "light": 2, "vessel": 3, "buoy": 4,
             "head": 5}
    placed = sorted((row for row in rows if row["kind"] in order
                     and not left_to_program(row, others)),
                    key=lambda row: (-float(row["size"]), order[row["kind"]]))
    return [row["name"] for row in placed if not place_name(sheet, row)]


def draw_larger_sheets(sheet):
    """The outlines and numbers of the sheets of larger scale inside."""
    context = sheet.context
    for plan in PLANS:
        south, north, west, east = plan["frame"]
        if (plan["scale"] >= sheet.plan["scale"] or south < sheet.south
                or north > sheet.north or west < sheet.west
                or east > sheet.east):
            continue
        left, top = sheet.point(north, west)
        right, bottom = sheet.point(south, east)
        context.rectangle(left, top, right - left, bottom - top)
        context.set_source_rgb(*MAGENTA)
        context.set_line_width(1.6)
        context.set_dash((22, 10))
        context.stroke()
        context.set_dash(())
        label = "9999-%d" % plan["number"]
        size = 26 * sheet.zoom
        sheet.face(SANS, size)
        width = sheet.context.text_extents(label).width
        sheet.halo_text(label, right - width - 14, bottom - 14, MAGENTA)
        sheet.taken.append((right - width - 18, bottom - 18 - size,
                            right, bottom))


# --- title block ------------------------------------------------------------

def draw_block(sheet):
    plan = sheet.plan
    x, y = sheet.point(*plan["block"])
    scale = "{:,}".format(plan["scale"]).replace(",", " ")
    parallel = "%g" % round((sheet.south + sheet.north) / 2, 2)
    lines = (
        ("SAMPLE CHART 9999-%d" % plan["number"], 26, SANS, False, INK, 0),
        (plan["title"].upper(), 62, SERIF, False, INK, 66),
        ("Natural scale 1:%s at %s° N, 254 dots an inch" % (scale, parallel),
         23, SANS, False, INK, 44),
        ("Mercator projection · WGS 84 · Bearings true", 23, SANS, False,
         INK, 33),
        ("NOT FOR NAVIGATION", 42, SANS, True, MAGENTA, 62),
        ("Blue tints show distance from the shore (%g and %g miles), not depth."
         % tuple(reversed(plan["shallows"])), 21, SANS, False, INK, 40),
        ("Tidal diamonds are illustrative. Coast: GSHHG 2.3.7, LGPL-3.0+.",
         21, SANS, False, INK, 29),
    )
    zoom = sheet.zoom
    height = zoom * (sum(line[5] for line in lines) + 90)
    top = y - height / 2
    at, widest = top, 0
    for label, size, family, italic, colour, step in lines:
        at += step * zoom
        bold = family == SANS and size > 30
        size *= zoom
        sheet.face(family, size, italic and family == SERIF, bold)
        widest = max(widest, sheet.context.text_extents(label).width)
        sheet.text_centre(label, x, at, size, family, halo=False,
                          italic=italic and family == SERIF, bold=bold,
                          colour=colour)
    at += 50 * zoom
    draw_scale_bar(sheet, x, at)
    sheet.taken.append((x - widest / 2 - 24, top - 40 * zoom, x + widest / 2 + 24,
                        at + 50 * zoom))


def draw_scale_bar(sheet, x, y):
    miles, step = sheet.plan["bar"]
    # The mile's length at the block's latitude.
    latitude = sheet.plan["block"][0]
    mile = sheet.across / (60 * math.cos(math.radians(latitude)))
    context, zoom = sheet.context, sheet.zoom
    left = x - miles * mile / 2
    for index in range(miles // step):
        context.rectangle(left + index * step * mile, y, step * mile, 12 * zoom)
        context.set_source_rgb(*(INK if index % 2 == 0 else (1, 1, 1)))
        context.fill_preserve()
        context.set_source_rgb(*INK)
        context.set_line_width(1.6)
        context.stroke()
    for mark in range(0, miles + 1, step):
        sheet.text_centre(str(mark), left + mark * mile, y + 36 * zoom, 20 * zoom, SANS,
                          halo=False, colour=INK)
    sheet.text_centre("Nautical miles", x, y - 10 * zoom, 22 * zoom, SERIF, halo=False,
                      italic=True, colour=INK)


# --- files ------------------------------------------------------------------

def save(sheet, folder):
    plan = sheet.plan
    key = "9999-%d" % plan["number"]
    base = os.path.join(folder, key)
    data = bytes(sheet.surface.get_data())
    picture = Image.frombuffer("RGB", (sheet.width, sheet.height), data, "raw",
                               "BGRX", sheet.surface.get_stride(), 1)
    paletted = picture.quantize(128, method=Image.MEDIANCUT, dither=Image.NONE)
    with open(base + ".l55", "wb") as stream:
        paletted.save(stream, "PNG", optimize=True)
    small = picture.resize((400, round(400 * sheet.height / sheet.width)),
                           Image.LANCZOS)
    with open(base + ".tif", "wb") as stream:
        small.save(stream, "TIFF", compression="tiff_lzw")
    records.write(base + ".cht", records.CHART.pack(
        sheet.north, sheet.top, sheet.south, sheet.bottom,
        sheet.west, sheet.left, sheet.east, sheet.right,
        plan["scale"], 0, ISSUE, 0, sheet.width, sheet.height, b""))
    return records.CHART_INDEX.pack(
        records.text(key, 16), records.text(plan["title"], 64), plan["scale"],
        sheet.south, sheet.west, sheet.north, sheet.east, b" ", b" ")


def main(program, build, only):
    folder = os.path.join(program, "Charts")
    os.makedirs(folder, exist_ok=True)
    land = coast.land(build)
    index = b""
    for plan in PLANS:
        if only and str(plan["number"]) not in only:
            continue
        sheet = Sheet(plan)
        sheet.draw_sea_and_land(land)
        draw_larger_sheets(sheet)
        draw_block(sheet)
        sheet.draw_rose()
        left_out = draw_names(sheet)
        sheet.draw_frame()
        index += save(sheet, folder)
        print("9999-%d: %d x %d%s" % (
            plan["number"], sheet.width, sheet.height,
            ", no room for " + ", ".join(left_out) if left_out else ""))
    if not only:
        records.write(os.path.join(folder, "Sample Chart.xrf"), index)


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2], sys.argv[3:])
