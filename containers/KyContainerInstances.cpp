// Explicit instantiations of the container templates that the module exports
// for element types that exist in this tree. The full exported surface is
// the instantiation table below; rows whose element types belong to modules
// or closed libraries that are not here yet are listed as waiting, and are
// to be added next to their element type's header once it exists.
//
// `long` of the exported signatures is 32 bits: std::int32_t, which is `int`
// on this platform, so the rows for int and long share one instantiation.
//
// Template          | instantiated here                        | waiting for their element type
// ------------------+------------------------------------------+-------------------------------------------
// KyDynArrayBase<T> | CString, bool, char, double, int (=long) | KyStringW (TolvBase stand-in), KyDtAttribute,
//                   |                                          | KyDtDictItem*, KyDtLib*, KyDtLibDirectory*,
//                   |                                          | KyDtLibItem*, KyDtLibItemBase*,
//                   |                                          | KyDtProjectItem*, KyDtUIItem*, KyPat*,
//                   |                                          | KyArray<KyGeGridCellBJ>, KyArray<KyGeGridNodeBJ>,
//                   |                                          | every KyDb*, KyGe*, KyGi*, KyGraph*,
//                   |                                          | KyDynArrayStream* and KyListNode<...>* row
// KyDynArray<T>     | char, double                             | KyDtDictionary*, KyPat*, KyDb*, KyGe*,
//                   |                                          | KyDynArrayStream*, KyListNode<...>* rows
// KyDynPArray<T>    | -                                        | KyPat, KyDbGrip, KyDbGripDim,
//                   |                                          | KyDynArrayStream, KyGeGridSegBJ
// KyList<T>         | CString, int                             | KyDtAttribute, KyDtDictItem*, KyDtLib*,
//                   |                                          | KyDtLibItemBase*, KyDtProjectItem*,
//                   |                                          | KyDtUIItem*, KyDb*, KyGe*, KyGi*, KyGraph* rows
// KyDList<T>        | CString                                  | KyDtAttribute, KyDtDictItem*,
//                   |                                          | KyDtDictReferenceItem*, KyDtLib*,
//                   |                                          | KyDtLibItemBase*, KyDtProjectFloor*,
//                   |                                          | KyDtProjectItem*, KyDtUIItem*, KyDb*, KyGe*,
//                   |                                          | KyGi*, KyGraph* rows
// KyPDList<T>       | -                                        | KyDtDictItem, KyDtLib, KyDtLibItemBase,
//                   |                                          | KyDtPrjFile, KyDtPrjFloor, KyDtProjectDrawing,
//                   |                                          | KyDtProjectItem, KyDtProjectRegion,
//                   |                                          | KyDtProjectView, KyDtUIItem, KyDb*, KyGe*,
//                   |                                          | KyGi*, KyGraphArc rows
// KyXList<T>        | -                                        | KyDbWallGraphNode*, KyGraphArc*, KyGraphNode*
// KyPXList<T>       | -                                        | KyDbWallGraphNode, KyGraphArc, KyGraphNode
// KyArray<T>        | CString, char, double, int               | KyDtAttribute, the pointer rows of the
//                   |                                          | module's and closed libraries' classes,
//                   |                                          | KyArray<KyGe...BJ>, KyGe*, KyPat*
// Ky2dArray<T>      | -                                        | KyGeGridCellBJ, KyGeGridNodeBJ
// KyListNode<T>     | CString, int                             | the same rows as KyList<T>
// KyDListNode<T>    | -                                        | KyGeGridNodeBJ, KyGePoint and the pointer
//                   |                                          | rows of KyDb*, KyGe*, KyGi*, KyGraph*
// KyQuene<T>        | int (=long, the index queue)             | KyDtDictionary*
// KyListQuene<T>    | int (=long)                              | KyDtDictionary*
// KyBFindTree<T>    | -                                        | AcDbObjectId
// KyPushVar<T>      | -                                        | KyDtUIConfig*
#include <cstdint>

#include "containers/KyDynArray.h"
#include "containers/KyList.h"
#include "containers/KyPDList.h"
#include "platform/mfc/CString.h"

template class KyDynArrayBase<CString>;
template class KyDynArrayBase<bool>;
template class KyDynArrayBase<char>;
template class KyDynArrayBase<double>;
template class KyDynArrayBase<std::int32_t>;

template class KyDynArray<char>;
template class KyDynArray<double>;

template class KyListNode<CString>;
template class KyListNode<std::int32_t>;

template class KyList<CString>;
template class KyList<std::int32_t>;

template class KyDList<CString>;

template class KyArray<CString>;
template class KyArray<char>;
template class KyArray<double>;
template class KyArray<std::int32_t>;

template class KyQuene<std::int32_t>;
template class KyListQuene<std::int32_t>;
