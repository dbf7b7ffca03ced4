#include "uiconfig/KyDtUIFactory.h"

#include "uiconfig/KyDtUIConfig.h"
#include "uiconfig/KyDtUIDirectories.h"
#include "uiconfig/KyDtUILeafItems.h"
#include "uiconfig/KyDtUIReference.h"

namespace {

template <class T>
void Register() {
  g_mapUIFactory.emplace(CString(T::GetXMLNodeName()), &T::NewItem);
}

}  // namespace

void RegisterUIElementFactories() {
  Register<KyDtUIItem>();
  Register<KyDtUIDirectory>();
  Register<KyDtUIReference>();
  Register<KyDtUISeparator>();
  Register<KyDtUIControl>();
  Register<KyDtUICommandDef>();
  Register<KyDtUISwitchStatus>();
  Register<KyDtUISwitchDef>();
  Register<KyDtUIMenuItem>();
  Register<KyDtUIMenuDef>();
  Register<KyDtUIToolBoxDef>();
  Register<KyDtUIShortCut>();
  Register<KyDtUIDictionary>();
  Register<KyDtUIConfig>();
}

KyDtUINewItemFn FindUIElementFactory(const wchar_t *elementName) {
  if (!elementName) return nullptr;
  auto found = g_mapUIFactory.find(elementName);
  return found == g_mapUIFactory.end() ? nullptr : found->second;
}
