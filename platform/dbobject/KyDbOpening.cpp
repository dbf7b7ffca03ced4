#include "platform/dbobject/KyDbOpening.h"

ACRX_CONS_DEFINE_MEMBERS(KyDbOpening, KyDbEntity, 1)

KyDbOpening::KyDbOpening() = default;
KyDbOpening::KyDbOpening(int kind) : kind_(kind) {}
KyDbOpening::~KyDbOpening() = default;
