#!/usr/bin/python3
"""Writes a small floor plan as a DXF drawing: walls, doors and windows,
axes, dimensions and texts on their layers, and a viewport in paper space.
The UI configuration's context menus are chosen for selections of it.

usage: uiconfig-plan.py OUT.dxf
"""
import sys

import ezdxf


def main(path):
    doc = ezdxf.new("R2000", setup=True)
    for name, color in [("WALL", 7), ("DOOR", 4), ("WINDOW", 4), ("AXIS", 1), ("DIM", 3), ("TEXT", 2)]:
        doc.layers.add(name, color=color)
    msp = doc.modelspace()
    # An outer wall ring of 9 m by 6 m and one inner wall, on the layers of
    # the bundled settings' standard.
    corners = [(0, 0), (9000, 0), (9000, 6000), (0, 6000)]
    for a, b in zip(corners, corners[1:] + corners[:1]):
        msp.add_line(a, b, dxfattribs={"layer": "WALL"})
    msp.add_line((4500, 0), (4500, 6000), dxfattribs={"layer": "WALL"})
    msp.add_lwpolyline([(0, 3000), (4500, 3000)], dxfattribs={"layer": "WALL"})
    # A door with its swing, and two windows.
    msp.add_line((1200, 0), (2100, 0), dxfattribs={"layer": "DOOR"})
    msp.add_arc((1200, 0), 900, 0, 90, dxfattribs={"layer": "DOOR"})
    for x in (6000, 7500):
        msp.add_line((x, 6000), (x + 900, 6000), dxfattribs={"layer": "WINDOW"})
    # Axes.
    for x in (0, 4500, 9000):
        msp.add_line((x, -1500), (x, 7500), dxfattribs={"layer": "AXIS"})
    # Dimensions and texts.
    msp.add_linear_dim(base=(0, -800), p1=(0, 0), p2=(4500, 0), dxfattribs={"layer": "DIM"}).render()
    msp.add_linear_dim(base=(0, -800), p1=(4500, 0), p2=(9000, 0), dxfattribs={"layer": "DIM"}).render()
    msp.add_text("客厅", dxfattribs={"layer": "TEXT", "height": 350, "insert": (2000, 4500)})
    msp.add_text("卧室", dxfattribs={"layer": "TEXT", "height": 350, "insert": (6500, 3000)})
    # A sheet with one viewport on the plan.
    layout = doc.layouts.get("Layout1")
    layout.add_viewport(center=(150, 100), size=(250, 160), view_center_point=(4500, 3000), view_height=9000)
    doc.saveas(path)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.stderr.write(__doc__)
        sys.exit(2)
    main(sys.argv[1])
