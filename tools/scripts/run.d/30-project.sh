#!/usr/bin/env bash
# The project: "KyPrj" bringing the template up to date, the sample project
# read by the host with its floor outlines drawn, and `tolv project` on the
# sample's project file and database.
set -euo pipefail
DRAWING="$RUN_DIR/riverside-floors.dxf"
rm -f "$DRAWING"
"$TOLV" host --main-dir "$SUPPORT" --drawing "$DRAWING" --save-on-quit --script tools/scripts/project.scr
echo "== KyPrj: the template against the bundled copy"
diff share/support/template.orpx "$SUPPORT/template.orpx" || true
echo "== the floor outlines were saved in $DRAWING ($(grep -c '^LINE' "$DRAWING") lines)"
echo "== tolv project --check share/samples/riverside/Riverside.xml"
"$TOLV" project --check share/samples/riverside/Riverside.xml
echo "== tolv project --db share/samples/riverside/Riverside.orpx"
"$TOLV" project --db share/samples/riverside/Riverside.orpx
