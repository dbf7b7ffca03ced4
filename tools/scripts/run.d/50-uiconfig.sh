#!/usr/bin/env bash
# The UI configuration: the check of the bundled UIConfig.xml, then the
# module started on it, showing items and the context menus chosen for
# selections of a floor plan drawing.
set -euo pipefail
echo "== tolv ui: the bundled UIConfig.xml as the module reads it at start"
"$TOLV" ui "$SUPPORT/UIConfig.xml"
plan="$RUN_DIR/uiconfig-plan.dxf"
if ! /usr/bin/python3 tools/scripts/uiconfig-plan.py "$plan"; then
  echo "(python3-ezdxf is missing: the context menus are shown on an empty drawing)"
  rm -f "$plan"
fi
echo "== context menus for selections of $plan"
"$TOLV" host --main-dir "$SUPPORT" --drawing "$plan" --save-on-quit --script tools/scripts/uiconfig.scr
echo "== the drawing the host saved: $plan"
