// The drawing standards: layers by standard and key, opening labels, text
// and dimension styles and materials, and how they are made in a drawing.
#pragma once

#include "standards/KyDtLayerCfg.h"
#include "standards/KyDtLayerDef.h"
#include "standards/KyDtLayerFunctions.h"
#include "standards/KyDtLayerStd.h"
#include "standards/KyDtDimStyle.h"
#include "standards/KyDtLabelCfg.h"
#include "standards/KyDtMaterial.h"
#include "standards/KyDtTextStyle.h"

// The object module's entities and geometry the labels read.
#include "platform/dbobject/KyDbCornerWin.h"
#include "platform/dbobject/KyDbDormer.h"
#include "platform/dbobject/KyDbOpening.h"
#include "platform/geometry/KyGePolyline2d.h"
