// The owning pointer lists and the queues of the container family:
// KyPDList<T>, the indexed KyXList<E> and its owning form KyPXList<T>, with
// everything of KyList.h and KyDynArray.h.
#pragma once

#include "containers/KyList.h"
#include "containers/KyPDListImpl.h"
#include "containers/KyPXList.h"
#include "containers/KyXList.h"
