#!/usr/bin/python3
"""Writes the bundled drawing library under share/support/DwgLib/.

  make_dwglib.py [ROOT]        ROOT defaults to share/support/DwgLib beside this script's tree

The group "ARCH" holds three libraries (doors, windows, furniture and
fixtures), each a ".DML" file with directories and a dozen items. Every item
has a block drawing (DXF of release 2000, written with ezdxf; the library
names it "....DWG" and the host reads the ".dxf" sibling) and most have a
small preview picture: ".bmp" (1 bit), ".jpg", ".jpeg", or a slide library
".slb". WASHBASIN has both a ".slb" and a ".jpg", to show which one wins.

Run with Debian's interpreter: python3-ezdxf draws the blocks, Pillow (a
dependency of python3-matplotlib) the pictures.
"""
import math
import os
import struct
import sys
from xml.sax.saxutils import quoteattr

import ezdxf
from PIL import Image, ImageDraw

GROUP = "ARCH"

# ---- Geometry: every block is a list of ("line", x1, y1, x2, y2),
# ("arc", cx, cy, r, start_deg, end_deg) and ("circle", cx, cy, r), in mm,
# with the insertion point at the origin.


def rect(x, y, w, h):
    return [("line", x, y, x + w, y), ("line", x + w, y, x + w, y + h),
            ("line", x + w, y + h, x, y + h), ("line", x, y + h, x, y)]


WALL = 240.0


def jambs(w):
    # The wall ends either side of the opening.
    return [("line", 0, 0, 0, WALL), ("line", w, 0, w, WALL),
            ("line", -200, 0, 0, 0), ("line", -200, WALL, 0, WALL),
            ("line", w, 0, w + 200, 0), ("line", w, WALL, w + 200, WALL)]


def swing_door(w):
    # The leaf standing open at the hinge and the quarter circle it sweeps.
    return jambs(w) + rect(0, WALL, 40, w) + [("arc", 0, WALL, w, 0, 90)]


def double_door(w):
    half = w / 2
    return jambs(w) + rect(0, WALL, 40, half) + rect(w - 40, WALL, 40, half) + [
        ("arc", 0, WALL, half, 0, 90), ("arc", w, WALL, half, 90, 180)]


def unequal_door(w):
    big = w * 2 / 3
    small = w - big
    return jambs(w) + rect(0, WALL, 40, big) + rect(w - 40, WALL, 40, small) + [
        ("arc", 0, WALL, big, 0, 90), ("arc", w, WALL, small, 90, 180)]


def sliding_door(w):
    half = w / 2 + 50
    return jambs(w) + rect(0, 60, half, 50) + rect(w - half, 130, half, 50)


def casement_window(w):
    return jambs(w) + [("line", 0, y, w, y) for y in (0, 80, 160, WALL)]


def sliding_window(w):
    half = w / 2 + 50
    return jambs(w) + [("line", 0, 0, w, 0), ("line", 0, WALL, w, WALL)] + \
        rect(0, 80, half, 40) + rect(w - half, 120, half, 40)


def bay_window(w):
    d = 600.0
    out = jambs(w) + [("line", 0, 0, w, 0)]
    for off in (0, 80):
        out += [("line", off, WALL, off, WALL + d - off), ("line", off, WALL + d - off, w - off, WALL + d - off),
                ("line", w - off, WALL + d - off, w - off, WALL)]
    return out


def high_window(w):
    return jambs(w) + [("line", 0, 120, w, 120)] + rect(0, 80, w, 80)


def bed(w, d=2000.0):
    out = rect(0, 0, w, d) + [("line", 0, 450, w, 450), ("line", 0, d - 600, w, d - 500)]
    pillows = 1 if w < 1400 else 2
    pw = (w - 100 * (pillows + 1)) / pillows
    for i in range(pillows):
        out += rect(100 + i * (pw + 100), 80, pw, 300)
    return out


def wardrobe(w, d=600.0):
    out = rect(0, 0, w, d) + [("line", 0, 40, w, 40), ("line", 50, d / 2, w - 50, d / 2)]
    for x in range(100, int(w) - 50, 150):
        out += [("line", x, d / 2 - 80, x, d / 2 + 80)]
    return out


def washbasin(w=600.0, d=450.0):
    return rect(0, 0, w, d) + [("circle", w / 2, d / 2 + 30, min(w, d) / 2 - 60),
                               ("circle", w / 2, d / 2 + 30, 20), ("circle", w / 2, d - 50, 25)]


def toilet():
    return rect(0, 0, 500, 200) + [("arc", 250, 420, 200, 200, 340), ("line", 62, 352, 62, 200),
                                   ("line", 438, 352, 438, 200), ("circle", 250, 440, 150)]


