// The data layer's answers to the object module's questions about its
// objects, stored in the object module's hooks at start.
#pragma once

#include "platform/mfc/CString.h"

class KyDbEntity;
template <class T>
class KyDList;

// Appends to `labels` the names of the labels that the settings offer for
// an opening of that kind (LABEL\OPENING\<key>), in their order. Anything
// but an opening, or settings without such a group, leaves `labels` as it
// was; it is never cleared.
void KyDtGetOpeningLabels(KyDList<CString> &labels, KyDbEntity *entity);

// The settings key of an opening kind under LABEL\OPENING.
const wchar_t *KyDtOpeningLabelKey(int kind);
