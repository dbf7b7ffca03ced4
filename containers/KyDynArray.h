// The array members of the container family: the root KyDynArrayBase<T>, the
// growable KyDynArray<T>, the owning KyDynPArray<T>, the fixed KyArray<T> and
// Ky2dArray<T>, the queue interface KyQuene<T> and the scope saver
// KyPushVar<T>.
#pragma once

#include "containers/KyArray.h"
#include "containers/KyBFindTree.h"
#include "containers/KyDynArrayBase.h"
#include "containers/KyDynArrayImpl.h"
#include "containers/KyDynPArray.h"
#include "containers/KyPushVar.h"
#include "containers/KyQuene.h"
