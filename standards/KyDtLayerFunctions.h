// The layer functions the drawing modules call: a layer name, a layer
// object or a layer filter for a key of the current layer standard.
// A null database means the host's working database.
#pragma once

#include "platform/acad/AcDbObjectId.h"
#include "platform/mfc/CString.h"

class AcDbDatabase;
class KyDbEntity;

// The drawing layer name of a key; empty when it does not resolve.
CString KyDtGetLayerName(const wchar_t *key);
// A layer filter for a comma-separated list of keys, each a key or keys
// joined by "*" with hyphens at their ends: the whole keys of the standard
// that match first, then the pattern put together from the fields.
CString KyDtGetLayerNameEx(const wchar_t *keys);
// The "linescale" of a key's layer; 1.0 when it does not resolve.
double KyDtGetLayerLineScale(const wchar_t *key);
// The "lineweight" of a key's layer; 0.0 when it does not resolve.
double KyDtGetLayerLineWeight(const wchar_t *key);
// The layer for a key, made when missing; the current layer of the drawing
// when layer standards are off.
AcDbObjectId KyDtInitLayer(const wchar_t *key, AcDbDatabase *db);
// The layer for a key, always through the standard; null when it does not
// resolve.
AcDbObjectId KyDtInitStdLayer(const wchar_t *key, AcDbDatabase *db);

// The layer of an add-on entity: that of its layer key in the working
// database; null for a null entity.
AcDbObjectId KyDtGetEntityLayerId(KyDbEntity *entity);
