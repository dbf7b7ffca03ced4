// The UI configuration seen from a sibling module: a selection of the
// drawing, the context menu chosen for it, an item's true texts; and the
// `tolv ui` check of a UIConfig.xml.
//
//   SELECT TYPE [LAYER]   select the entities of the current space whose type
//                         name and layer match the wildcard patterns
//   SELECT NONE           an empty selection
//   CONTEXTMENU           the context menu for the selection, with its items
//   UIITEM NAME           an item's true title, comment, bitmap id and command
#include <iostream>

#include "SiblingRegistry.h"
#include "TolvDataBase.h"
#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/windows/TextCodec.h"
#include "uiconfig/UiCheck.h"

namespace {

// The selection the lines work on, as the host keeps the user's pick.
KyAdsEntSet &Selection() {
  static KyAdsEntSet selection;
  return selection;
}

CString Wide(const std::string &text) { return CString(tolv::FromUtf8(text).c_str()); }

bool SelectLine(const std::vector<std::string> &args) {
  if (args.empty() || args.size() > 2) {
    acutPrintf(L"\nSELECT needs a type pattern and maybe a layer pattern (SELECT LINE WALL*), or NONE");
    return false;
  }
  KyAdsEntSet &selection = Selection();
  selection.RemoveAll();
  if (args.size() == 1 && (args[0] == "NONE" || args[0] == "none")) {
    acutPrintf(L"\nSelection emptied");
    return true;
  }
  AcDbDatabase *db = tolv::sibling::WorkingDatabase();
  selection.AddBlock(db->currentSpaceId());
  KyAdsRBList filter;
  const CString type = Wide(args[0]);
  filter.Append(acutBuildList(RTDXF0, type.GetString(), 0));
  if (args.size() == 2) {
    const CString layer = Wide(args[1]);
    filter.Append(acutBuildList(8, layer.GetString(), 0));
  }
  selection.Filter(filter);
  acutPrintf(L"\n%d entities selected in %ls space", static_cast<int>(selection.GetLength()),
             IsCurrentPaperSpace(db) ? L"paper" : L"model");
  return true;
}

void PrintItem(const KyDtUIItem *item, const wchar_t *indent) {
  if (!item) {
    acutPrintf(L"\n%ls(empty)", indent);
  } else if (item->IsKindOf(L"Separator")) {
    acutPrintf(L"\n%ls----", indent);
  } else if (item->IsReference() && !item->GetTrueItem()) {
    acutPrintf(L"\n%ls<unbound reference to %ls>", indent,
               static_cast<const KyDtUIReference *>(item)->GetReferencedItemName().GetString());
  } else if (item->GetTrueItem()->IsDirectory()) {
    acutPrintf(L"\n%ls%ls >", indent, item->GetTrueTitle().GetString());
  } else {
    acutPrintf(L"\n%ls%ls\t%ls", indent, item->GetTrueTitle().GetString(), item->GetTrueCommand().GetString());
  }
}

bool ContextMenuLine(const std::vector<std::string> &args) {
  KyDtUIDirectory *menu = KyDtGetContextMenu(Selection());
  if (!menu) {
    acutPrintf(L"\nNo context menu for a selection of %d entities", static_cast<int>(Selection().GetLength()));
    return true;
  }
  acutPrintf(L"\nContext menu %ls (%ls) for %d entities", menu->GetName().GetString(),
             menu->GetLocalName().GetString(), static_cast<int>(Selection().GetLength()));
  for (KyDtUIItem *const *slot = menu->GetFirst(); slot; slot = menu->GetNext(slot)) PrintItem(*slot, L"  ");
  return true;
}

bool UiItemLine(const std::vector<std::string> &args) {
  if (args.size() != 1) {
    acutPrintf(L"\nUIITEM needs an item name, e.g. UIITEM WALL");
    return false;
  }
  const CString name = Wide(args[0]);
  KyDtUIItem *item = g_dbCfgUI.FindNamedItem(name);
  if (!item) {
    acutPrintf(L"\n%ls: no UI item of that name", name.GetString());
    return false;
  }
  if (item->IsReference() && !item->GetTrueItem()) {
    acutPrintf(L"\n%ls: a reference to %ls that is not bound", name.GetString(),
               static_cast<KyDtUIReference *>(item)->GetReferencedItemName().GetString());
    return false;
  }
  acutPrintf(L"\n%ls (%ls): title \"%ls\", comment \"%ls\", bitmap %ls, command %ls", name.GetString(),
             item->GetClassName(), item->GetTrueTitle().GetString(), item->GetTrueComment().GetString(),
             item->GetTrueBitmapID().GetString(), item->GetTrueCommand().GetString());
  return true;
}

int UiCommand(const std::vector<std::string> &args) {
  return tolv::sibling::ui::UiCommand(args, std::cout, std::cerr);
}

const tolv::sibling::HostLine kSelect(
    "SELECT",
    "  SELECT TYPE [LAYER]  select the entities of the current space by type name and layer\n"
    "                       (wildcard patterns, e.g. SELECT LINE WALL*); SELECT NONE empties it\n",
    &SelectLine);
const tolv::sibling::HostLine kContextMenu(
    "CONTEXTMENU", "  CONTEXTMENU          the context menu chosen for the selection, with its items\n",
    &ContextMenuLine);
const tolv::sibling::HostLine kUiItem(
    "UIITEM", "  UIITEM NAME          a UI item's true title, comment, bitmap id and command\n", &UiItemLine);
const tolv::sibling::Subcommand kUi(
    "ui",
    "  ui FILE [--tree SECTION]\n"
    "                 check a UIConfig.xml: sections, references, names, unreached\n"
    "                 commands\n",
    &UiCommand);

}  // namespace
