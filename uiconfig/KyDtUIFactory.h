// The map from element name to the function that makes an item of that
// class, through which a document's elements become items. The module fills
// it at start, before the UI configuration is read; an element whose name
// is not in it is skipped.
#pragma once

#include <functional>
#include <map>

#include "platform/mfc/CString.h"

class KyDtUIItem;

using KyDtUINewItemFn = KyDtUIItem *(*)();
using KyDtUIFactoryMap = std::map<CString, KyDtUINewItemFn, std::less<>>;

// The process-wide map (one of the module's global objects).
extern KyDtUIFactoryMap g_mapUIFactory;

// Puts in the 14 element classes; entries already there stay.
void RegisterUIElementFactories();
// The maker of an element name, or null.
KyDtUINewItemFn FindUIElementFactory(const wchar_t *elementName);
