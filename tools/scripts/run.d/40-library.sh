#!/usr/bin/env bash
# The libraries: the bundled drawing library shown by `tolv lib`, a search
# by attribute, and library blocks placed in a drawing, which is saved as
# build/run/library.dxf with a picture of it beside it, build/run/library.png.
set -euo pipefail
group="$SUPPORT/DwgLib/ARCH/LibGroup.DMLS"
echo "== tolv lib: the furniture library as a tree"
"$TOLV" lib "$SUPPORT/DwgLib/ARCH/FURNITURE.DML"
echo "== tolv lib: every item of the group whose type is \"double swing\""
"$TOLV" lib "$group" --find "type=double swing" --items
echo "== library blocks placed in a drawing (tools/scripts/library.scr)"
rm -f "$RUN_DIR/library.dxf" "$RUN_DIR/library.png"
# The script's last line fails on purpose (a block that isn't there), so the
# host ends with 3, its status for a script with failed lines.
status=0
"$TOLV" host --main-dir "$SUPPORT" --drawing "$RUN_DIR/library.dxf" --save-on-quit \
  --script tools/scripts/library.scr || status=$?
if [ "$status" -ne 3 ]; then
  echo "40-library.sh: the host ended with $status, not 3 (one failed line)" >&2
  exit 1
fi
test -s "$RUN_DIR/library.dxf"
/usr/bin/python3 tools/scripts/dxf_picture.py "$RUN_DIR/library.dxf" "$RUN_DIR/library.png"
echo "== the drawing: $RUN_DIR/library.dxf; its picture: $RUN_DIR/library.png"
