// The map from element name to the function that makes an item of that
// class, through which a document's elements become items. The module fills
// it at start, before the UI configuration is read; an element whose name
// is not in it is skipped.
#pragma once

#include <functional>
#include <map>
#include <string_view>

#include "platform/mfc/CString.h"

class KyDtUIItem;

using KyDtUINewItemFn = KyDtUIItem *(*)();
// Ordered by the names' characters; looked up by a plain wide text as well.
struct KyDtUIElementNameLess {
  using is_transparent = void;
  static std::wstring_view View(const CString &name) { return name.view(); }
  static std::wstring_view View(const wchar_t *name) { return name ? std::wstring_view(name) : std::wstring_view(); }
  template <class A, class B>
  bool operator()(const A &a, const B &b) const {
    return View(a) < View(b);
  }
};
using KyDtUIFactoryMap = std::map<CString, KyDtUINewItemFn, KyDtUIElementNameLess>;

// The process-wide map (one of the module's global objects).
extern KyDtUIFactoryMap g_mapUIFactory;

// Puts in the 14 element classes; entries already there stay.
void RegisterUIElementFactories();
// The maker of an element name, or null.
KyDtUINewItemFn FindUIElementFactory(const wchar_t *elementName);
