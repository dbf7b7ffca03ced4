#include "UiCheck.h"

#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <unordered_map>

#include "TolvDataBase.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/utility/KyUtXMLDOMFile.h"
#include "platform/windows/TextCodec.h"

namespace tolv::sibling::ui {
namespace {

const char kUsage[] =
    "usage: tolv ui FILE [--tree SECTION]\n"
    "  Checks a UI configuration (UIConfig.xml) as the module reads it at start:\n"
    "  its sections with their item counts, references that dangle or point\n"
    "  forward (a reference binds only to an item written before it), names\n"
    "  defined twice (the first one counts), and commands that no menu, tool\n"
    "  box, hot key or short command reaches.\n"
    "  --tree SECTION   print that section (any named item) as an indented tree\n"
    "  exit status: 0 clean, 1 a reference doesn't bind, 2 bad usage or unreadable file\n";

const wchar_t *const kSections[] = {L"ALL_COMMAND_DEF", L"ALL_SWITCH_DEF", L"ALL_CONTROL_DEF", L"MENU",
                                    L"MENU_CONTEXT",    L"STATUSBAR",      L"HOT_KEY",         L"SHORT_CMD",
                                    L"TOOLBOX",         L"PROJECTBOX",     L"MENU_SCREEN",     L"MENU_DWG_LIB",
                                    L"MENU_EQUIP_LIB",  L"MENU_PRINT_SCALE", L"COMMON_DICT"};

std::string U8(const wchar_t *text) { return tolv::ToUtf8(text ? text : L""); }
std::string U8(const CString &text) { return tolv::ToUtf8(text.view()); }

// Each item of the tree with the line of its element: the document's
// elements and the tree's items are walked side by side, skipping the
// elements the reader skips (unknown names, with everything inside).
std::unordered_map<const KyDtUIItem *, int> ItemLines(KyUtXMLDOMFile &document, KyDtUIConfig &config,
                                                      const std::vector<int> &tagLines) {
  std::unordered_map<const KyDtUIItem *, int> lines;
  auto lineOf = [&](int index) { return index >= 0 && index < static_cast<int>(tagLines.size()) ? tagLines[index] : 0; };
  // Elements are numbered in document order: the root 0, then preorder.
  struct Frame {
    _auto_ptr<KyUtXMLDOMNodes> children;
    int next;
    KyDtUIDirectory *directory;  // null inside a skipped element
    KyDtUIItem *const *slot;
  };
  int counter = 0;
  lines[&config] = lineOf(counter++);
  std::vector<Frame> stack;
  _auto_ptr<KyUtXMLDOMNode> root = document.GetRoot();
  stack.push_back({root->GetChildrenNodes(), 0, &config, config.GetFirst()});
  while (!stack.empty()) {
    Frame &top = stack.back();
    if (!top.children || top.next >= top.children->GetCount()) {
      stack.pop_back();
      continue;
    }
    _auto_ptr<KyUtXMLDOMNode> node = top.children->GetItem(top.next++);
    const int index = counter++;
    KyDtUIItem *item = nullptr;
    if (top.directory && FindUIElementFactory(node->GetNodeName()) && top.slot) {
      item = *top.slot;
      top.slot = top.directory->GetNext(top.slot);
      lines[item] = lineOf(index);
    }
    auto *sub = item ? dynamic_cast<KyDtUIDirectory *>(item) : nullptr;
    stack.push_back({node->GetChildrenNodes(), 0, sub, sub ? sub->GetFirst() : nullptr});
  }
  return lines;
}

void PrintTree(KyDtUIItem *top, std::ostream &out) {
  struct Entry {
    KyDtUIItem *item;
    int depth;
  };
  std::vector<Entry> stack{{top, 0}};
  while (!stack.empty()) {
    Entry entry = stack.back();
    stack.pop_back();
    KyDtUIItem *item = entry.item;
    out << std::string(static_cast<std::size_t>(entry.depth) * 2, ' ');
    if (!item) {
      out << "(empty slot)\n";
      continue;
    }
    out << U8(item->GetClassName());
    if (!item->GetName().IsEmpty()) out << " " << U8(item->GetName());
    if (item->IsReference()) {
      auto *reference = static_cast<KyDtUIReference *>(item);
      out << " -> " << U8(reference->GetReferencedItemName());
      if (!reference->GetReferencedItem()) {
        out << " (unbound)\n";
        continue;
      }
    }
    if (!item->IsKindOf(L"Separator")) out << "  \"" << U8(item->GetTrueTitle()) << "\"";
    if (!item->IsDirectory() && !item->GetTrueData().IsEmpty()) out << "  " << U8(item->GetTrueCommand());
    if (item->IsKindOf(L"ShortCut")) out << "  " << U8(static_cast<KyDtUIShortCut *>(item)->GetCommand());
    if (item->IsKindOf(L"MenuDef") && !static_cast<KyDtUIMenuDef *>(item)->GetFilter().IsEmpty())
      out << "  filter " << U8(static_cast<KyDtUIMenuDef *>(item)->GetFilter());
    out << "\n";
    if (item->IsDirectory()) {
      auto *directory = static_cast<KyDtUIDirectory *>(item);
      std::vector<KyDtUIItem *> children;
      for (KyDtUIItem *const *slot = directory->GetFirst(); slot; slot = directory->GetNext(slot)) children.push_back(*slot);
      for (auto it = children.rbegin(); it != children.rend(); ++it) stack.push_back({*it, entry.depth + 1});
    }
  }
}

}  // namespace

int UiCommand(const std::vector<std::string> &args, std::ostream &out, std::ostream &err) {
  std::string file;
  std::string tree;
  for (std::size_t i = 0; i < args.size(); ++i) {
    if (args[i] == "--help" || args[i] == "-h") {
      out << kUsage;
      return 0;
    }
    if (args[i] == "--tree") {
      if (i + 1 >= args.size()) {
        err << "tolv ui: --tree needs a section name\n" << kUsage;
        return 2;
      }
      tree = args[++i];
    } else if (file.empty() && (args[i].empty() || args[i][0] != '-')) {
      file = args[i];
    } else {
      err << "tolv ui: unexpected argument '" << args[i] << "'\n" << kUsage;
      return 2;
    }
  }
  if (file.empty()) {
    err << "tolv ui: no file given\n" << kUsage;
    return 2;
  }
  std::ifstream in(file, std::ios::binary);
  std::ostringstream bytes;
  if (!in || !(bytes << in.rdbuf())) {
    err << "tolv ui: " << file << ": cannot read the file\n";
    return 2;
  }
  const std::wstring path = tolv::FromUtf8(file);
  KyUtXMLDOMFile document;
  if (!document.Open(path.c_str())) {
    err << "tolv ui: " << file << ": not well-formed XML\n";
    return 2;
  }
  _auto_ptr<KyUtXMLDOMNode> root = document.GetRoot();
  if (!root || std::wstring(root->GetNodeName()) != L"TolvUIConfig") {
    err << "tolv ui: " << file << ":1: the root element is <" << (root ? U8(root->GetNodeName()) : "")
        << ">, not <TolvUIConfig>\n";
    return 2;
  }

  RegisterUIElementFactories();
  KyDtUIConfig config;
  std::wstring printed;
  tolv::CommandLineSink old = tolv::SetCommandLineSink([&printed](const std::wstring &text) { printed += text; });
  const bool read = config.ReadFromXML(path.c_str());
  tolv::SetCommandLineSink(old);
  if (!read) {
    err << "tolv ui: " << file << ": the module could not read the file\n";
    return 2;
  }
  const auto lines = ItemLines(document, config, StartTagLines(bytes.str()));
  auto lineOf = [&lines](const KyDtUIItem *item) {
    auto found = lines.find(item);
    return found == lines.end() ? 0 : found->second;
  };

  if (!tree.empty()) {
    KyDtUIItem *section = config.FindNamedItem(CString(tolv::FromUtf8(tree).c_str()));
    if (!section) {
      err << "tolv ui: " << file << ": no item named " << tree << "\n";
      return 2;
    }
    PrintTree(section, out);
    return 0;
  }

  out << file << ": UI configuration \"" << U8(config.GetLocalName()) << "\"\n";
  if (!printed.empty()) out << "the module printed while reading:" << tolv::ToUtf8(printed) << "\n";
  out << "sections:\n";
  for (const wchar_t *name : kSections) {
    KyDtUIItem *section = config.FindNamedItem(name);
    out << "  " << U8(name) << std::string(20 - std::min<std::size_t>(19, std::wcslen(name)), ' ');
    if (!section) {
      out << "(missing)\n";
      continue;
    }
    out << U8(section->GetClassName());
    if (section->IsDirectory()) out << ", " << static_cast<KyDtUIDirectory *>(section)->GetChildNum() << " items";
    out << ", line " << lineOf(section) << "\n";
  }

  KyDynArray<KyDtUIItem *> all;
  config.GetAllSubItem(all);
  std::set<const KyDtUIItem *> targets;
  std::set<std::wstring> commandsRun;
  std::map<std::wstring, std::vector<int>> names;
  int problems = 0;
  int references = 0;
  std::ostringstream refReport;
  for (int i = 0; i < all.GetLength(); ++i) {
    KyDtUIItem *item = all[i];
    if (!item) continue;
    if (!item->GetName().IsEmpty()) names[item->GetName().str()].push_back(lineOf(item));
    if (item->IsKindOf(L"ShortCut")) {
      CString command = static_cast<KyDtUIShortCut *>(item)->GetCommand();
      commandsRun.insert(command.MakeUpper().str());
    }
    if (item->IsKindOf(L"MenuItem")) commandsRun.insert(CString(item->GetData()).MakeUpper().str());
    if (!item->IsReference()) continue;
    ++references;
    auto *reference = static_cast<KyDtUIReference *>(item);
    if (KyDtUIItem *target = reference->GetReferencedItem()) {
      targets.insert(target);
      continue;
    }
    ++problems;
    const std::string target = U8(reference->GetReferencedItemName());
    refReport << "  " << file << ":" << lineOf(item) << ": ";
    if (!item->GetName().IsEmpty()) {
      refReport << "reference " << U8(item->GetName()) << " to " << target
                << " has a name of its own and is therefore never bound\n";
    } else if (KyDtUIItem *later = config.FindNamedItem(reference->GetReferencedItemName())) {
      refReport << "reference to " << target << " points forward to line " << lineOf(later)
                << " (a target must stand before its references)\n";
    } else {
      refReport << "reference to " << target << " dangles: no item has that name\n";
    }
  }
  out << "references: " << references << ", " << problems << " unbound\n" << refReport.str();

  std::ostringstream twice;
  int twiceCount = 0;
  for (const auto &[name, at] : names) {
    if (at.size() < 2) continue;
    ++twiceCount;
    twice << "  " << file << ":" << at[1] << ": " << tolv::ToUtf8(name) << " is defined again (first at line "
          << at[0] << ", which counts)";
    if (at.size() > 2) twice << ", " << at.size() << " times in all";
    twice << "\n";
  }
  out << "names defined twice: " << twiceCount << "\n" << twice.str();

  std::ostringstream unreached;
  int commands = 0;
  int unreachedCount = 0;
  for (int i = 0; i < all.GetLength(); ++i) {
    KyDtUIItem *item = all[i];
    if (!item || !item->IsKindOf(L"CommandDef")) continue;
    ++commands;
    if (targets.count(item) || commandsRun.count(CString(item->GetData()).MakeUpper().str())) continue;
    ++unreachedCount;
    unreached << "  " << file << ":" << lineOf(item) << ": " << U8(item->GetName()) << " (" << U8(item->GetData())
              << ")\n";
  }
  out << "commands: " << commands << ", " << unreachedCount << " not reached by any menu, tool box, hot key or "
      << "short command\n"
      << unreached.str();
  if (problems) {
    err << "tolv ui: " << file << ": " << problems << " reference(s) do not bind\n";
    return 1;
  }
  return 0;
}

}  // namespace tolv::sibling::ui
