// The container rows of the exported interface whose element types are the
// library's classes.
#include "containers/KyArray.h"
#include "containers/KyDynArray.h"
#include "containers/KyList.h"
#include "containers/KyPDList.h"
#include "library/KyDtLibrary.h"

template class KyDynArrayBase<KyDtAttribute>;
template class KyDynArrayBase<KyDtLib *>;
template class KyDynArrayBase<KyDtLibDirectory *>;
template class KyDynArrayBase<KyDtLibItem *>;
template class KyDynArrayBase<KyDtLibItemBase *>;

template struct KyListNode<KyDtAttribute>;
template struct KyListNode<KyDtLib *>;
template struct KyListNode<KyDtLibItemBase *>;

template class KyList<KyDtAttribute>;
template class KyList<KyDtLib *>;
template class KyList<KyDtLibItemBase *>;

template class KyDList<KyDtAttribute>;
template class KyDList<KyDtLib *>;
template class KyDList<KyDtLibItemBase *>;

template class KyPDList<KyDtLib>;
template class KyPDList<KyDtLibItemBase>;

template class KyArray<KyDtAttribute>;