def bathtub(w=1700.0, d=750.0):
    return rect(0, 0, w, d) + rect(60, 60, w - 120, d - 120) + [("circle", w - 200, d / 2, 30)]


def shower(w=900.0):
    return rect(0, 0, w, w) + [("line", 0, 0, w, w), ("line", w, 0, 0, w), ("circle", w / 2, w / 2, 50)]


def sink(w=800.0, d=500.0):
    return rect(0, 0, w, d) + rect(50, 50, w / 2 - 75, d - 100) + rect(w / 2 + 25, 50, w / 2 - 75, d - 100) + [
        ("circle", w / 4, d / 2, 20), ("circle", 3 * w / 4, d / 2, 20)]


def stove(w=750.0, d=450.0):
    return rect(0, 0, w, d) + [("circle", w / 4, d / 2, 120), ("circle", 3 * w / 4, d / 2, 120),
                               ("circle", w / 4, d / 2, 60), ("circle", 3 * w / 4, d / 2, 60)]


def sofa(w=2100.0, d=850.0):
    return rect(0, 0, w, d) + rect(0, d - 200, w, 200) + rect(0, 0, 200, d - 200) + rect(w - 200, 0, 200, d - 200) + [
        ("line", w / 3 + 67, 0, w / 3 + 67, d - 200), ("line", 2 * w / 3 - 67, 0, 2 * w / 3 - 67, d - 200)]


def table(w=1200.0, d=800.0):
    out = rect(0, 0, w, d)
    for x in (w / 4, 3 * w / 4):
        out += [("circle", x, -250, 200), ("circle", x, d + 250, 200)]
    return out


# ---- The libraries: (file stem, root element name, library name, English,
# [(directory, English, [(block, geometry, attributes, preview)]) ...]).

