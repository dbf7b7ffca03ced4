// The container instantiations the module exports for the project's element
// types: the pointer lists of the item tree, and the owning lists that the
// project database's GetAll operations fill.
#include "containers/KyDynArray.h"
#include "containers/KyList.h"
#include "containers/KyPDList.h"
#include "project/KyDtProjectDb.h"
#include "project/KyDtProjectFloor.h"
#include "project/KyDtProjectItem.h"

template class KyDynArrayBase<KyDtProjectItem *>;
template struct KyListNode<KyDtProjectItem *>;
template class KyList<KyDtProjectItem *>;
template class KyDList<KyDtProjectItem *>;
template class KyDList<KyDtProjectFloor *>;
template class KyPDList<KyDtProjectItem>;

template class KyPDList<KyDtPrjFile>;
template class KyPDList<KyDtPrjFloor>;
template class KyPDList<KyDtProjectDrawing>;
template class KyPDList<KyDtProjectRegion>;
template class KyPDList<KyDtProjectView>;
