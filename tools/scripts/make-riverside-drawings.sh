#!/usr/bin/env bash
# Makes the drawings of the sample project share/samples/riverside with the
# host program: each floor drawing gets the outlines of its floors, each
# drawing of the set the outline of the ground floor. Run from the
# repository's top folder after a build: tools/scripts/make-riverside-drawings.sh
set -euo pipefail
TOLV=${TOLV:-build/bin/tolv}
SAMPLE=share/samples/riverside
SCRIPT=$(mktemp)
trap 'rm -f "$SCRIPT"' EXIT
draw() {  # drawing (relative to the sample), floors to draw
  mkdir -p "$(dirname "$SAMPLE/$1")"
  printf 'PROJECT %s\nFLOORPLAN %s\n' "$SAMPLE/Riverside.xml" "$2" > "$SCRIPT"
  rm -f "$SAMPLE/${1%.dwg}.dxf"
  "$TOLV" host --drawing "$SAMPLE/$1" --save-on-quit --script "$SCRIPT" > /dev/null
}
for floor in B2 B1 1F STD RF; do draw "$floor.dwg" "$floor.dwg"; done
for drawing in Site Elevations/North Elevations/South Details/Stairs/Stair-1 Details/Wall; do
  draw "$drawing.dwg" 1F.dwg
done
ls -l "$SAMPLE" "$SAMPLE"/*/ "$SAMPLE"/*/*/ | grep -i dxf
