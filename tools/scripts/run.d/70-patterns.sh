#!/usr/bin/env bash
# Hatch patterns: the bundled pattern file listed and checked, one pattern
# scaled to inches, one drawn as a picture, and four drawn into a drawing.
set -euo pipefail
echo "== the bundled pattern file"
"$TOLV" pattern "$SUPPORT/tolv.pat" --check
echo "== scaled from millimetres to inches (1/25.4)"
"$TOLV" pattern "$SUPPORT/tolv.pat" --scale 0.0393700787 --out "$RUN_DIR/tolv-inch.pat"
head -n 6 "$RUN_DIR/tolv-inch.pat"
echo "== one pattern and a sheet of all of them as SVG"
"$TOLV" pattern "$SUPPORT/tolv.pat" --name TOLV_BRICK --svg "$RUN_DIR/TOLV_BRICK.svg" --size 300
"$TOLV" pattern "$SUPPORT/tolv.pat" --all --svg "$RUN_DIR/patterns"
echo "== drawn into a drawing by the host"
rm -f "$RUN_DIR/patterns.dxf"
"$TOLV" host --main-dir "$SUPPORT" --drawing "$RUN_DIR/patterns.dxf" --script tools/scripts/patterns.scr
echo "the drawing with the patterns is $RUN_DIR/patterns.dxf"
