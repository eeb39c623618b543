#!/usr/bin/env python3
"""Reads the tool's maps with GDAL's and libxml2's command-line tools, as a
GIS user opens them.

For every readable sample scenario and command message, and for each sample
response beside the document that holds what it names: the GeoJSON, the KML
and the KMZ each hold one feature per object with the same geometries
(ogrinfo), every KML is well-formed (xmllint), the KMZ holds doc.kml first.
A picture placed with worldfile opens in GDAL with its corners exactly at the
extent's edges (gdalinfo), and a KMZ carries it as a ground overlay.

Usage: scripts/check-maps.py PATH/TO/kelxml [EXAMPLES_DIR]
"""
import json
import os
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import zipfile
import zlib
from xml.etree import ElementTree

kelxml = sys.argv[1]
examples = sys.argv[2] if len(sys.argv) > 2 else os.path.join(os.path.dirname(__file__), "..", "examples")
failures = []


def fail(message):
    failures.append(message)
    print("FAIL: " + message)


def run(arguments, expect=0):
    done = subprocess.run(arguments, capture_output=True, text=True)
    if done.returncode != expect:
        fail("%s exited %d, not %d: %s" % (" ".join(arguments), done.returncode, expect, done.stderr))
    return done


def geometries(path):
    """The features' geometries as ogrinfo prints them, sorted, and their number."""
    done = run(["ogrinfo", "-ro", "-al", "-q", path])
    count = len(re.findall(r"^OGRFeature\(", done.stdout, re.M))
    shapes = sorted(re.findall(r"^  ((?:POINT|LINESTRING|POLYGON) .*)$", done.stdout, re.M))
    return count, shapes


def check_document(work, name, document, beside=None, expect=0):
    extra = ["--scenario", beside] if beside else []
    stem = os.path.join(work, name)
    run([kelxml, "geojson", document, "-o", stem + ".json"] + extra, expect)
    run([kelxml, "kml", document, "-o", stem + ".kml"] + extra, expect)
    run([kelxml, "kml", document, "-o", stem + ".kmz"] + extra, expect)
    svg = run([kelxml, "svg", document] + extra, expect)
    with open(stem + ".svg", "w") as output:
        output.write(svg.stdout)
    with open(stem + ".json") as source:
        features = json.load(source)["features"]
    objects = len(features)
    # The SVG draws a marker per point, an outline per area and result
    # record, a line per interlink: as many as the GeoJSON has geometries.
    drawn = {"marker": 0, "area": 0, "link": 0}
    for element in ElementTree.fromstring(svg.stdout.encode()).iter():
        first = element.get("class", "").split(" ")[0]
        if first in drawn:
            drawn[first] += 1
    types = [(f["geometry"] or {}).get("type") for f in features]
    expected = {"marker": types.count("Point"), "area": types.count("Polygon"),
                "link": types.count("LineString")}
    if drawn != expected:
        fail("%s.svg draws %s, the GeoJSON holds %s" % (name, drawn, expected))
    reference = geometries(stem + ".json")
    if reference[0] != objects:
        fail("%s: ogrinfo reads %d GeoJSON features, the file holds %d" % (name, reference[0], objects))
    for suffix in (".kml", ".kmz"):
        found = geometries(stem + suffix)
        if found != reference:
            fail("%s%s: ogrinfo reads %s, the GeoJSON %s" % (name, suffix, found, reference))
    run(["xmllint", "--noout", stem + ".kml"])
    run(["xmllint", "--noout", stem + ".svg"])
    with zipfile.ZipFile(stem + ".kmz") as kmz:
        if kmz.namelist()[0] != "doc.kml":
            fail("%s.kmz: %s comes first, not doc.kml" % (name, kmz.namelist()[0]))
        with open(stem + "-doc.kml", "wb") as doc:
            doc.write(kmz.read("doc.kml"))
    run(["xmllint", "--noout", stem + "-doc.kml"])
    return objects


def png(path, width, height):
    """A plain grey picture of the size."""
    raw = b"".join(b"\0" + b"\x80" * width for _ in range(height))
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    with open(path, "wb") as output:
        output.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 0, 0, 0, 0))
                     + chunk(b"IDAT", zlib.compress(raw)) + chunk(b"IEND", b""))


def check_picture(work, extent, box, beside=None):
    picture = os.path.join(work, "placed.png")
    png(picture, 300, 200)
    extra = ["--scenario", beside] if beside else []
    run([kelxml, "worldfile", picture, "--extent", extent] + extra)
    info = json.loads(run(["gdalinfo", "-json", picture]).stdout)
    corners = info.get("cornerCoordinates", {})
    west, south, east, north = box
    for corner, expected in (("upperLeft", [west, north]), ("lowerRight", [east, south])):
        got = corners.get(corner)
        if not got or any(abs(a - b) > 1e-9 for a, b in zip(got, expected)):
            fail("--extent %s: gdalinfo puts the %s corner at %s, not %s" % (extent, corner, got, expected))
    if "4326" not in json.dumps(info.get("coordinateSystem", {})):
        fail("--extent %s: gdalinfo finds no WGS 84" % extent)


def main():
    work = tempfile.mkdtemp()
    try:
        documents = 0
        for folder in ("XmlKelBtType", "XmlCmdRoot"):
            for name in sorted(os.listdir(os.path.join(examples, folder))):
                if name.endswith(".xml") and not name.startswith("unreadable-"):
                    check_document(work, folder + "-" + name[:-4], os.path.join(examples, folder, name))
                    documents += 1
        harbour = os.path.join(examples, "XmlKelBtType", "valid-harbour-results.xml")
        stations = os.path.join(examples, "XmlCmdRoot", "valid-create-link-stations.xml")
        link = check_document(work, "link", os.path.join(examples, "XmlRespRoot", "valid-interlink-result.xml"),
                              stations)
        if link != 3:
            fail("the interlink response beside its stations gives %d features, not 3" % link)
        grid = check_document(work, "grid", os.path.join(examples, "XmlRespRoot", "unreadable-grid-cep-harbour.xml"),
                              harbour)
        if grid != 4:
            fail("the CEP response beside the harbour gives %d features, not 4" % grid)

        check_picture(work, "8.5,53.45,8.7,53.6", (8.5, 53.45, 8.7, 53.6))
        check_picture(work, "area:Harbour basin", (8.57, 53.503, 8.636, 53.552), harbour)
        picture = os.path.join(work, "placed.png")
        kmz = os.path.join(work, "placed.kmz")
        run([kelxml, "kml", harbour, "--picture", picture, "--extent", "result:CEP harbour", "-o", kmz])
        with zipfile.ZipFile(kmz) as archive:
            if archive.namelist() != ["doc.kml", "files/placed.png"]:
                fail("the KMZ holds %s" % archive.namelist())
            if b"<href>files/placed.png</href>" not in archive.read("doc.kml"):
                fail("the KMZ's ground overlay does not link its picture")
        print("maps: %d documents and 2 responses read by GDAL, %d failures" % (documents, len(failures)))
    finally:
        shutil.rmtree(work)
    return 1 if failures else 0


sys.exit(main())
