#include "platform/platform/KyAdsSpace.h"

#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbHostApplicationServices.h"

bool IsCurrentPaperSpace(AcDbDatabase *db) {
  if (!db && acdbHostApplicationServices()) db = acdbHostApplicationServices()->workingDatabase();
  return db && !db->tileMode();
}
