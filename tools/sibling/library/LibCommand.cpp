// tolv lib FILE [--find NAME=VALUE ...] [--items|--dirs]: a library group
// (".DMLS") or a library (".DML") as a tree with attributes, or the nodes
// an attribute search finds; for each item its block name, its drawing and
// the preview image that would be shown.
#include <cstdio>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "SiblingRegistry.h"
#include "TolvDataBase.h"
#include "platform/utility/KyUtXMLDOM.h"
#include "platform/windows/PathMap.h"
#include "platform/windows/TextCodec.h"
#include "platform/windows/WinCrt.h"

namespace {

const char *kUsage =
    "usage: tolv lib FILE [--find NAME=VALUE ...] [--items | --dirs]\n"
    "\n"
    "Shows a drawing, equipment or word library (FILE.DML) or a library group\n"
    "(LibGroup.DMLS with the libraries it lists) as a tree: directories and items\n"
    "with their attributes, and for each item its block name (GROUP$LIB$BLOCK), its\n"
    "block drawing and the preview image found for it (.slb, .jpg, .jpeg, .bmp, else\n"
    "the drawing itself), or \"none\".\n"
    "\n"
    "  --find NAME=VALUE   only the nodes whose attribute NAME has VALUE (case counts;\n"
    "                      \"*\" is any value); several pairs must all match\n"
    "  --items             only items (with --find: items among the matches)\n"
    "  --dirs              only directories\n"
    "\n"
    "Exit status: 0 shown, 1 a search found nothing or a library of the group could\n"
    "not be read, 2 bad usage, a missing or malformed file, or a root element that\n"
    "is no library (group) of this kind.\n";

std::string U8(const CString &text) { return tolv::ToUtf8(text.view()); }

// The path as the system writes it, from one given on the command line.
CString SystemPath(const std::string &path) {
  std::wstring wide = tolv::FromUtf8(path);
  for (wchar_t &c : wide) {
    if (c == L'/') c = L'\\';
  }
  return CString(wide);
}

// Where a system path lies on this disk, for people to open.
std::string DiskPath(const CString &path) { return tolv::MapPath(path.view()); }

std::string AttributesText(const KyDtLibItemBase &node) {
  std::string text;
  for (const auto &[key, value] : node.GetAttributeMap()) {
    if (key.Compare(L"name") == 0 || key.Compare(L"file") == 0) continue;
    if (!text.empty()) text += "  ";
    text += U8(key) + "=" + U8(value);
  }
  return text;
}

// The library kinds by root element name.
std::unique_ptr<KyDmLibGroup> NewGroup(const wchar_t *root) {
  std::unique_ptr<KyDmLibGroup> made;
  if (std::wstring(root) == L"TolvDwgLibGroup") made = std::make_unique<KyDtDwgLibGroup>();
  if (std::wstring(root) == L"TolvEquipLibGroup") made = std::make_unique<KyDtEquipLibGroup>();
  if (std::wstring(root) == L"TolvWordLibGroup") made = std::make_unique<KyDtWordLibGroup>();
  if (std::wstring(root) == L"LibraryGroup") made = std::make_unique<KyDmLibGroup>();
  return made;
}

KyDtLib *NewLibrary(const wchar_t *root) {
  const std::wstring name(root);
  if (name == L"TolvDwgLib") return new KyDtDwgLib;
  if (name == L"TolvEquipLib") return new KyDtEquipLib;
  if (name == L"TolvWordLib") return new KyDtWordLib;
  if (name == L"Library") return new KyDtLib;
  return nullptr;
}

struct Options {
  std::string file;
  KyDtAttributeList pairs;
  bool find = false;
  bool items = false;
  bool dirs = false;
};

class Printer {
 public:
  explicit Printer(const Options &options) : options_(options) {}

  // The item's block: name, drawing, preview.
  void BlockInfo(const KyDtLib &lib, const KyDtLibItem &item, const std::string &indent) {
    CString stem = lib.GetFileName().Mid(lib.GetFilePath().GetLength());
    if (stem.GetLength() >= 4 && stem.Right(4).CompareNoCase(L".DML") == 0) stem = stem.Left(stem.GetLength() - 4);
    const CString dwg = lib.GetFilePath() + stem + L"\\" + item.GetDataFile();
    KyDtLibBlockDef def;
    def.SetFromDwgFile(dwg);
    CString image;
    const bool hasImage = KyDtGetBlkImage(dwg, image);
    std::string drawing = DiskPath(dwg);
    if (_waccess(dwg, 0) != 0) {
      CString sibling = dwg.Left(dwg.GetLength() - 4) + L".dxf";
      drawing = _waccess(sibling, 0) == 0 ? DiskPath(sibling) : drawing + " (missing)";
    }
    std::cout << indent << "block " << U8(def.GetBlockName()) << "\n"
              << indent << "drawing " << drawing << "\n"
              << indent << "image " << (hasImage ? DiskPath(image) : std::string("none"))
              << (hasImage && image.Right(4).CompareNoCase(L".dwg") == 0 ? " (no picture: the drawing itself)" : "")
              << "\n";
  }

