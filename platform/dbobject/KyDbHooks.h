// Hooks through which the object module asks the data layer for what only
// the data layer knows: the layer of an object and the labels of an
// opening. The data layer stores its functions here when it starts; until
// then they are null and the object module does without.
#pragma once

#include "platform/acad/AcDbObjectId.h"
#include "platform/mfc/CString.h"

class AcDbDatabase;
class KyDbEntity;
template <class T>
class KyDList;

// The layer an object is drawn on, made if it is missing.
using KyGetLayerIdFunc = AcDbObjectId (*)(KyDbEntity *entity);
// Appends the label names that an opening may carry.
using KyGetLabelListFunc = void (*)(KyDList<CString> &labels, KyDbEntity *entity);
// The layer of a layer key in a database (null: the working database).
using KyGetLayerIdByKeyFunc = AcDbObjectId (*)(const wchar_t *key, AcDbDatabase *db);

extern KyGetLayerIdFunc g_KyGetLayerIdMethod;
extern KyGetLabelListFunc g_KyGetLabelListMethod;
extern KyGetLayerIdByKeyFunc g_KyGetLayerIdMethod1;
