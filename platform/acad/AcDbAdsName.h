// Entity names of the host's C interface (ads_name) and object ids: an
// ads_name holds the id's number in its first element.
#pragma once

#include "platform/acad/AcDbObjectId.h"
#include "platform/acad/AcadErrorStatus.h"
#include "platform/acad/AdsResbuf.h"

Acad::ErrorStatus acdbGetAdsName(ads_name &objName, AcDbObjectId objId);
// eNullObjectId for a name that names nothing; eUnknownHandle for one of
// an object that is gone.
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId &objId, const ads_name objName);