  void Node(const KyDtLib &lib, KyDtLibItemBase &node, const std::string &indent) {
    const bool isDir = node.IsDirectory();
    std::cout << indent << (isDir ? "[" + U8(node.GetName()) + "]" : U8(node.GetName()));
    if (auto *item = dynamic_cast<KyDtLibItem *>(&node); item && !isDir) {
      std::cout << "  file=" << U8(item->GetDataFile());
    }
    const std::string attrs = AttributesText(node);
    if (!attrs.empty()) std::cout << "  " << attrs;
    std::cout << "\n";
    if (auto *item = dynamic_cast<KyDtLibItem *>(&node); item && !isDir) BlockInfo(lib, *item, indent + "    ");
  }

  // The whole tree, or only the items or directories of it.
  void Tree(KyDtLib &lib) {
    struct Frame {
      KyDtLibDirectory *dir;
      KyDtLibItemBase *const *slot;
      int depth;
    };
    std::vector<Frame> frames{{&lib, lib.GetFirst(), 1}};
    while (!frames.empty()) {
      Frame &frame = frames.back();
      if (frame.slot == nullptr) {
        frames.pop_back();
        continue;
      }
      KyDtLibItemBase *node = *frame.slot;
      frame.slot = frame.dir->GetNext(frame.slot);
      if (node == nullptr) continue;
      const bool isDir = node->IsDirectory();
      const std::string indent = (options_.items || options_.dirs) ? std::string("  ") : Indent(frame.depth);
      if ((!options_.items || !isDir) && (!options_.dirs || isDir)) {
        Node(lib, *node, indent);
        ++shown_;
      }
      if (auto *dir = dynamic_cast<KyDtLibDirectory *>(node)) frames.push_back({dir, dir->GetFirst(), frame.depth + 1});
    }
  }

  // Two blanks a level; a tree deeper than a screen is wide gives its depth
  // in numbers instead of ever longer lines.
  static std::string Indent(int depth) {
    constexpr int kWidest = 32;
    if (depth <= kWidest) return std::string(static_cast<std::size_t>(depth) * 2, ' ');
    // (Not std::to_string: its digit table would be a process-unique symbol,
    // which would keep this library, and the module it links, loaded.)
    char level[32];
    std::snprintf(level, sizeof level, "(level %d) ", depth);
    return std::string(kWidest * 2, ' ') + level;
  }

  void Matches(KyDtLib &lib) {
    KyDynArray<KyDtLibItemBase *> found;
    lib.Find(options_.pairs, found);
    for (std::int32_t i = 0; i < found.GetLength(); ++i) {
      KyDtLibItemBase *node = found.GetAt(i);
      const bool isDir = node->IsDirectory();
      if ((options_.items && isDir) || (options_.dirs && !isDir)) continue;
      Node(lib, *node, "  ");
      ++shown_;
    }
  }

  void Library(KyDtLib &lib) {
    std::cout << U8(lib.GetXMLNodeName()) << " \"" << U8(lib.GetName()) << "\"  " << DiskPath(lib.GetFileName())
              << "\n  nextfile " << lib.GetNextFileIndex() << ", readonly " << (lib.IsReadOnly() ? "TRUE" : "FALSE")
              << ", mulitiview " << (lib.IsMulitiView() ? "TRUE" : "FALSE");
    KyDtLibItemBase node;  // the free attributes without the flags
    for (const auto &[key, value] : lib.GetAttributeMap()) {
      if (key != L"nextfile" && key != L"readonly" && key != L"mulitiview") node.SetAttributeValue(key, value);
    }
    const std::string attrs = AttributesText(node);
    if (!attrs.empty()) std::cout << "\n  " << attrs;
    std::cout << "\n";
    if (options_.find) {
      Matches(lib);
    } else {
      Tree(lib);
    }
  }

  int shown() const { return shown_; }

