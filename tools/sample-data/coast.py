"""Land of the sample area as polygons, built from the full-resolution GSHHG coast.

GMT gives the coast as pieces cut at the borders of its storage bins, without
saying on which side the land lies.  The pieces are joined to faces and each
face is asked once, by one inner point, whether it is land.
"""
import os
import pickle
import subprocess
import sys
import tempfile

import shapely
from shapely.geometry import LineString, box
from shapely.ops import linemerge, polygonize, unary_union

# Degrees: well beyond the charts, so that no frame can cut a face open.
REGION = (-11.0, 4.0, 46.5, 53.5)


def _gmt(arguments, text=None):
    run = subprocess.run(["gmt"] + arguments, input=text, text=True,
                         stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                         cwd=tempfile.gettempdir())
    if run.returncode != 0:
        sys.exit("gmt %s failed: %s" % (arguments[0], run.stderr.strip()))
    return run.stdout


def _pieces(west, east, south, north):
    dump = _gmt(["coast", "-R%g/%g/%g/%g" % (west, east, south, north),
                 "-Df", "-A0/0/1", "-W", "-M", "--FORMAT_FLOAT_OUT=%.7f"])
    lines, points = [], []
    for row in dump.splitlines():
        if row.startswith((">", "#")):
            if len(points) > 1:
                lines.append(LineString(points))
            points = []
            continue
        longitude, latitude = (float(text) for text in row.split()[:2])
        if longitude > 180:
            longitude -= 360
        points.append((round(longitude, 6), round(latitude, 6)))
    if len(points) > 1:
        lines.append(LineString(points))
    return lines


def land(cache_dir):
    """The land of REGION as one shapely MultiPolygon (longitude, latitude)."""
    cache = os.path.join(cache_dir, "land.pickle")
    if os.path.exists(cache):
        with open(cache, "rb") as stream:
            return pickle.load(stream)
    west, east, south, north = REGION
    frame = box(west, south, east, north)
    lines = [line.intersection(frame) for line in _pieces(*REGION)]
    faces = list(polygonize(unary_union(lines + [frame.exterior])))
    faces.sort(key=lambda face: face.bounds)
    points = [face.representative_point() for face in faces]
    table = "".join("%.8f %.8f %d\n" % (point.x, point.y, number)
                    for number, point in enumerate(points))
    dry = _gmt(["select", "-Df", "-A0/0/1", "-Ns/k",
                "-R%g/%g/%g/%g" % REGION], table)
    numbers = {round(float(row.split()[2])) for row in dry.splitlines()}
    result = unary_union([face for number, face in enumerate(faces)
                          if number in numbers])
    os.makedirs(cache_dir, exist_ok=True)
    with open(cache, "wb") as stream:
        pickle.dump(result, stream)
    return result
