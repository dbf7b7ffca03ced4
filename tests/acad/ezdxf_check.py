#!/usr/bin/python3
"""Checks drawing files of the host stand-in with ezdxf, an independent reader.

  ezdxf_check.py audit FILE             audit; prints the audit report, exit 1 on errors
  ezdxf_check.py check FILE EXPECT.json audit, then compare names and values
  ezdxf_check.py dump FILE              tables and entities as JSON on stdout
  ezdxf_check.py compare FILE OTHER     audit OTHER; both hold the same tables and entities
  ezdxf_check.py make-block FILE        writes a block drawing made by ezdxf
  ezdxf_check.py make-sample FILE       writes a drawing of ezdxf's own release

Every failure is printed as a line starting with "FAIL:"; the last line is
"OK" when everything held.
"""
import json
import sys

import ezdxf


def audit(doc, failures):
    auditor = doc.audit()
    print("audit: %d errors, %d fixes" % (len(auditor.errors), len(auditor.fixes)))
    for e in auditor.errors:
        print("  error %s: %s" % (e.code, e.message))
        failures.append("audit error %s: %s" % (e.code, e.message))
    for f in auditor.fixes:
        print("  fix %s: %s" % (f.code, f.message))
    return auditor


def close(a, b, tol=1e-9):
    return abs(float(a) - float(b)) <= tol * max(1.0, abs(float(a)), abs(float(b)))


def expect_equal(failures, what, got, want):
    if isinstance(want, float) or isinstance(got, float):
        ok = close(got, want)
    else:
        ok = got == want
    if not ok:
        failures.append("%s: got %r, want %r" % (what, got, want))


def xdata_list(entity, app):
    if not entity.has_xdata(app):
        return None
    return [[code, value] for code, value in entity.get_xdata(app)]


def check(doc, expect, failures):
    expect_equal(failures, "$ACADVER", doc.dxfversion, expect.get("version", "AC1015"))
    for want in expect.get("layers", []):
        name = want["name"]
        if name not in doc.layers:
            failures.append("layer %s missing" % name)
            continue
        layer = doc.layers.get(name)
        expect_equal(failures, "layer %s name" % name, layer.dxf.name, name)
        if "color" in want:
            expect_equal(failures, "layer %s color" % name, layer.color, want["color"])
        if "linetype" in want:
            expect_equal(failures, "layer %s linetype" % name, layer.dxf.linetype.upper(), want["linetype"].upper())
        if "lineweight" in want:
            expect_equal(failures, "layer %s lineweight" % name, layer.dxf.lineweight, want["lineweight"])
    for want in expect.get("linetypes", []):
        name = want["name"]
        if name not in doc.linetypes:
            failures.append("linetype %s missing" % name)
            continue
        lt = doc.linetypes.get(name)
        if "description" in want:
            expect_equal(failures, "linetype %s description" % name, lt.dxf.description, want["description"])
        if "pattern" in want:
            tags = [t.value for t in lt.pattern_tags.tags if t.code == 49]
            expect_equal(failures, "linetype %s dash count" % name, len(tags), len(want["pattern"]))
            for i, (g, w) in enumerate(zip(tags, want["pattern"])):
                expect_equal(failures, "linetype %s dash %d" % (name, i), float(g), float(w))
        if "length" in want:
            length = [t.value for t in lt.pattern_tags.tags if t.code == 40]
            expect_equal(failures, "linetype %s length" % name, float(length[0]) if length else None, float(want["length"]))
    for want in expect.get("styles", []):
        name = want["name"]
        if name not in doc.styles:
            failures.append("text style %s missing" % name)
            continue
        style = doc.styles.get(name)
        for key, attr in (("font", "font"), ("bigfont", "bigfont"), ("width", "width"), ("height", "height")):
            if key in want:
                expect_equal(failures, "style %s %s" % (name, key), style.dxf.get(attr), want[key])
        if "xdata" in want:
            for app, items in want["xdata"].items():
                got = xdata_list(style, app)
                if got is None:
                    failures.append("style %s has no extended data of %s" % (name, app))
                    continue
                expect_equal(failures, "style %s xdata %s length" % (name, app), len(got), len(items))
                for i, (g, w) in enumerate(zip(got, items)):
                    expect_equal(failures, "style %s xdata %s[%d] code" % (name, app, i), g[0], w[0])
                    expect_equal(failures, "style %s xdata %s[%d] value" % (name, app, i), g[1], w[1])
    for app in expect.get("appids", []):
        if app not in doc.appids:
            failures.append("application %s not registered" % app)
    for want in expect.get("dimstyles", []):
        name = want["name"]
        if name not in doc.dimstyles:
            failures.append("dimension style %s missing" % name)
            continue
        ds = doc.dimstyles.get(name)
        for key, value in want.get("vars", {}).items():
            got = ds.dxf.get(key)
            expect_equal(failures, "dimstyle %s %s" % (name, key), got, value)
        if "dimtxsty" in want:
            expect_equal(failures, "dimstyle %s dimtxsty" % name, ds.dxf.get("dimtxsty"), want["dimtxsty"])
        if "dimblk" in want:
            expect_equal(failures, "dimstyle %s dimblk" % name, (ds.dxf.get("dimblk") or "").upper(), want["dimblk"].upper())
            if want["dimblk"] and want["dimblk"] not in doc.blocks:
                failures.append("dimstyle %s arrow block %s missing" % (name, want["dimblk"]))
    for want in expect.get("blocks", []):
        name = want["name"]
        if name not in doc.blocks:
            failures.append("block %s missing" % name)
            continue
        block = doc.blocks.get(name)
        got = [e.dxftype() for e in block]
        expect_equal(failures, "block %s entity types" % name, got, want["types"])
        if "layers" in want:
            expect_equal(failures, "block %s entity layers" % name, [e.dxf.layer for e in block], want["layers"])
    if "modelspace" in expect:
        expect_equal(failures, "model space entity types", [e.dxftype() for e in doc.modelspace()], expect["modelspace"])
    for want in expect.get("dictionaries", []):
        path = want["path"]
        node = doc.rootdict
        for key in path:
            if key not in node:
                failures.append("dictionary %s: no key %s" % ("/".join(path), key))
                node = None
                break
            node = node[key]
        if node is None:
            continue
        keys = sorted(node.keys())
        expect_equal(failures, "dictionary %s keys" % "/".join(path), keys, sorted(want["keys"]))
        for key, values in want.get("entries", {}).items():
            if key not in node:
                continue
            entry = node[key]
            expect_equal(failures, "entry %s type" % key, entry.dxftype(), values["type"])
            tags = {}
            for tag in entry.xtags.subclasses[1] if hasattr(entry, "xtags") and len(entry.xtags.subclasses) > 1 else []:
                tags.setdefault(tag.code, tag.value)
            for code, value in values.get("tags", {}).items():
                expect_equal(failures, "entry %s group %s" % (key, code), tags.get(int(code)), value)


