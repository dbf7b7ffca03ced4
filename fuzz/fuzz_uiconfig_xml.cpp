// Feeds arbitrary bytes to the UI configuration reader through a file, as
// the module reads "UIConfig.xml" at start, then walks, saves and frees
// what it read. Nothing may crash, hang or leak.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "FuzzSeeds.h"
#include "containers/KyArray.h"
#include "containers/KyDynArray.h"
#include "platform/utility/KyUtXMLDOMFile.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/windows/TextCodec.h"
#include "uiconfig/KyDtUI.h"

namespace {

const char kSmall[] =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<TolvUIConfig localname=\"UI\">\n"
    "<Directory name=\"ALL_COMMAND_DEF\"><CommandDef name=\"WALL\" title=\"墙体\">KyWall</CommandDef>"
    "<SwitchDef name=\"SW\" get=\"g\" set=\"s\"><SwitchStatus name=\"ON\">1</SwitchStatus></SwitchDef></Directory>"
    "<Directory name=\"MENU\" width=\"120\" open=\"TRUE\"><Reference>WALL</Reference><Separator/>"
    "<Reference>SW</Reference><Reference>LATER</Reference></Directory>"
    "<Directory name=\"MENU_CONTEXT\"><MenuDef name=\"M\" filter=\"0,'LINE',8,'A,B'\"><MenuItem get=\"a\">x</MenuItem>"
    "</MenuDef></Directory><ToolBoxDef name=\"TOOLBOX\" visible=\"TRUE\"><Control clsid=\"{1}\"/></ToolBoxDef>"
    "<Directory name=\"HOT_KEY\"><ShortCut name=\"F5\" command=\"KyWall\"/></Directory>"
    "<TolvDictionary name=\"COMMON_DICT\"><Directory name=\"DYN_PARAM\"><Int name=\"DYN_MAXDIMNUM\">3</Int>"
    "</Directory></TolvDictionary>\n</TolvUIConfig>\n";

std::string ReadWhole(const std::filesystem::path &p) {
  std::ifstream in(p, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

}  // namespace

std::vector<std::string> FuzzTargetSeeds() {
  std::vector<std::string> seeds{kSmall};
#ifdef TOLV_SOURCE_DIR
  std::string bundled = ReadWhole(std::filesystem::path(TOLV_SOURCE_DIR) / "share" / "support" / "UIConfig.xml");
  if (!bundled.empty()) seeds.push_back(bundled.substr(0, 6000) + "</TolvUIConfig>");
#endif
  return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  static const std::string path = "/tmp/tolv-fuzz-ui-" + std::to_string(::getpid()) + ".xml";
  static const std::wstring wide = tolv::FromUtf8(path);
  static const bool ready = [] {
    // Dangling references print a line each; keep the output quiet.
    tolv::SetCommandLineSink([](const std::wstring &) {});
    RegisterUIElementFactories();
    return true;
  }();
  (void)ready;
  {
    // A plain write: the reader is under test, not the disk.
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char *>(data), static_cast<std::streamsize>(size));
    if (!file) return 0;
  }
  {
    KyDtUIConfig config;
    if (config.ReadFromXML(wide.c_str())) {
      KyDynArray<KyDtUIItem *> all;
      config.GetAllSubItem(all);
      config.GetChildNum();
      config.FindItemByValue(L"KyMissing");
      config.GetItemFromDFSId(static_cast<unsigned>(size));
      for (int i = 0; i < all.GetLength(); ++i) {
        KyDtUIItem *item = all[i];
        if (item->IsReference() && !item->GetTrueItem()) continue;
        (void)item->GetTrueTitle();
        (void)item->GetTrueCommand();
        if (item->IsKindOf(L"MenuDef")) {
          KyAdsRBList list;
          tolv::uiconfig::BuildContextFilter(static_cast<KyDtUIMenuDef *>(item)->GetFilter(), list);
        }
      }
      // The writer too, into a document in memory.
      KyUtXMLDOMFile out;
      if (out.CreateNewXMLDoc(L"unused.xml", L"version='1.0' encoding='utf-8'", L"TolvUIConfig",
                              KyArray<std::pair<CString, CString>>())) {
        _auto_ptr<KyUtXMLDOMNode> root = out.GetRoot();
        config >> root;
      }
      config.Reset();
    }
  }
  KyDtUIFreeDetachedItems();
  ::unlink(path.c_str());
  return 0;
}
