#!/usr/bin/python3
"""Draws a DXF drawing into a PNG picture with ezdxf's drawing add-on over
matplotlib, after an ezdxf audit.

  dxf_picture.py DRAWING.dxf PICTURE.png

Prints the audit's counts and what model space holds; exit 1 when the audit
found errors, 2 when the drawing can't be read.
"""
import sys

import ezdxf
import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt  # noqa: E402
from ezdxf.addons.drawing import Frontend, RenderContext  # noqa: E402
from ezdxf.addons.drawing.matplotlib import MatplotlibBackend  # noqa: E402


def main():
    if len(sys.argv) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    source, picture = sys.argv[1], sys.argv[2]
    try:
        doc = ezdxf.readfile(source)
    except (IOError, ezdxf.DXFStructureError) as e:
        print("%s: can't be read: %s" % (source, e), file=sys.stderr)
        return 2
    auditor = doc.audit()
    print("ezdxf audit of %s: %d errors, %d fixes" % (source, len(auditor.errors), len(auditor.fixes)))
    for e in auditor.errors:
        print("  error %s: %s" % (e.code, e.message))
    msp = doc.modelspace()
    inserts = msp.query("INSERT")
    print("model space: %d entities, %d inserts of %d blocks"
          % (len(msp), len(inserts), len({i.dxf.name for i in inserts})))
    fig = plt.figure(figsize=(8, 6), dpi=100)
    ax = fig.add_axes([0, 0, 1, 1])
    ctx = RenderContext(doc)
    Frontend(ctx, MatplotlibBackend(ax)).draw_layout(msp, finalize=True)
    fig.savefig(picture, dpi=100, facecolor="white")
    print("picture: %s" % picture)
    return 1 if auditor.has_errors else 0


if __name__ == "__main__":
    sys.exit(main())