 private:
  const Options &options_;
  int shown_ = 0;
};

int LibCommand(const std::vector<std::string> &args) {
  Options options;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string &arg = args[i];
    if (arg == "--help" || arg == "-h") {
      std::cout << kUsage;
      return 0;
    } else if (arg == "--items") {
      options.items = true;
    } else if (arg == "--dirs") {
      options.dirs = true;
    } else if (arg == "--find") {
      if (i + 1 >= args.size() || args[i + 1].find('=') == std::string::npos || args[i + 1][0] == '=') {
        std::cerr << "tolv lib: --find needs NAME=VALUE\n" << kUsage;
        return 2;
      }
      const std::string &pair = args[++i];
      const std::size_t eq = pair.find('=');
      options.pairs.Add(tolv::FromUtf8(pair.substr(0, eq)).c_str(), tolv::FromUtf8(pair.substr(eq + 1)).c_str());
      options.find = true;
    } else if (!arg.empty() && arg[0] == '-') {
      std::cerr << "tolv lib: unknown option '" << arg << "'\n" << kUsage;
      return 2;
    } else if (options.file.empty()) {
      options.file = arg;
    } else {
      std::cerr << "tolv lib: one file only ('" << arg << "' is one too many)\n" << kUsage;
      return 2;
    }
  }
  if (options.file.empty() || (options.items && options.dirs)) {
    std::cerr << (options.file.empty() ? "tolv lib: no file given\n" : "tolv lib: --items or --dirs, not both\n")
              << kUsage;
    return 2;
  }
  const CString path = SystemPath(options.file);
  KyUtXMLDOMFile document;
  if (!document.IsFileExist(path)) {
    std::cerr << "tolv lib: " << options.file << ": no such file\n";
    return 2;
  }
  if (!document.Open(path)) {
    std::cerr << "tolv lib: " << options.file << ": not well-formed XML\n";
    return 2;
  }
  _auto_ptr<KyUtXMLDOMNode> root = document.GetRoot();
  const std::wstring rootName = root ? root->GetNodeName() : L"";
  const bool isGroup = path.GetLength() >= 5 && path.Right(5).CompareNoCase(L".DMLS") == 0;
  Printer printer(options);
  int status = 0;
  if (isGroup) {
    std::unique_ptr<KyDmLibGroup> group = NewGroup(rootName.c_str());
    if (!group) {
      std::cerr << "tolv lib: " << options.file << ": the root element <" << tolv::ToUtf8(rootName)
                << "> is no library group (TolvDwgLibGroup, TolvEquipLibGroup, TolvWordLibGroup or LibraryGroup)\n";
      return 2;
    }
    group->SetFileName(path);
    if (!group->ReadFromXML()) {
      std::cerr << "tolv lib: " << options.file << ": can't be read as a library group\n";
      return 2;
    }
    std::cout << U8(group->GetXMLNodeName()) << " \"" << U8(group->GetName()) << "\"  " << options.file << ": "
              << group->GetLength() << " libraries";
    const std::string attrs = AttributesText(*group);
    if (!attrs.empty()) std::cout << "\n  " << attrs;
    std::cout << "\n";
    for (KyDtLib *const *slot = group->GetFirst(); slot != nullptr; slot = group->GetNext(slot)) {
      KyDtLib *lib = *slot;
      if (lib == nullptr) continue;
      std::cout << "\n";
      if (!lib->ReadFromXML()) {
        std::cerr << "tolv lib: " << DiskPath(lib->GetFileName()) << ": can't be read as <"
                  << U8(lib->GetXMLNodeName()) << "> (listed in " << options.file << ")\n";
        status = 1;
        continue;
      }
      printer.Library(*lib);
    }
  } else {
    std::unique_ptr<KyDtLib> lib(NewLibrary(rootName.c_str()));
    if (!lib) {
      std::cerr << "tolv lib: " << options.file << ": the root element <" << tolv::ToUtf8(rootName)
                << "> is no library (TolvDwgLib, TolvEquipLib, TolvWordLib or Library)\n";
      return 2;
    }
    lib->SetFileName(path);
    if (!lib->ReadFromXML()) {
      std::cerr << "tolv lib: " << options.file << ": can't be read as a library\n";
      return 2;
    }
    printer.Library(*lib);
  }
  if (options.find) {
    std::cout << "\n" << printer.shown() << (printer.shown() == 1 ? " match\n" : " matches\n");
    if (printer.shown() == 0 && status == 0) status = 1;
  }
  return status;
}

const tolv::sibling::Subcommand kLib("lib",
                                     "  lib FILE [--find NAME=VALUE ...] [--items|--dirs]\n"
                                     "                 a library (.DML) or group (.DMLS): tree, search, blocks\n"
                                     "                 and previews\n",
                                     &LibCommand);

}  // namespace
