#include "platform/dbobject/KyDbHooks.h"

KyGetLayerIdFunc g_KyGetLayerIdMethod = nullptr;
KyGetLabelListFunc g_KyGetLabelListMethod = nullptr;
KyGetLayerIdByKeyFunc g_KyGetLayerIdMethod1 = nullptr;
