#include "platform/dbobject/KyDbEntity.h"

ACRX_CONS_DEFINE_MEMBERS(KyDbEntity, AcDbEntity, 1)

KyDbEntity::KyDbEntity() = default;
KyDbEntity::~KyDbEntity() = default;

CString KyDbEntity::GetLayerKey() const { return layerKey_; }
