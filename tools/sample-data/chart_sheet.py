"""One sheet of the sample charts: its projection, coast, frame and rose."""
import math

import cairo
import numpy as np
from shapely.geometry import LinearRing, Point, Polygon, box
from shapely.ops import nearest_points, transform, unary_union

SERIF, SANS = "EB Garamond", "Lato"
MARGIN = 140           # pixels from the edge of the image to the neat line
METRES_PER_PIXEL = 1e-4  # on paper: a sheet scanned at 254 dots an inch
EARTH = 6378137.0

PAPER = (0.985, 0.98, 0.955)
SEA = (0.965, 0.98, 0.985)
SHALLOWS = ((0.875, 0.94, 0.965), (0.76, 0.88, 0.935))  # outer, inner
SHALLOW_EDGE = (0.50, 0.70, 0.82)
LAND = (0.945, 0.875, 0.685)
COAST = (0.24, 0.20, 0.13)
GRID = (0.52, 0.58, 0.62)
INK = (0.13, 0.13, 0.15)
WATER_INK = (0.13, 0.30, 0.45)
LAND_INK = (0.47, 0.38, 0.22)
MAGENTA = (0.66, 0.13, 0.46)


def mercator(latitude):
    s = math.sin(math.radians(latitude))
    return math.log((1 + s) / (1 - s)) / 2


def smoothed(ring):
    """A ring with its corners cut twice; small ones stay as they are.

    The source stores positions on a grid whose steps show at large scales.
    """
    points = np.array(LinearRing(ring).simplify(2.0).coords)[:-1]
    if len(points) < 12:
        return ring
    for _ in range(2):
        following = np.roll(points, -1, 0)
        points = np.stack([0.75 * points + 0.25 * following,
                           0.25 * points + 0.75 * following], 1).reshape(-1, 2)
    return points


