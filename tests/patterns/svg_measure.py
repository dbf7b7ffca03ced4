"""Reads an SVG picture of a pattern back for the pattern tests.

  svg_measure.py FILE.svg
prints one line per element of interest, parsed with xml.etree:
  size WIDTH HEIGHT VIEWBOX
  line X1 Y1 X2 Y2
  dot CX CY
  text WORDS
"""
import sys
import xml.etree.ElementTree as ET

NS = "{http://www.w3.org/2000/svg}"


def main():
    root = ET.parse(sys.argv[1]).getroot()
    print("size", root.get("width"), root.get("height"), root.get("viewBox"))
    for e in root.iter():
        if e.tag == NS + "line":
            print("line", e.get("x1"), e.get("y1"), e.get("x2"), e.get("y2"))
        elif e.tag == NS + "circle":
            print("dot", e.get("cx"), e.get("cy"))
        elif e.tag == NS + "text":
            print("text", e.text)


if __name__ == "__main__":
    main()
