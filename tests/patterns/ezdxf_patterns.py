"""Hatch patterns from ezdxf for the pattern tests.

  ezdxf_patterns.py write OUT_DIR
      writes ezdxf's ISO and imperial hatch patterns as pattern files
      OUT_DIR/iso.pat and OUT_DIR/imperial.pat
  ezdxf_patterns.py scale FILE FACTOR OUT
      scales every data line of the pattern file FILE with ezdxf's own
      scale_pattern and writes one line per data line to OUT: the scaled
      numbers, comma-separated, full precision

Runs under /usr/bin/python3 with Debian's python3-ezdxf.
"""
import math
import os
import sys

import ezdxf
from ezdxf.tools import pattern as ezpattern


def number(v):
    # Short text as a person writes it: at most 6 significant digits, no
    # exponent, no trailing zeros.
    text = "%.6g" % v
    if "e" in text:
        text = ("%.10f" % v).rstrip("0").rstrip(".")
    if text == "-0":
        text = "0"
    return text


def local_offset(angle, offset):
    # ezdxf keeps the offset in drawing axes; a pattern file gives it along
    # and across the line.
    a = math.radians(angle)
    dx, dy = offset
    return (dx * math.cos(a) + dy * math.sin(a), -dx * math.sin(a) + dy * math.cos(a))


def write_file(path, title, patterns):
    with open(path, "w", newline="\n") as f:
        f.write(";; %s hatch patterns of ezdxf %s\n" % (title, ezdxf.__version__))
        for name in sorted(patterns):
            f.write("*%s, %s pattern %s\n" % (name, title, name))
            for angle, base, offset, dashes in patterns[name]:
                dx, dy = local_offset(angle, offset)
                fields = [angle, base[0], base[1], dx, dy] + list(dashes)
                f.write(",".join(number(v) for v in fields) + "\n")


def data_lines(path):
    with open(path, encoding="utf-8", errors="replace") as f:
        for raw in f.read().split("\n"):
            line = raw[:-1] if raw.endswith("\r") else raw
            if ";" in line or "*" in line or "," not in line:
                continue
            yield line.split(",")


def scale_file(path, factor, out):
    with open(out, "w", newline="\n") as f:
        for fields in data_lines(path):
            v = [float(x) if x.strip() else 0.0 for x in fields]
            v += [0.0] * max(0, 5 - len(v))
            line = [v[0], (v[1], v[2]), (v[3], v[4]), v[5:]]
            angle, base, offset, dashes = ezpattern.scale_pattern([line], factor)[0]
            values = [angle, base[0], base[1], offset[0], offset[1]] + list(dashes)
            f.write(",".join(repr(x) for x in values[: len(fields)]) + "\n")


def main():
    if sys.argv[1] == "write":
        out = sys.argv[2]
        os.makedirs(out, exist_ok=True)
        write_file(os.path.join(out, "iso.pat"), "ISO", ezpattern.ISO_PATTERN)
        write_file(os.path.join(out, "imperial.pat"), "imperial", ezpattern.IMPERIAL_PATTERN)
    elif sys.argv[1] == "scale":
        scale_file(sys.argv[2], float(sys.argv[3]), sys.argv[4])
    else:
        sys.exit(2)


if __name__ == "__main__":
    main()
