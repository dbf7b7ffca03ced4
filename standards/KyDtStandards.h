// The drawing standards: layers by standard and key, opening labels, text
// and dimension styles and materials, and how they are made in a drawing.
#pragma once

#include "standards/KyDtLayerCfg.h"
#include "standards/KyDtLayerDef.h"
#include "standards/KyDtLayerFunctions.h"
#include "standards/KyDtLayerStd.h"
