#!/usr/bin/env bash
# The drawing standards: layers, text and dimension styles, materials and
# labelled openings made in a drawing, `tolv layer` on the bundled
# standards, and the drawing audited by an independent reader.
set -euo pipefail
DRAWING="$RUN_DIR/standards.dxf"
rm -f "$DRAWING"
"$TOLV" host --main-dir "$SUPPORT" --drawing "$DRAWING" --save-on-quit --script tools/scripts/standards.scr
echo "== the layers, styles, materials and openings were saved in $DRAWING"
echo "== tolv layer --main-dir \$SUPPORT WALL DOOR-NUM WALL-CONC AXIS-HIDE"
"$TOLV" layer --main-dir "$SUPPORT" WALL DOOR-NUM WALL-CONC AXIS-HIDE
echo "== tolv layer --main-dir \$SUPPORT --std GB WALL DOOR-NUM"
"$TOLV" layer --main-dir "$SUPPORT" --std GB WALL DOOR-NUM
if /usr/bin/python3 -c "import ezdxf" 2>/dev/null; then
  echo "== ezdxf audits $DRAWING"
  /usr/bin/python3 tests/acad/ezdxf_check.py audit "$DRAWING"
else
  echo "== python3-ezdxf is not installed: the drawing was not audited"
fi