def dump(doc):
    out = {"version": doc.dxfversion, "tables": {}, "blocks": {}, "modelspace": []}
    tables = out["tables"]
    tables["layers"] = sorted([l.dxf.name.upper(), l.color, l.dxf.linetype.upper()] for l in doc.layers)
    tables["linetypes"] = sorted(
        [lt.dxf.name.upper(), [round(float(t.value), 9) for t in lt.pattern_tags.tags if t.code == 49]]
        for lt in doc.linetypes)
    tables["styles"] = sorted([s.dxf.name.upper(), s.dxf.get("font", ""), s.dxf.get("bigfont", ""),
                               round(s.dxf.get("width", 1.0), 9)] for s in doc.styles)
    tables["dimstyles"] = sorted(d.dxf.name.upper() for d in doc.dimstyles)
    tables["appids"] = sorted(a.dxf.name.upper() for a in doc.appids)

    def describe(e):
        row = [e.dxftype(), e.dxf.layer.upper()]
        t = e.dxftype()
        if t == "LINE":
            row += [list(e.dxf.start), list(e.dxf.end)]
        elif t == "CIRCLE":
            row += [list(e.dxf.center), e.dxf.radius]
        elif t == "LWPOLYLINE":
            row += [[list(p) for p in e.get_points("xy")]]
        elif t in ("TEXT", "MTEXT"):
            row += [e.dxf.text if t == "TEXT" else e.text, e.dxf.get("style", "")]
        elif t == "INSERT":
            row += [e.dxf.name, list(e.dxf.insert)]
        return row

    for block in doc.blocks:
        if block.name.upper() in ("*MODEL_SPACE", "*PAPER_SPACE"):
            continue
        out["blocks"][block.name.upper()] = [describe(e) for e in block]
    out["modelspace"] = [describe(e) for e in doc.modelspace()]
    return out


