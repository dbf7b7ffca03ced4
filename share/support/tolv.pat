;; Hatch patterns of the building-design add-on, in millimetres.
;; Each pattern: "*NAME, description", then one line per line family:
;; angle, origin x, origin y, offset along, offset across[, dash, gap, ...]
*TOLV_WALL, wall section: 45 degree lines 3 mm apart
45, 0,0, 0,3
*TOLV_CONCRETE, concrete: crossed 45 degree lines
45, 0,0, 0,4
135, 0,0, 0,4
*TOLV_INSUL, insulation: dashes 6 mm on, 2 mm off
0, 0,0, 2,4, 6,-2
*TOLV_BRICK, brick courses 65 mm with 240 mm joints
0, 0,0, 0,65
90, 0,0, 65,120, 65,-65
; the tile grids below are laid on 300 mm squares
*TOLV_TILE300, floor tiles 300 x 300 mm
0, 0,0, 0,300
90, 0,0, 0,300
*TOLV_TILE300D, floor tiles 300 x 300 mm laid on the diagonal
45, 0,0, 0,212.132
135, 0,0, 0,212.132
*TOLV_EARTH, earth: groups of three short lines
0, 0,0, 10,10, 8,-12
0, 0,2, 10,10, 8,-12
0, 0,4, 10,10, 8,-12
90, 12,0, 10,10, 8,-12
90, 14,0, 10,10, 8,-12
90, 16,0, 10,10, 8,-12
*TOLV_GRAVEL, gravel: dots on a staggered grid
0, 0,0, 5,5, 0,-10
