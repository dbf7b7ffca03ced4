// The libraries in one include: library trees with attributes, library and
// group files, block definitions, preview images and blocks in drawings.
#pragma once

#include "library/KyDtAttribute.h"
#include "library/KyDtLibItemBase.h"
#include "library/KyDtLibItem.h"
#include "library/KyDtLibDirectory.h"
#include "library/KyDtLib.h"
#include "library/KyDmLibGroup.h"
#include "library/KyDtLibKinds.h"
#include "library/KyDtLibBlockDef.h"
#include "library/KyDtLibBlocks.h"