def door_items(prefix, kind_cn, kind_en, widths, maker, h=2100):
    out = []
    for w in widths:
        block = "%s%02d%02d" % (prefix, w // 100, h // 100)
        out.append((block, maker(float(w)), {
            "width": str(w), "height": str(h), "type": kind_en,
            "desc": "%s %d\u00d7%d" % (kind_cn, w, h), "desc_en": "%s door %d x %d" % (kind_en, w, h)}))
    return out


def window_items(prefix, kind_cn, kind_en, widths, maker, h=1500):
    out = []
    for w in widths:
        block = "%s%02d%02d" % (prefix, w // 100, h // 100)
        out.append((block, maker(float(w)), {
            "width": str(w), "height": str(h), "type": kind_en,
            "desc": "%s %d\u00d7%d" % (kind_cn, w, h), "desc_en": "%s window %d x %d" % (kind_en, w, h)}))
    return out


def thing(block, geometry, w, d, kind_en, cn, en):
    return (block, geometry, {"width": str(int(w)), "depth": str(int(d)), "type": kind_en, "desc": cn, "desc_en": en})


LIBRARIES = [
    ("DOOR", "\u95e8", "Doors", [
        ("\u5355\u6247\u5e73\u5f00\u95e8", "Single swing",
         door_items("M", "\u5355\u6247\u5e73\u5f00\u95e8", "single swing", [700, 800, 900, 1000], swing_door)),
        ("\u53cc\u6247\u5e73\u5f00\u95e8", "Double swing",
         door_items("SM", "\u53cc\u6247\u5e73\u5f00\u95e8", "double swing", [1200, 1500, 1800], double_door)),
        ("\u63a8\u62c9\u95e8", "Sliding",
         door_items("TLM", "\u63a8\u62c9\u95e8", "sliding", [1500, 1800, 2400], sliding_door)),
        ("\u5b50\u6bcd\u95e8", "Unequal leaves",
         door_items("ZMM", "\u5b50\u6bcd\u95e8", "unequal leaves", [1200, 1500], unequal_door)),
    ]),
    ("WINDOW", "\u7a97", "Windows", [
        ("\u5e73\u5f00\u7a97", "Casement",
         window_items("C", "\u5e73\u5f00\u7a97", "casement", [600, 900, 1200, 1500, 1800], casement_window)),
        ("\u63a8\u62c9\u7a97", "Sliding",
         window_items("TC", "\u63a8\u62c9\u7a97", "sliding", [1200, 1500, 1800], sliding_window)),
        ("\u51f8\u7a97", "Bay",
         window_items("BC", "\u51f8\u7a97", "bay", [1800, 2400], bay_window, h=1800)),
        ("\u9ad8\u7a97", "High",
         window_items("GC", "\u9ad8\u7a97", "high", [900, 1200], high_window, h=600)),
    ]),
    ("FURNITURE", "\u5bb6\u5177\u4e0e\u6d01\u5177", "Furniture and fixtures", [
        ("\u5367\u5ba4", "Bedroom", [
            thing("BED1220", bed(1200.0), 1200, 2000, "bed", "\u5355\u4eba\u5e8a 1200\u00d72000", "single bed 1200 x 2000"),
            thing("BED1520", bed(1500.0), 1500, 2000, "bed", "\u53cc\u4eba\u5e8a 1500\u00d72000", "double bed 1500 x 2000"),
            thing("BED1820", bed(1800.0), 1800, 2000, "bed", "\u53cc\u4eba\u5e8a 1800\u00d72000", "double bed 1800 x 2000"),
            thing("WARDROBE", wardrobe(1800.0), 1800, 600, "wardrobe", "\u8863\u67dc", "wardrobe"),
        ]),
        ("\u536b\u751f\u95f4", "Bathroom", [
            thing("BATHTUB", bathtub(), 1700, 750, "bathtub", "\u6d74\u7f38", "bathtub"),
            thing("SHOWER", shower(), 900, 900, "shower", "\u6dcb\u6d74\u95f4", "shower"),
        ]),
        ("\u53a8\u623f", "Kitchen", [
            thing("SINK", sink(), 800, 500, "sink", "\u53cc\u69fd\u6d17\u83dc\u76c6", "double kitchen sink"),
            thing("STOVE", stove(), 750, 450, "stove", "\u7076\u53f0", "cooker"),
        ]),
        ("\u5ba2\u5385", "Living room", [
            thing("SOFA", sofa(), 2100, 850, "sofa", "\u4e09\u4eba\u6c99\u53d1", "three-seat sofa"),
            thing("TABLE", table(), 1200, 800, "table", "\u9910\u684c\u4e0e\u56db\u6905", "dining table with four chairs"),
        ]),
    ]),
]

# A directory inside a directory: the sanitary fixtures of the bathroom.
NESTED = ("FURNITURE", "\u536b\u751f\u95f4", "\u6d01\u5177", "Sanitary", [
    thing("WASHBASIN", washbasin(), 600, 450, "washbasin", "\u6d17\u8138\u76c6", "washbasin"),
    thing("TOILET", toilet(), 500, 650, "toilet", "\u5750\u4fbf\u5668", "toilet"),
])

# Which preview each block gets; the rest get a ".bmp", and these none:
PREVIEWS = {"WASHBASIN": [".slb", ".jpg"], "BED1520": [".jpg"], "SOFA": [".jpeg"], "C1815": [".slb"]}
NO_PREVIEW = {"TLM1521", "TLM1821", "TLM2421", "GC0906"}


# ---- Writers ----

def points_of(shape, steps=24):
    """The shape as polylines of points."""
    kind = shape[0]
    if kind == "line":
        return [[(shape[1], shape[2]), (shape[3], shape[4])]]
    if kind == "circle":
        cx, cy, r = shape[1:]
        a0, a1 = 0.0, 360.0
    else:
        cx, cy, r, a0, a1 = shape[1:]
        if a1 < a0:
            a1 += 360.0
    return [[(cx + r * math.cos(math.radians(a0 + (a1 - a0) * i / steps)),
              cy + r * math.sin(math.radians(a0 + (a1 - a0) * i / steps))) for i in range(steps + 1)]]


def extents(geometry):
    xs, ys = [], []
    for shape in geometry:
        for poly in points_of(shape):
            for x, y in poly:
                xs.append(x)
                ys.append(y)
    return min(xs), min(ys), max(xs), max(ys)


def to_pixels(geometry, size, margin=4):
    """Polylines in pixel coordinates (y down), the drawing fitted into size x size."""
    x0, y0, x1, y1 = extents(geometry)
    scale = (size - 2 * margin) / max(x1 - x0, y1 - y0, 1.0)
    ox = (size - (x1 - x0) * scale) / 2
    oy = (size - (y1 - y0) * scale) / 2
    out = []
    for shape in geometry:
        for poly in points_of(shape):
            out.append([(ox + (x - x0) * scale, size - (oy + (y - y0) * scale)) for x, y in poly])
    return out


def write_dxf(path, geometry):
    doc = ezdxf.new("R2000")
    msp = doc.modelspace()
    for shape in geometry:
        if shape[0] == "line":
            msp.add_line((shape[1], shape[2]), (shape[3], shape[4]))
        elif shape[0] == "circle":
            msp.add_circle((shape[1], shape[2]), shape[3])
        else:
            msp.add_arc((shape[1], shape[2]), shape[3], shape[4], shape[5])
    doc.saveas(path)


def write_picture(path, geometry, fmt):
    size = 64
    img = Image.new("1" if fmt == "BMP" else "L", (size, size), 1 if fmt == "BMP" else 255)
    draw = ImageDraw.Draw(img)
    for poly in to_pixels(geometry, size):
        draw.line(poly, fill=0, width=1)
    img.save(path, fmt, **({"quality": 60} if fmt == "JPEG" else {}))


def slide(geometry, name):
    """One AutoCAD slide of the drawing's vectors (the old-format slide file)."""
    size = 511
    head = b"AutoCAD Slide\r\n\x1a\x00" + struct.pack("<BBHHIHH", 0x38, 2, size, size, 10000000, 0, 0x1234)
    body = bytearray()
    for poly in to_pixels(geometry, size + 1):
        for (ax, ay), (bx, by) in zip(poly, poly[1:]):
            # Slide y grows upwards.
            body += struct.pack("<hhhh", int(round(ax)), size - int(round(ay)), int(round(bx)), size - int(round(by)))
    body += struct.pack("<H", 0xFC00)
    return head + bytes(body)


def write_slide_library(path, geometry, name):
    """A slide library holding one slide named after the block."""
    one = slide(geometry, name)
    head = b"AutoCAD Slide Library 1.0\r\n\x1a\x00\x00\x00"
    entries = 2  # the slide and the empty entry that ends the directory
    address = len(head) + entries * 36
    directory = name.encode("ascii")[:31].ljust(32, b"\x00") + struct.pack("<I", address) + b"\x00" * 36
    with open(path, "wb") as f:
        f.write(head + directory + one)


def item_xml(block, attrs, indent):
    fields = [("name", block)] + [(k, v) for k, v in attrs.items()] + [("file", block + ".DWG")]
    return indent + "<Item " + " ".join("%s=%s" % (k, quoteattr(v)) for k, v in fields) + "/>\n"


def write_block(folder, block, geometry):
    os.makedirs(folder, exist_ok=True)
    write_dxf(os.path.join(folder, block + ".dxf"), geometry)
    if block in NO_PREVIEW:
        return
    for ext in PREVIEWS.get(block, [".bmp"]):
        path = os.path.join(folder, block + ext)
        if ext == ".slb":
            write_slide_library(path, geometry, block)
        else:
            write_picture(path, geometry, {".bmp": "BMP", ".jpg": "JPEG", ".jpeg": "JPEG"}[ext])


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    root = sys.argv[1] if len(sys.argv) > 1 else os.path.join(here, "..", "..", "share", "support", "DwgLib")
    group_dir = os.path.join(root, GROUP)
    os.makedirs(group_dir, exist_ok=True)
    for stem, cn, en, dirs in LIBRARIES:
        count = sum(len(items) for _, _, items in dirs)
        lines = ['<?xml version="1.0" encoding="utf-8"?>\n',
                 '<TolvDwgLib name=%s name_en=%s nextfile="%d" readonly="FALSE" mulitiview="FALSE">\n'
                 % (quoteattr(cn), quoteattr(en), count + 1)]
        for dname, den, items in dirs:
            lines.append('\t<Directory name=%s name_en=%s>\n' % (quoteattr(dname), quoteattr(den)))
            for block, geometry, attrs in items:
                lines.append(item_xml(block, attrs, "\t\t"))
                write_block(os.path.join(group_dir, stem), block, geometry)
            if NESTED[0] == stem and NESTED[1] == dname:
                lines.append('\t\t<Directory name=%s name_en=%s>\n' % (quoteattr(NESTED[2]), quoteattr(NESTED[3])))
                for block, geometry, attrs in NESTED[4]:
                    lines.append(item_xml(block, attrs, "\t\t\t"))
                    write_block(os.path.join(group_dir, stem), block, geometry)
                lines.append("\t\t</Directory>\n")
            lines.append("\t</Directory>\n")
        lines.append("</TolvDwgLib>\n")
        with open(os.path.join(group_dir, stem + ".DML"), "w", encoding="utf-8") as f:
            f.write("".join(lines))
    with open(os.path.join(group_dir, "LibGroup.DMLS"), "w", encoding="utf-8") as f:
        f.write('<?xml version="1.0" encoding="utf-8"?>\n'
                '<TolvDwgLibGroup name="\u5efa\u7b51\u56fe\u5e93" name_en="Architecture">\n')
        for stem, _, _, _ in LIBRARIES:
            f.write("\t<TolvDwgLib>%s.DML</TolvDwgLib>\n" % stem)
        f.write("</TolvDwgLibGroup>\n")


if __name__ == "__main__":
    main()