class Sheet:
    """A Mercator sheet, its surface, and the boxes that are taken on it."""

    def __init__(self, plan):
        self.plan = plan
        self.south, self.north, self.west, self.east = plan["frame"]
        middle = math.radians((self.south + self.north) / 2)
        metres = plan["scale"] * METRES_PER_PIXEL
        per_degree = math.radians(EARTH) * math.cos(middle) / metres
        self.left = self.top = MARGIN
        self.right = MARGIN + round((self.east - self.west) * per_degree)
        self.across = (self.right - self.left) / (self.east - self.west)
        span = mercator(self.north) - mercator(self.south)
        self.bottom = MARGIN + round(span * math.degrees(self.across))
        self.down = (self.bottom - self.top) / span
        self.width, self.height = self.right + MARGIN, self.bottom + MARGIN
        self.mile = 1852.0 / metres
        self.surface = cairo.ImageSurface(cairo.FORMAT_RGB24,
                                          self.width, self.height)
        self.context = cairo.Context(self.surface)
        self.context.set_line_join(cairo.LINE_JOIN_ROUND)
        self.zoom = plan["lettering"]
        self.taken = []

    def point(self, latitude, longitude):
        return (self.left + (longitude - self.west) * self.across,
                self.top + (mercator(self.north) - mercator(latitude))
                * self.down)

    # --- sea and land -------------------------------------------------------

    def _on_sheet(self, land):
        pad = 0.25
        part = land.intersection(box(self.west - pad, self.south - pad,
                                     self.east + pad, self.north + pad))

        def project(longitudes, latitudes):
            s = np.sin(np.radians(latitudes))
            y = np.log((1 + s) / (1 - s)) / 2
            return (self.left + (np.asarray(longitudes) - self.west)
                    * self.across,
                    self.top + (mercator(self.north) - y) * self.down)

        return transform(project, part)

    def _trace(self, context, shape):
        for polygon in getattr(shape, "geoms", [shape]):
            if not isinstance(polygon, Polygon):
                continue
            for ring in (polygon.exterior, *polygon.interiors):
                points = list(ring.coords)
                context.move_to(*points[0])
                for point in points[1:-1]:
                    context.line_to(*point)
                context.close_path()

    def draw_sea_and_land(self, land):
        context = self.context
        context.set_source_rgb(*PAPER)
        context.paint()
        context.rectangle(self.left, self.top, self.right - self.left,
                          self.bottom - self.top)
        context.clip()
        context.set_source_rgb(*SEA)
        context.paint()
        shape = self._on_sheet(land)
        if self.plan["scale"] <= 300000:
            shape = unary_union([
                Polygon(smoothed(polygon.exterior),
                        [smoothed(ring) for ring in polygon.interiors])
                .buffer(0) for polygon in getattr(shape, "geoms", [shape])])
        self.shape = shape
        smooth = unary_union([piece.simplify(1.0) for piece in
                              getattr(shape, "geoms", [shape])])
        for miles, colour in zip(self.plan["shallows"], SHALLOWS):
            self._trace(context, smooth.buffer(miles * self.mile, 10)
                        .simplify(0.4))
            context.set_source_rgb(*colour)
            context.fill_preserve()
            context.set_source_rgb(*SHALLOW_EDGE)
            context.set_line_width(1.3)
            context.stroke()
        self._grid()
        self._trace(context, shape)
        context.set_source_rgb(*LAND)
        context.fill_preserve()
        context.set_source_rgb(*COAST)
        context.set_line_width(2.0)
        context.stroke()
        self._mask_land(shape)

    def _mask_land(self, shape):
        """A quarter-size picture of the land, for placing names."""
        mask = cairo.ImageSurface(cairo.FORMAT_A8, self.width // 4 + 1,
                                  self.height // 4 + 1)
        context = cairo.Context(mask)
        context.scale(0.25, 0.25)
        self._trace(context, shape)
        context.fill()
        mask.flush()
        rows = np.frombuffer(mask.get_data(), np.uint8).reshape(
            mask.get_height(), mask.get_stride())
        land = (rows[:, :mask.get_width()] > 127).astype(np.float64)
        self._land_sum = np.pad(land.cumsum(0).cumsum(1), ((1, 0), (1, 0)))

    def on_coast(self, x, y, reach):
        """The point of the coast nearest to a point, if within reach."""
        here = Point(x, y)
        nearest, _ = nearest_points(self.shape.boundary, here)
        return ((nearest.x, nearest.y) if nearest.distance(here) <= reach
                else (x, y))

    def land_share(self, x0, y0, x1, y1):
        rows, columns = self._land_sum.shape
        a, b = (min(max(int(v / 4), 0), columns - 2) for v in (x0, x1))
        c, d = (min(max(int(v / 4), 0), rows - 2) for v in (y0, y1))
        b, d = max(b, a + 1), max(d, c + 1)
        total = (self._land_sum[d, b] - self._land_sum[c, b]
                 - self._land_sum[d, a] + self._land_sum[c, a])
        return total / ((b - a) * (d - c))

    # --- grid and frame -----------------------------------------------------

    def _steps(self, low, high, minutes):
        first = math.ceil(round(low * 60 / minutes, 6))
        last = math.floor(round(high * 60 / minutes, 6))
        return [index * minutes for index in range(first, last + 1)]

    def _grid(self):
        context = self.context
        context.set_source_rgb(*GRID)
        context.set_line_width(1.0)
        step = self.plan["grid"]
        for minutes in self._steps(self.west, self.east, step):
            x = round(self.point(self.south, minutes / 60)[0]) + 0.5
            context.move_to(x, self.top)
            context.line_to(x, self.bottom)
        for minutes in self._steps(self.south, self.north, step):
            y = round(self.point(minutes / 60, self.west)[1]) + 0.5
            context.move_to(self.left, y)
            context.line_to(self.right, y)
        context.stroke()

    def _sides(self):
        """For each side: its range of degrees and a function (degree, depth
        outside the neat line) -> point."""
        def top(degree, depth):
            return self.point(self.north, degree)[0], self.top - depth

        def bottom(degree, depth):
            return self.point(self.north, degree)[0], self.bottom + depth

        def left(degree, depth):
            return self.left - depth, self.point(degree, self.west)[1]

        def right(degree, depth):
            return self.right + depth, self.point(degree, self.west)[1]

        return ((self.west, self.east, top), (self.west, self.east, bottom),
                (self.south, self.north, left), (self.south, self.north, right))

    def draw_frame(self):
        context = self.context
        context.reset_clip()
        ticks, bars, labels = (self.plan[key]
                               for key in ("ticks", "bars", "labels"))
        context.set_source_rgb(*INK)
        for low, high, place in self._sides():
            horizontal = place(low, 0)[1] == place(high, 0)[1]
            context.set_line_width(1.2)
            for minutes in self._steps(low, high, ticks):
                context.move_to(*place(minutes / 60, 0))
                context.line_to(*place(minutes / 60, 14))
            context.stroke()
            edges = sorted({low * 60, high * 60, *self._steps(low, high, bars)})
            for start, end in zip(edges, edges[1:]):
                if math.floor(round(start / bars, 6)) % 2:
                    continue
                corners = [place(start / 60, 14), place(end / 60, 14),
                           place(end / 60, 26), place(start / 60, 26)]
                context.move_to(*corners[0])
                for corner in corners[1:]:
                    context.line_to(*corner)
                context.close_path()
            context.fill()
            for minutes in self._steps(low, high, labels):
                if min(minutes / 60 - low, high - minutes / 60) < 1e-6:
                    continue  # the frame's corner
                context.set_line_width(2)
                context.move_to(*place(minutes / 60, 0))
                context.line_to(*place(minutes / 60, 26))
                context.stroke()
                self._frame_label(minutes, place, horizontal)
        for depth, line in ((0, 2), (14, 1.2), (26, 1.6), (118, 4)):
            context.set_line_width(line)
            context.rectangle(self.left - depth, self.top - depth,
                              self.right - self.left + 2 * depth,
                              self.bottom - self.top + 2 * depth)
            context.stroke()

    def _frame_label(self, minutes, place, horizontal):
        context = self.context
        whole, part = divmod(abs(round(minutes)), 60)
        if part == 0:
            letter = (("W" if minutes < 0 else "E" if minutes > 0 else "")
                      if horizontal else "N")
            label, size = "%d°%s" % (whole, letter), 28
        else:
            label, size = "%02d′" % part, 26
        context.select_font_face(SANS, cairo.FONT_SLANT_NORMAL,
                                 cairo.FONT_WEIGHT_BOLD if part == 0
                                 else cairo.FONT_WEIGHT_NORMAL)
        context.set_font_size(size)
        box_ = context.text_extents(label)
        x, y = place(minutes / 60, 72)
        context.move_to(x - box_.width / 2 - box_.x_bearing, y + size * 0.36)
        context.show_text(label)
        context.new_path()

    # --- rose ---------------------------------------------------------------

    def draw_rose(self):
        latitude, longitude, radius = self.plan["rose"]
        context = self.context
        x, y = self.point(latitude, longitude)
        context.save()
        context.translate(x, y)
        context.set_source_rgb(*MAGENTA)
        context.set_line_width(2)
        for r in (radius, radius * 0.62):
            context.arc(0, 0, r, 0, 2 * math.pi)
            context.stroke()
        for degree in range(360):
            length = 26 if degree % 10 == 0 else 18 if degree % 5 == 0 else 10
            context.save()
            context.rotate(math.radians(degree))
            context.set_line_width(1.8 if degree % 10 == 0 else 1)
            context.move_to(0, -radius)
            context.line_to(0, -radius + length)
            context.stroke()
            if degree % 30 == 0:
                self._rose_text("%03d" % degree, -radius - 12, 26)
            elif degree % 10 == 0:
                self._rose_text("%d" % degree, -radius - 10, 19)
            context.restore()
        self._rose_star(radius * 0.60)
        context.restore()
        for text, offset, size in (
                ("TRUE", -0.73, 22), ("Magnetic variation not", 0.735, 17),
                ("shown: see a current chart", 0.815, 17)):
            self.text_centre(text, x, y + offset * radius,
                             size * radius / 240, SANS, halo=False,
                             colour=MAGENTA)
        reach = radius + 45
        self.taken.append((x - reach, y - reach, x + reach, y + reach))

    def _rose_text(self, label, y, size):
        context = self.context
        context.select_font_face(SANS, cairo.FONT_SLANT_NORMAL,
                                 cairo.FONT_WEIGHT_NORMAL)
        context.set_font_size(size)
        box_ = context.text_extents(label)
        context.move_to(-box_.width / 2 - box_.x_bearing, y)
        context.show_text(label)
        context.new_path()

    def _rose_star(self, radius):
        context = self.context
        for order, length in ((3, 0.40), (2, 0.62), (1, 0.96)):
            for quarter in range(16 if order == 3 else 8 if order == 2 else 4):
                step = {3: 22.5, 2: 45, 1: 90}[order]
                if (quarter * step) % {3: 45, 2: 90, 1: 400}[order] == 0 \
                        and order > 1:
                    continue
                context.save()
                context.rotate(math.radians(quarter * step))
                for side in (-1, 1):
                    context.move_to(0, 0)
                    context.line_to(side * radius * 0.11 * length * 1.6,
                                    -radius * 0.17 * length * 1.6)
                    context.line_to(0, -radius * length)
                    context.close_path()
                    context.set_source_rgb(
                        *(MAGENTA if side > 0 else (0.98, 0.94, 0.965)))
                    context.fill_preserve()
                    context.set_source_rgb(*MAGENTA)
                    context.set_line_width(1.2)
                    context.stroke()
                context.restore()

    # --- text ---------------------------------------------------------------

    def face(self, family, size, italic=False, bold=False):
        self.context.select_font_face(
            family,
            cairo.FONT_SLANT_ITALIC if italic else cairo.FONT_SLANT_NORMAL,
            cairo.FONT_WEIGHT_BOLD if bold else cairo.FONT_WEIGHT_NORMAL)
        self.context.set_font_size(size)

    def halo_text(self, label, x, y, colour, halo=(1, 1, 1), width=6):
        """The label with its baseline at y, over a soft light edge."""
        context = self.context
        context.move_to(x, y)
        context.text_path(label)
        context.set_source_rgba(*halo, 0.75)
        context.set_line_width(width)
        context.stroke_preserve()
        context.set_source_rgb(*colour)
        context.fill()

    def text_centre(self, label, x, y, size, family, halo=True, italic=False,
                    bold=False, colour=None):
        self.face(family, size, italic, bold)
        box_ = self.context.text_extents(label)
        left = x - box_.width / 2 - box_.x_bearing
        if halo:
            self.halo_text(label, left, y, colour or INK)
            return
        if colour:
            self.context.set_source_rgb(*colour)
        self.context.move_to(left, y)
        self.context.show_text(label)
        self.context.new_path()

    def spaced_text(self, label, x, y, size, angle, spacing, colour,
                    family=SERIF, italic=True, halo=True):
        """A label centred on a point, letters apart, along a slope."""
        context = self.context
        self.face(family, size, italic)
        advances = [context.text_extents(letter).x_advance + spacing
                    for letter in label]
        context.save()
        context.translate(x, y)
        context.rotate(math.radians(angle))
        at = -(sum(advances) - spacing) / 2
        half = -at
        for letter, advance in zip(label, advances):
            if halo:
                self.halo_text(letter, at, size * 0.33, colour, SEA, 5)
            else:
                context.set_source_rgb(*colour)
                context.move_to(at, size * 0.33)
                context.show_text(letter)
                context.new_path()
            at += advance
        context.restore()
        self._take_along(x, y, half, size, angle)

    def _take_along(self, x, y, half, size, angle):
        pieces = max(1, int(2 * half / size))
        c, s = math.cos(math.radians(angle)), math.sin(math.radians(angle))
        for piece in range(pieces + 1):
            at = -half + 2 * half * piece / pieces
            self.taken.append((x + at * c - size * 0.5, y + at * s - size * 0.45,
                               x + at * c + size * 0.5, y + at * s + size * 0.45))

    def is_free(self, x0, y0, x1, y1):
        return not any(x0 < d and c < x1 and y0 < f and e < y1
                       for c, e, d, f in self.taken)