def make_block(path):
    doc = ezdxf.new("R2010")
    doc.layers.add("WINDOW_FRAME", color=4, linetype="Continuous")
    doc.layers.add("GLASS", color=5)
    doc.linetypes.add("BLOCK_DASH", pattern=[7.5, 5.0, -2.5], description="Block dash")
    doc.styles.add("BLOCK_TEXT", font="simplex.shx")
    msp = doc.modelspace()
    msp.add_line((0, 0), (1000, 0), dxfattribs={"layer": "WINDOW_FRAME"})
    msp.add_line((0, 120), (1000, 120), dxfattribs={"layer": "WINDOW_FRAME", "linetype": "BLOCK_DASH"})
    msp.add_circle((500, 60), 25, dxfattribs={"layer": "GLASS"})
    msp.add_lwpolyline([(0, 40), (1000, 40), (1000, 80), (0, 80)], close=True, dxfattribs={"layer": "GLASS"})
    msp.add_text("W1", dxfattribs={"layer": "WINDOW_FRAME", "style": "BLOCK_TEXT", "insert": (10, 10)})
    doc.saveas(path)


def make_sample(path):
    doc = ezdxf.new("R2013", setup=["linetypes", "styles"])
    doc.layers.add("WALL", color=1, linetype="DASHED")
    doc.layers.add("AXIS", color=2, linetype="CENTER")
    doc.dimstyles.new("SAMPLE_DIM", dxfattribs={"dimtxt": 3.5, "dimasz": 2.0, "dimgap": 1.0})
    block = doc.blocks.new("SAMPLE_BLOCK")
    block.add_circle((0, 0), 5, dxfattribs={"layer": "WALL"})
    block.add_line((-5, 0), (5, 0), dxfattribs={"layer": "AXIS"})
    msp = doc.modelspace()
    msp.add_line((0, 0), (100, 0), dxfattribs={"layer": "WALL"})
    msp.add_line((0, 0), (0, 100), dxfattribs={"layer": "AXIS"})
    msp.add_lwpolyline([(0, 0), (10, 0), (10, 10)], dxfattribs={"layer": "WALL"})
    msp.add_text("墙体", dxfattribs={"layer": "WALL", "style": "OpenSans", "insert": (5, 5)})
    msp.add_blockref("SAMPLE_BLOCK", (50, 50), dxfattribs={"layer": "0"})
    msp.add_circle((20, 20), 7.5, dxfattribs={"layer": "AXIS"})
    doc.saveas(path)


def main(argv):
    if len(argv) < 3:
        print(__doc__)
        return 2
    command, path = argv[1], argv[2]
    failures = []
    if command == "make-block":
        make_block(path)
        print("OK")
        return 0
    if command == "make-sample":
        make_sample(path)
        print("OK")
        return 0
    try:
        doc = ezdxf.readfile(path)
    except Exception as exc:  # the reader refusing the file is the failure
        print("FAIL: ezdxf could not read %s: %s" % (path, exc))
        return 1
    if command == "dump":
        print(json.dumps(dump(doc), ensure_ascii=False, sort_keys=True))
        return 0
    if command == "compare":
        other = ezdxf.readfile(argv[3])
        audit(other, failures)
        a, b = dump(doc), dump(other)
        for key in ("tables", "blocks", "modelspace"):
            if key == "tables":
                for table in sorted(set(a[key]) | set(b[key])):
                    expect_equal(failures, "table %s" % table, b[key].get(table), a[key].get(table))
            elif key == "blocks":
                for name in sorted(set(a[key]) | set(b[key])):
                    expect_equal(failures, "block %s" % name, b[key].get(name), a[key].get(name))
            else:
                expect_equal(failures, key, b[key], a[key])
        print("compared: %d layers, %d line types, %d text styles, %d dimension styles, %d blocks, "
              "%d model space entities" % (len(a["tables"]["layers"]), len(a["tables"]["linetypes"]),
                                           len(a["tables"]["styles"]), len(a["tables"]["dimstyles"]),
                                           len(a["blocks"]), len(a["modelspace"])))
        for f in failures:
            print("FAIL: " + f)
        print("OK" if not failures else "FAILED (%d)" % len(failures))
        return 1 if failures else 0
    audit(doc, failures)
    if command == "check":
        with open(argv[3], encoding="utf-8") as f:
            expect = json.load(f)
        check(doc, expect, failures)
    for f in failures:
        print("FAIL: " + f)
    print("OK" if not failures else "FAILED (%d)" % len(failures))
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
