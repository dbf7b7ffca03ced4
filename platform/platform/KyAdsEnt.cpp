#include "platform/platform/KyAdsEnt.h"

Acad::ErrorStatus KyAdsEnt::Open(AcDbEntity *&entity, AcDb::OpenMode mode) const {
  return acdbOpenAcDbEntity(entity, id_, mode);
}
