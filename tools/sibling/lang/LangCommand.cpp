#include "lang/LangCommand.h"

#include <filesystem>
#include <map>

#include "TolvDataBase.h"
#include "lang/LangFill.h"
#include "platform/windows/PathMap.h"
#include "platform/windows/TextCodec.h"

namespace tolv::lang {

namespace {

constexpr const char *kUsage =
    "usage: tolv lang export --modules LIST --sources DIR --out FILE [--merge OLD]\n"
    "       tolv lang fill PACKAGE --modules LIST --language HEX --out FILE\n"
    "       tolv lang stats FILE\n"
    "       tolv lang show MODULE (--dialog ID | --menu ID | --strings) [--language HEX]\n"
    "\n"
    "export  reads the modules named in LIST (the host's load list, one file per line;\n"
    "        bare names lie beside LIST) and the Chinese literals of the .cpp files under\n"
    "        DIR's \"Tolv\" folders, and writes the package to FILE; with --merge the\n"
    "        translations of OLD are kept and FILE is OLD brought up to date.\n"
    "fill    takes the local names of PACKAGE from the resources of another language\n"
    "        (e.g. 0x0409) that the modules of LIST carry beside the exported ones.\n"
    "stats   per module and section: entries, how many are translated (the local name\n"
    "        differs from the source text; for dialog captions and string resources,\n"
    "        which are keyed by id, a local name without Chinese counts as translated)\n"
    "        and how many are not.\n"
    "show    a dialog, a menu or the string table of a Windows module, in the language\n"
    "        given (default 0x0804, Chinese; else neutral, English, or the first there).\n";

std::string Utf8(const CString &text) { return tolv::ToUtf8(text.view()); }

// Control characters shown as escapes, so that one entry stays one line.
std::string Shown(const std::wstring &text) {
  std::string out;
  for (wchar_t c : text) {
    if (c == L'\n') out += "\\n";
    else if (c == L'\r') out += "\\r";
    else if (c == L'\t') out += "\\t";
    else out += tolv::ToUtf8(std::wstring_view(&c, 1));
  }
  return out;
}

bool HasChinese(const CString &text) {
  for (wchar_t c : text.view())
    if (c >= 0x4E00 && c <= 0x9FA5) return true;
  return false;
}

bool Option(const std::vector<std::string> &args, std::size_t &i, const char *name, std::string &value) {
  if (args[i] != name) return false;
  if (i + 1 >= args.size()) return false;
  value = args[++i];
  return true;
}

// ---- export ----

int Export(const std::vector<std::string> &args, std::ostream &out, std::ostream &err) {
  std::string modules, sources, output, merge;
  for (std::size_t i = 1; i < args.size(); ++i) {
    if (Option(args, i, "--modules", modules) || Option(args, i, "--sources", sources) ||
        Option(args, i, "--out", output) || Option(args, i, "--merge", merge))
      continue;
    err << "tolv lang export: unknown or incomplete option " << args[i] << "\n" << kUsage;
    return 2;
  }
  if (modules.empty() || sources.empty() || output.empty()) {
    err << "tolv lang export: --modules, --sources and --out are needed\n" << kUsage;
    return 2;
  }
  const CString listPath = tolv::ToSystemPath(modules).c_str();
  CStringArray files;
  bool opened = false;
  tolv::ReadModuleList(listPath, files, opened);
  if (!opened) {
    err << "tolv lang export: " << modules << ": cannot be read\n";
    return 2;
  }
  if (!std::filesystem::is_directory(sources)) {
    err << "tolv lang export: " << sources << ": is not a folder\n";
    return 2;
  }
  KyDtDictionary old;
  if (!merge.empty() && !old.ReadFromXML(tolv::ToSystemPath(merge).c_str())) {
    err << "tolv lang export: " << merge << ": not a language package (unreadable, or not a dictionary)\n";
    return 2;
  }
  KyDtDictionary package(L"TOLV_LANGUAUE_PACKAGE", L"SenvarCAD Arch Language Package-English");
  LanguageToolContext context;
  context.package = &package;
  context.moduleListPath = listPath;
  context.sourceRoot = tolv::ToSystemPath(sources).c_str();
  context.packagePath = tolv::ToSystemPath(output).c_str();
  const int slash = listPath.ReverseFind(L'\\');
  for (int i = 0; i < files.GetSize(); ++i) {
    CString path = files[i];
    if (path.Find(L'\\') < 0 && path.Find(L':') < 0) path = listPath.Left(slash + 1) + path;
    HMODULE probe = LoadLibraryW(path);
    out << (probe ? "module " : "module (not loaded) ") << Utf8(path) << "\n";
    if (probe) FreeLibrary(probe);
    ExportModule(context, path);
  }
  ExportCodeStrings(context, context.sourceRoot);
  KyDtDictionary *result = &package;
  if (!merge.empty()) {
    MergePackages(context, &package, &old);
    result = &old;
  }
  if (!result->SaveToXML(context.packagePath) || !std::filesystem::exists(output)) {
    err << "tolv lang export: " << output << ": cannot be written\n";
    return 2;
  }
  out << "wrote " << output << ": " << result->GetLength() << " modules\n";
  return 0;
}

// ---- fill ----

int Fill(const std::vector<std::string> &args, std::ostream &out, std::ostream &err) {
  std::string package, modules, language, output;
  for (std::size_t i = 1; i < args.size(); ++i) {
    if (Option(args, i, "--modules", modules) || Option(args, i, "--language", language) ||
        Option(args, i, "--out", output))
      continue;
    if (package.empty() && args[i].rfind("--", 0) != 0) {
      package = args[i];
      continue;
    }
    err << "tolv lang fill: unknown or incomplete option " << args[i] << "\n" << kUsage;
    return 2;
  }
  char *end = nullptr;
  const unsigned long lang = std::strtoul(language.c_str(), &end, 0);
  if (package.empty() || modules.empty() || output.empty() || language.empty() || *end || lang == 0 || lang > 0xFFFF) {
    err << "tolv lang fill: a package, --modules, --language (e.g. 0x0409) and --out are needed\n" << kUsage;
    return 2;
  }
  KyDtDictionary dict;
  if (!std::filesystem::is_regular_file(package) || !dict.ReadFromXML(tolv::ToSystemPath(package).c_str())) {
    err << "tolv lang fill: " << package << ": not a language package (unreadable, or not a dictionary)\n";
    return 2;
  }
  const CString listPath = tolv::ToSystemPath(modules).c_str();
  CStringArray files;
  bool opened = false;
  tolv::ReadModuleList(listPath, files, opened);
  if (!opened) {
    err << "tolv lang fill: " << modules << ": cannot be read\n";
    return 2;
  }
  const int slash = listPath.ReverseFind(L'\\');
  for (int i = 0; i < files.GetSize(); ++i) {
    CString path = files[i];
    if (path.Find(L'\\') < 0 && path.Find(L':') < 0) path = listPath.Left(slash + 1) + path;
    const FillCount count = FillFromResources(dict, path.str(), static_cast<unsigned short>(lang));
    out << Utf8(path) << ": " << count.dialogs << " dialogs, " << count.controls << " controls, " << count.menuItems
        << " menu entries, " << count.strings << " strings\n";
  }
  if (!dict.SaveToXML(tolv::ToSystemPath(output).c_str()) || !std::filesystem::exists(output)) {
    err << "tolv lang fill: " << output << ": cannot be written\n";
    return 2;
  }
  out << "wrote " << output << "\n";
  return 0;
}

// ---- stats ----

struct Count {
  int entries = 0, translated = 0;
};

// Entries below a section: text-keyed entries are translated when the
// local name differs from the source text, id-keyed ones when it holds no
// Chinese.
void CountEntries(KyDtDictionary *dict, bool hashKeys, bool idKeyed, Count &count) {
  for (KyDtDictItem *const *slot = dict->GetFirst(); slot; slot = dict->GetNext(slot)) {
    KyDtDictItem *item = *slot;
    if (!item) continue;
    const CString type = item->GetAttributeValue(L"element_type");
    const bool container = item->IsDict() && (type == L"MENU" || type == L"TOOLBAR");
    if (!container) {
      ++count.entries;
      bool translated;
      if (idKeyed || type == L"DIALOG") {
        translated = !item->m_strLocalName.IsEmpty() && !HasChinese(item->m_strLocalName);
      } else {
        CString source = item->m_strName;
        if (hashKeys) source.Replace(L'#', L'\\');
        translated = item->m_strLocalName != source;
      }
      if (translated) ++count.translated;
    }
    if (item->IsDict()) CountEntries(static_cast<KyDtDictionary *>(item), hashKeys, false, count);
  }
}

int Stats(const std::vector<std::string> &args, std::ostream &out, std::ostream &err) {
  if (args.size() != 2) {
    err << "tolv lang stats: one package file is needed\n" << kUsage;
    return 2;
  }
  const std::string &file = args[1];
  if (!std::filesystem::is_regular_file(file)) {
    err << "tolv lang stats: " << file << ": cannot be read\n";
    return 2;
  }
  KyDtDictionary package;
  if (!package.ReadFromXML(tolv::ToSystemPath(file).c_str())) {
    err << "tolv lang stats: " << file << ": not a language package (malformed XML or no TolvDictionary root)\n";
    return 2;
  }
  Count total;
  out << file << ": \"" << Utf8(package.m_strLocalName) << "\", " << package.GetLength() << " modules\n";
  for (KyDtDictItem *const *m = package.GetFirst(); m; m = package.GetNext(m)) {
    if (!*m || !(*m)->IsDict()) continue;
    auto *module = static_cast<KyDtDictionary *>(*m);
    for (KyDtDictItem *const *s = module->GetFirst(); s; s = module->GetNext(s)) {
      if (!*s || !(*s)->IsDict()) continue;
      const CString section = (*s)->m_strName;
      Count count;
      CountEntries(static_cast<KyDtDictionary *>(*s), section == L"MENU" || section == L"CODESTRING",
                   section == L"STRING", count);
      if (count.entries == 0) continue;
      out << "  " << Utf8(module->m_strName) << "/" << Utf8(section) << ": " << count.entries << " entries, "
          << count.translated << " translated, " << count.entries - count.translated << " untranslated\n";
      total.entries += count.entries;
      total.translated += count.translated;
    }
  }
  out << total.translated << " translated messages, " << total.entries - total.translated
      << " untranslated messages.\n";
  return 0;
}

// ---- show ----

std::string_view ResourceData(HMODULE module, LPCWSTR type, unsigned id, WORD language, bool &found) {
  HRSRC r = FindResourceExW(module, type, MAKEINTRESOURCEW(id), language);
  if (!r) r = FindResourceExW(module, type, MAKEINTRESOURCEW(id), 0);
  if (!r) r = FindResourceExW(module, type, MAKEINTRESOURCEW(id), 0x0409);
  if (!r) r = FindResourceW(module, MAKEINTRESOURCEW(id), type);
  found = r != nullptr;
  if (!r) return {};
  return std::string_view(static_cast<const char *>(LockResource(LoadResource(module, r))), SizeofResource(module, r));
}

void ShowMenu(const std::vector<tolv::MenuItemTemplate> &items, int depth, std::ostream &out) {
  for (const auto &item : items) {
    out << std::string(static_cast<std::size_t>(depth) * 2 + 2, ' ');
    if (item.popup) {
      out << "POPUP \"" << Shown(item.text) << "\"\n";
      ShowMenu(item.items, depth + 1, out);
    } else if (item.id == 0 && item.text.empty()) {
      out << "SEPARATOR\n";
    } else {
      out << "ITEM " << item.id << " \"" << Shown(item.text) << "\"\n";
    }
  }
}

int Show(const std::vector<std::string> &args, std::ostream &out, std::ostream &err) {
  std::string file, dialog, menu, language = "0x0804";
  bool strings = false;
  for (std::size_t i = 1; i < args.size(); ++i) {
    if (Option(args, i, "--dialog", dialog) || Option(args, i, "--menu", menu) ||
        Option(args, i, "--language", language))
      continue;
    if (args[i] == "--strings") {
      strings = true;
    } else if (file.empty() && args[i].rfind("--", 0) != 0) {
      file = args[i];
    } else {
      err << "tolv lang show: unknown or incomplete option " << args[i] << "\n" << kUsage;
      return 2;
    }
  }
  if (file.empty() || (dialog.empty() + menu.empty() + !strings) != 2) {
    err << "tolv lang show: a module and one of --dialog, --menu, --strings are needed\n" << kUsage;
    return 2;
  }
  char *end = nullptr;
  const unsigned long lang = std::strtoul(language.c_str(), &end, 0);
  const unsigned long id = std::strtoul((dialog.empty() ? menu : dialog).c_str(), nullptr, 0);
  if (*end || lang > 0xFFFF) {
    err << "tolv lang show: " << language << ": not a language number (e.g. 0x0409)\n";
    return 2;
  }
  tolv::PeImage image;
  std::string why;
  if (!image.Load(file, why)) {
    err << "tolv lang show: " << file << ": " << why << "\n";
    return 2;
  }
  HMODULE module = LoadLibraryW(tolv::ToSystemPath(file).c_str());
  if (!module) {
    err << "tolv lang show: " << file << ": cannot be loaded\n";
    return 2;
  }
  int status = 0;
  bool found = false;
  const WORD wanted = static_cast<WORD>(lang);
  if (!dialog.empty()) {
    std::string_view bytes = ResourceData(module, RT_DIALOG, static_cast<unsigned>(id), wanted, found);
    tolv::DialogTemplate d;
    if (!found) {
      err << "tolv lang show: " << file << ": no dialog " << dialog << "\n";
      status = 1;
    } else if (!tolv::ParseDialogTemplate(bytes, d)) {
      err << "tolv lang show: " << file << ": dialog " << dialog << " is damaged\n";
      status = 1;
    } else {
      out << "DIALOG " << id << (d.extended ? " (extended)" : "") << " \"" << Shown(d.title) << "\", "
          << d.items.size() << " controls\n";
      for (const auto &item : d.items) {
        const std::wstring title = !item.title.IsId() ? item.title.text
                                   : item.title.id ? L"#" + std::to_wstring(item.title.id)
                                                   : std::wstring();
        out << "  " << tolv::ToUtf8(item.ClassName()) << " " << item.id << " \"" << Shown(title) << "\"\n";
      }
    }
  } else if (!menu.empty()) {
    std::string_view bytes = ResourceData(module, RT_MENU, static_cast<unsigned>(id), wanted, found);
    tolv::MenuTemplate m;
    if (!found) {
      err << "tolv lang show: " << file << ": no menu " << menu << "\n";
      status = 1;
    } else if (!tolv::ParseMenuTemplate(bytes, m)) {
      err << "tolv lang show: " << file << ": menu " << menu << " is damaged\n";
      status = 1;
    } else {
      out << "MENU " << id << (m.extended ? " (extended)" : "") << "\n";
      ShowMenu(m.items, 0, out);
    }
  } else {
    int shown = 0;
    for (const tolv::PeResource &r : image.Resources()) {
      if (!r.type.IsId() || r.type.id != 6 || !r.name.IsId() || r.language != wanted) continue;
      std::array<std::wstring, 16> block;
      if (!tolv::ParseStringBlock(image.Data(r), block)) {
        err << "tolv lang show: " << file << ": string block " << r.name.id << " is damaged\n";
        status = 1;
        continue;
      }
      for (unsigned n = 0; n < 16; ++n) {
        if (block[n].empty()) continue;
        out << (r.name.id - 1) * 16 + n << " \"" << Shown(block[n]) << "\"\n";
        ++shown;
      }
    }
    if (shown == 0 && status == 0) {
      err << "tolv lang show: " << file << ": no strings in language " << language << "\n";
      status = 1;
    }
  }
  FreeLibrary(module);
  return status;
}

}  // namespace

int Run(const std::vector<std::string> &args, std::ostream &out, std::ostream &err) {
  if (args.empty()) {
    err << kUsage;
    return 2;
  }
  if (args[0] == "--help" || args[0] == "-h") {
    out << kUsage;
    return 0;
  }
  for (const auto &arg : args) {
    if (arg == "--help") {
      out << kUsage;
      return 0;
    }
  }
  if (args[0] == "export") return Export(args, out, err);
  if (args[0] == "stats") return Stats(args, out, err);
  if (args[0] == "fill") return Fill(args, out, err);
  if (args[0] == "show") return Show(args, out, err);
  err << "tolv lang: unknown action " << args[0] << "\n" << kUsage;
  return 2;
}

}  // namespace tolv::lang
