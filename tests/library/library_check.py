#!/usr/bin/python3
"""Checks a drawing with library blocks placed in it, with ezdxf.

  library_check.py FILE EXPECT.json

EXPECT.json: {"blocks": {"NAME": ENTITY_COUNT, ...},
              "inserts": [["NAME", X, Y, ROTATION_DEGREES], ...]}

The audit must find no error; every block must be defined with that many
entities of its own; model space must hold exactly those inserts, in order.
Failures are printed as lines starting with "FAIL:"; the last line is "OK"
when everything held.
"""
import json
import sys

import ezdxf


def main():
    doc = ezdxf.readfile(sys.argv[1])
    with open(sys.argv[2], encoding="utf-8") as f:
        expect = json.load(f)
    failures = []
    auditor = doc.audit()
    print("audit: %d errors, %d fixes" % (len(auditor.errors), len(auditor.fixes)))
    for e in auditor.errors:
        failures.append("audit error %s: %s" % (e.code, e.message))
    for name, count in expect.get("blocks", {}).items():
        block = doc.blocks.get(name)
        if block is None:
            failures.append("block %s missing" % name)
            continue
        kinds = sorted({e.dxftype() for e in block})
        print("block %s: %d entities (%s)" % (name, len(block), ", ".join(kinds)))
        if len(block) != count:
            failures.append("block %s: %d entities, want %d" % (name, len(block), count))
    inserts = list(doc.modelspace().query("INSERT"))
    want = expect.get("inserts", [])
    if len(inserts) != len(want):
        failures.append("%d inserts, want %d" % (len(inserts), len(want)))
    for got, (name, x, y, rotation) in zip(inserts, want):
        p = got.dxf.insert
        print("insert %s at %g,%g rotated %g" % (got.dxf.name, p.x, p.y, got.dxf.rotation))
        if got.dxf.name != name or abs(p.x - x) > 1e-9 or abs(p.y - y) > 1e-9 or abs(got.dxf.rotation - rotation) > 1e-9:
            failures.append("insert %s at %g,%g rotated %g, want %s at %g,%g rotated %g"
                            % (got.dxf.name, p.x, p.y, got.dxf.rotation, name, x, y, rotation))
        if got.dxf.name not in doc.blocks:
            failures.append("insert of %s, which has no definition" % got.dxf.name)
    for f in failures:
        print("FAIL: " + f)
    print("OK" if not failures else "FAILED")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
