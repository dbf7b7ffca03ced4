// tolv layer: what the layer standards of a settings file make of keys,
// without a drawing, for the people who keep the standards.
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "SiblingRegistry.h"
#include "TolvDataBase.h"
#include "platform/windows/PathMap.h"
#include "platform/windows/TextCodec.h"

namespace {

const char *kUsage =
    "usage: tolv layer --main-dir DIR [--std NAME] KEY...\n"
    "\n"
    "Resolves layer keys by the layer standards of DIR/config.xml: the current\n"
    "standard (LAYER\\CUR_STD), or the one --std names. For each key it prints\n"
    "the layer name, colour, line type, line weight and line scale, and whether\n"
    "the key's own entry (ASSEMBLY_LAYER_DEF), its fields (LAYER_FIELD_DEF) or\n"
    "both gave them. Keys are cut into fields at '-'.\n"
    "\n"
    "Exit status: 0 every key resolved, 1 a key did not, 2 bad usage, a missing\n"
    "or unreadable settings file, no layer standards or an unknown standard.\n";

std::string Utf8(const CString &text) { return tolv::ToUtf8(text.view()); }

std::string KnownStandards(const KyDtLayerCfg &cfg) {
  KyDynArray<KyDtDictionary *> all;
  cfg.GetAllLayerStd(all);
  std::string names;
  for (std::int32_t i = 0; i < all.GetLength(); ++i) {
    if (!names.empty()) names += ", ";
    names += Utf8(all[i]->m_strName);
  }
  return names.empty() ? "none" : names;
}

const char *Source(bool fields, bool entry) {
  if (fields && entry) return "both the key's entry and its fields";
  if (entry) return "the key's entry";
  return "its fields";
}

int LayerCommand(const std::vector<std::string> &args) {
  std::string mainDir;
  std::string standardName;
  std::vector<std::string> keys;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string &arg = args[i];
    if (arg == "--help" || arg == "-h") {
      std::cout << kUsage;
      return 0;
    }
    if ((arg == "--main-dir" || arg == "--std") && i + 1 < args.size()) {
      (arg == "--main-dir" ? mainDir : standardName) = args[++i];
    } else if (arg.rfind("--", 0) == 0) {
      std::cerr << "tolv layer: unknown option " << arg << "\n" << kUsage;
      return 2;
    } else {
      keys.push_back(arg);
    }
  }
  if (mainDir.empty() || keys.empty()) {
    std::cerr << "tolv layer: give --main-dir and at least one key\n" << kUsage;
    return 2;
  }
  const std::string file = (std::filesystem::path(mainDir) / "config.xml").string();
  std::error_code ec;
  if (!std::filesystem::is_regular_file(file, ec)) {
    std::cerr << "tolv layer: " << file << ": no such settings file\n";
    return 2;
  }
  if (!g_dictCfg.ReadFromXML(tolv::ToSystemPath(file).c_str())) {
    std::cerr << "tolv layer: " << file << ": not a settings file (malformed XML or no TolvDictionary root)\n";
    return 2;
  }
  KyDtLayerCfg cfg;
  if (!cfg.GetDict()) {
    std::cerr << "tolv layer: " << file << ": no layer standards (no LAYER dictionary)\n";
    return 2;
  }
  const CString name = standardName.empty() ? cfg.GetCurStdName() : CString(tolv::FromUtf8(standardName).c_str());
  KyDtDictionary *standard = cfg.GetLayerStd(name);
  if (!standard) {
    std::cerr << "tolv layer: " << file << ": unknown layer standard \"" << Utf8(name)
              << "\" (standards: " << KnownStandards(cfg) << ")\n";
    return 2;
  }
  std::cout << "standard " << Utf8(name) << " of " << file << "\n";
  const KyDtLayerStd view(standard);
  int status = 0;
  for (const std::string &key : keys) {
    KyDtLayerDef def;
    def.key = tolv::FromUtf8(key).c_str();
    KyDtLayerDef fields(def);
    const bool byFields = view.AssembleLayer(fields) && fields.IsValid();
    KyDtLayerDef entry;
    entry.key = def.key;
    const bool byEntry = KyDtLayerStd::FindLayer(view.GetAssemblyDict(), entry);
    if (!view.GetLayerDef(def)) {
      std::cerr << "tolv layer: " << file << ": key " << key << " does not resolve in standard " << Utf8(name)
                << "\n";
      status = 1;
      continue;
    }
    std::cout << key << ": layer \"" << Utf8(def.layerName) << "\" (" << Utf8(def.localName) << "), colour "
              << def.color << ", line type " << (def.lineType.IsEmpty() ? "(default)" : Utf8(def.lineType))
              << ", line weight " << def.lineWeight << (def.lineWeight == -3 ? " (default)" : "")
              << ", line scale " << def.GetLineScale() << "; from " << Source(byFields, byEntry) << "\n";
  }
  return status;
}

const tolv::sibling::Subcommand kLayerCmd("layer",
                                          "  layer --main-dir DIR [--std NAME] KEY...\n"
                                          "                 the layers of keys by a standard\n",
                                          &LayerCommand);

}  // namespace
