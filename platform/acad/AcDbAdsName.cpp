#include "platform/acad/AcDbAdsName.h"

Acad::ErrorStatus acdbGetAdsName(ads_name &objName, AcDbObjectId objId) {
  objName[0] = static_cast<std::int64_t>(objId.asOldId());
  objName[1] = 0;
  return objId.isNull() ? Acad::eNullObjectId : Acad::eOk;
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId &objId, const ads_name objName) {
  objId.setNull();
  if (!objName || objName[0] <= 0) return Acad::eNullObjectId;
  AcDbObjectId id;
  id.setFromOldId(static_cast<std::uint64_t>(objName[0]));
  if (!id.isValid()) return Acad::eUnknownHandle;
  objId = id;
  return Acad::eOk;
}
