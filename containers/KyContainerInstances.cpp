// Explicit instantiations of the container templates that the module exports
// for element types that exist in this tree. The full exported surface is
// the instantiation table below; rows whose element types belong to modules
// or closed libraries that are not here yet are listed as waiting, and are
// to be added next to their element type's header once it exists. Those of
// the project, library and pattern classes now are: see
// project/ProjectContainerInstances.cpp, library/KyDtLibContainerInstances.cpp
// and patterns/KyPats.cpp.
//
// `long` of the exported signatures is 32 bits: std::int32_t, which is `int`
// on this platform, so the rows for int and long share one instantiation.
//
// Template          | instantiated here                        | waiting for their element type
// ------------------+------------------------------------------+-------------------------------------------
// KyDynArrayBase<T> | CString, KyStringW, bool, char, double,  | KyDtAttribute, KyDtLib*, KyDtLibDirectory*,
//                   | int (=long), KyDtDictItem*               | KyDtLibItem*, KyDtLibItemBase*,
//                   |                                          | KyDtProjectItem*, KyDtUIItem*, KyPat*,
//                   |                                          | KyArray<KyGeGridCellBJ>, KyArray<KyGeGridNodeBJ>,
//                   |                                          | every KyDb*, KyGe*, KyGi*, KyGraph*,
//                   |                                          | KyDynArrayStream* and KyListNode<...>* row
// KyDynArray<T>     | char, double, KyDtDictionary*            | KyPat*, KyDb*, KyGe*, KyDynArrayStream*,
//                   |                                          | KyListNode<...>* rows
// KyDynPArray<T>    | -                                        | KyPat, KyDbGrip, KyDbGripDim,
//                   |                                          | KyDynArrayStream, KyGeGridSegBJ
// KyList<T>         | CString, int, KyDtDictItem*              | KyDtAttribute, KyDtLib*, KyDtLibItemBase*,
//                   |                                          | KyDtProjectItem*, KyDtUIItem*, KyDb*, KyGe*,
//                   |                                          | KyGi*, KyGraph* rows
// KyDList<T>        | CString, KyDtDictItem*,                  | KyDtAttribute, KyDtLib*, KyDtLibItemBase*,
//                   | KyDtDictReferenceItem*                   | KyDtProjectFloor*, KyDtProjectItem*,
//                   |                                          | KyDtUIItem*, KyDb*, KyGe*, KyGi*, KyGraph* rows
// KyPDList<T>       | -                                        | KyDtDictItem (needs the full class: it is
//                   |                                          | instantiated where the dictionary is built),
//                   |                                          | KyDtLib, KyDtLibItemBase, KyDtPrjFile,
//                   |                                          | KyDtPrjFloor, KyDtProjectDrawing,
//                   |                                          | KyDtProjectItem, KyDtProjectRegion,
//                   |                                          | KyDtProjectView, KyDtUIItem, KyDb*, KyGe*,
//                   |                                          | KyGi*, KyGraphArc rows
// KyXList<T>        | -                                        | KyDbWallGraphNode*, KyGraphArc*, KyGraphNode*
// KyPXList<T>       | -                                        | KyDbWallGraphNode, KyGraphArc, KyGraphNode
// KyArray<T>        | CString, char, double, int, KyDtDictItem*| KyDtAttribute, the pointer rows of the
//                   |                                          | other module and closed-library classes,
//                   |                                          | KyArray<KyGe...BJ>, KyGe*, KyPat*
// Ky2dArray<T>      | -                                        | KyGeGridCellBJ, KyGeGridNodeBJ
// KyListNode<T>     | CString, int, KyDtDictItem*              | the other rows of KyList<T>
// KyDListNode<T>    | -                                        | KyGeGridNodeBJ, KyGePoint and the pointer
//                   |                                          | rows of KyDb*, KyGe*, KyGi*, KyGraph*
// KyQuene<T>        | int (=long, the index queue),            | -
//                   | KyDtDictionary*                          |
// KyListQuene<T>    | int (=long), KyDtDictionary*             | -
// KyBFindTree<T>    | -                                        | AcDbObjectId
// KyPushVar<T>      | -                                        | KyDtUIConfig*
//
// A pointer row needs only the name of its class, so the dictionary's
// pointer rows are here already; an owning row needs the whole class.
#include <cstdint>

#include "containers/KyDynArray.h"
#include "containers/KyList.h"
#include "containers/KyPDList.h"
#include "platform/base/KyStringW.h"
#include "platform/mfc/CString.h"

class KyDtDictItem;
class KyDtDictionary;
class KyDtDictReferenceItem;

template class KyDynArrayBase<CString>;
template class KyDynArrayBase<KyStringW>;
template class KyDynArrayBase<bool>;
template class KyDynArrayBase<char>;
template class KyDynArrayBase<double>;
template class KyDynArrayBase<std::int32_t>;
template class KyDynArrayBase<KyDtDictItem *>;

template class KyDynArray<char>;
template class KyDynArray<double>;
template class KyDynArray<KyDtDictionary *>;

template struct KyListNode<CString>;
template struct KyListNode<std::int32_t>;
template struct KyListNode<KyDtDictItem *>;

template class KyList<CString>;
template class KyList<std::int32_t>;
template class KyList<KyDtDictItem *>;

template class KyDList<CString>;
template class KyDList<KyDtDictItem *>;
template class KyDList<KyDtDictReferenceItem *>;

template class KyArray<CString>;
template class KyArray<char>;
template class KyArray<double>;
template class KyArray<std::int32_t>;
template class KyArray<KyDtDictItem *>;

template class KyQuene<std::int32_t>;
template class KyListQuene<std::int32_t>;
template class KyQuene<KyDtDictionary *>;
template class KyListQuene<KyDtDictionary *>;
