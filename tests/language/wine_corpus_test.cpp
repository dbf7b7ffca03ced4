// The PE reader and the language tools on Debian's wine modules: our reading
// against python3-pefile, and the export and translation round trip from
// the Chinese resources to the English ones.
#include <cstdio>
#include <iostream>
#include <map>
#include <set>
#include <sstream>

#include "LanguageFixture.h"
#include "WineCorpus.h"

namespace {

std::string Hex(const std::wstring &text) {
  std::string out;
  char buffer[8];
  for (wchar_t c : text) {
    std::snprintf(buffer, sizeof buffer, "%02x%02x", static_cast<unsigned>(c & 0xFF), static_cast<unsigned>((c >> 8) & 0xFF));
    out += buffer;
  }
  return out;
}

std::string Label(const tolv::ResName &name) { return name.IsId() ? std::to_string(name.id) : "$" + Hex(name.text); }

std::wstring DialogSummary(const tolv::DialogTemplate &d) {
  std::wstring s = std::wstring(d.extended ? L"EX" : L"STD") + L"\x01" + d.title + L"\x01" + std::to_wstring(d.items.size());
  for (const auto &item : d.items) {
    std::wstring cls = !item.windowClass.IsId() ? item.windowClass.text
                       : item.windowClass.id == 0 ? L""
                                                  : item.ClassName();
    std::wstring title = !item.title.IsId() ? item.title.text : item.title.id == 0 ? L"" : L"#" + std::to_wstring(item.title.id);
    wchar_t style[16];
    std::swprintf(style, 16, L"%x", item.style);
    s += L"\x01" + cls + L"/" + title + L"/" + std::to_wstring(item.id) + L"/" + style;
  }
  return s;
}

void MenuSummary(const std::vector<tolv::MenuItemTemplate> &items, int depth, std::wstring &s) {
  for (const auto &item : items) {
    s += L"\x01" + std::to_wstring(depth) + (item.popup ? L"/P/" : L"/I/") + std::to_wstring(item.id) + L"/" + item.text;
    if (item.popup) MenuSummary(item.items, depth + 1, s);
  }
}

std::vector<std::string> OurLines(const std::string &dir, const std::string &name) {
  std::vector<std::string> lines;
  tolv::PeImage image;
  std::string error;
  if (!image.Load(dir + "/" + name, error)) return {"failed: " + error};
  for (const tolv::PeResource &r : image.Resources()) {
    const std::string where = name + "|" + Label(r.type) + "|" + Label(r.name) + "|" + std::to_string(r.language);
    lines.push_back("R|" + where + "|" + std::to_string(r.size));
    if (!r.type.IsId() || (r.type.id != 4 && r.type.id != 5 && r.type.id != 6)) continue;
    const std::string data(image.Data(r));
    std::wstring summary;
    bool ok = false;
    std::string kind;
    if (r.type.id == 5) {
      tolv::DialogTemplate d;
      ok = tolv::ParseDialogTemplate(data, d);
      summary = DialogSummary(d);
      kind = "D";
    } else if (r.type.id == 4) {
      tolv::MenuTemplate m;
      ok = tolv::ParseMenuTemplate(data, m);
      summary = m.extended ? L"EX" : L"STD";
      MenuSummary(m.items, 0, summary);
      kind = "M";
    } else {
      std::array<std::wstring, 16> strings;
      ok = tolv::ParseStringBlock(data, strings);
      for (int i = 0; i < 16; ++i) summary += (i ? L"\x01" : L"") + strings[static_cast<std::size_t>(i)];
      kind = "S";
    }
    if (!ok) {
      lines.push_back("X|" + where);
    } else {
      lines.push_back(kind + "|" + name + "|" + Label(r.name) + "|" + std::to_string(r.language) + "|" + Hex(summary));
    }
  }
  return lines;
}

std::map<std::string, std::vector<std::string>> PefileLines(const std::string &dir, const std::vector<std::string> &names) {
  std::string command = "/usr/bin/python3 '" TOLV_SOURCE_DIR "/tests/language/wine_resources.py'";
  for (const auto &name : names) command += " '" + dir + "/" + name + "'";
  std::map<std::string, std::vector<std::string>> byModule;
  FILE *pipe = ::popen(command.c_str(), "r");
  if (!pipe) return byModule;
  std::string line;
  char chunk[4096];
  while (std::fgets(chunk, sizeof chunk, pipe)) {
    line += chunk;
    if (line.empty() || line.back() != '\n') continue;
    line.pop_back();
    std::string module = line.substr(2, line.find('|', 2) - 2);
    byModule[module].push_back(line);
    line.clear();
  }
  ::pclose(pipe);
  return byModule;
}

bool HavePefile() { return std::system("/usr/bin/python3 -c 'import pefile' > /dev/null 2>&1") == 0; }

}  // namespace

class WineCorpusTest : public langtest::LanguageTest {
 protected:
  void SetUp() override {
    std::string why;
    wineDir_ = langtest::WineModuleDir(why);
    if (wineDir_.empty()) GTEST_SKIP() << why;
  }
  std::string wineDir_;
};

TEST_F(WineCorpusTest, ResourcesAndTemplatesReadAsPefileAndAnIndependentParserReadThem) {
  if (!HavePefile()) GTEST_SKIP() << "python3-pefile is not installed (apt-get install python3-pefile)";
  std::vector<std::string> names;
  for (const auto &name : langtest::WineModules(wineDir_)) {
    if (name.size() > 4 && name.compare(name.size() - 4, 4, ".exe") == 0) names.push_back(name);
  }
  for (const auto &name : langtest::kBilingualModules) {
    if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
  }
  const auto expected = PefileLines(wineDir_, names);
  int modules = 0, resources = 0, templates = 0;
  for (const auto &name : names) {
    const auto found = expected.find(name);
    const std::vector<std::string> ours = OurLines(wineDir_, name);
    if (found == expected.end()) {
      // pefile saw no resources: neither may we.
      for (const auto &line : ours) EXPECT_NE(line[0], 'R') << name;
      continue;
    }
    ++modules;
    ASSERT_EQ(ours.size(), found->second.size()) << name;
    for (std::size_t i = 0; i < ours.size(); ++i) {
      EXPECT_EQ(ours[i], found->second[i]) << name << " line " << i;
      if (ours[i][0] == 'R') ++resources;
      else ++templates;
    }
  }
  std::cout << "[ wine     ] compared with pefile: " << modules << " modules, " << resources << " resources, "
            << templates << " dialogs, menus and string blocks\n";
  EXPECT_GE(modules, 50);
}

namespace {

// What a round trip counted.
struct RoundTripCount {
  int dialogs = 0, controls = 0, menus = 0, menuItems = 0, strings = 0;
  int unpaired = 0, differentTemplates = 0, ambiguous = 0, backslash = 0;
};

tolv::DialogTemplate DialogIn(HMODULE module, unsigned id, WORD language, bool &found) {
  tolv::DialogTemplate d;
  HRSRC r = FindResourceExW(module, RT_DIALOG, MAKEINTRESOURCEW(id), language);
  found = r && tolv::ParseDialogTemplate(
                   std::string_view(static_cast<const char *>(LockResource(LoadResource(module, r))), SizeofResource(module, r)), d);
  return d;
}

tolv::MenuTemplate MenuIn(HMODULE module, unsigned id, WORD language, bool &found) {
  tolv::MenuTemplate m;
  HRSRC r = FindResourceExW(module, RT_MENU, MAKEINTRESOURCEW(id), language);
  found = r && tolv::ParseMenuTemplate(
                   std::string_view(static_cast<const char *>(LockResource(LoadResource(module, r))), SizeofResource(module, r)), m);
  return m;
}

bool SameControls(const tolv::DialogTemplate &a, const tolv::DialogTemplate &b) {
  if (a.items.size() != b.items.size()) return false;
  for (std::size_t i = 0; i < a.items.size(); ++i) {
    if (a.items[i].ClassName() != b.items[i].ClassName() || a.items[i].id != b.items[i].id) return false;
  }
  return true;
}

bool SameShape(const std::vector<tolv::MenuItemTemplate> &a, const std::vector<tolv::MenuItemTemplate> &b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i].popup != b[i].popup || (a[i].popup && !SameShape(a[i].items, b[i].items))) return false;
  }
  return true;
}

bool Translatable(const tolv::DialogItemTemplate &item) {
  const std::wstring cls = item.ClassName();
  return !item.title.IsId() && !item.title.text.empty() && _wcsicmp(cls.c_str(), L"Edit") != 0 &&
         _wcsicmp(cls.c_str(), L"ComboBox") != 0 && _wcsicmp(cls.c_str(), L"ListBox") != 0;
}

// Fills the local names of a menu's entries from the English menu of the
// same shape; entries that two English texts would share are marked.
void FillMenu(KyDtDictionary *table, const std::vector<tolv::MenuItemTemplate> &zh,
              const std::vector<tolv::MenuItemTemplate> &en, std::set<KyDtDictItem *> &filled,
              std::set<KyDtDictItem *> &ambiguous) {
  for (std::size_t i = 0; i < zh.size(); ++i) {
    CString name(zh[i].text.c_str());
    name.Replace(L'\\', L'#');
    KyDtDictItem *entry = table ? table->FindItem(name) : nullptr;
    if (!entry || zh[i].text.empty()) continue;
    if (filled.count(entry) && entry->m_strLocalName != CString(en[i].text.c_str())) ambiguous.insert(entry);
    entry->m_strLocalName = en[i].text.c_str();
    filled.insert(entry);
    if (zh[i].popup) FillMenu(entry->IsDict() ? static_cast<KyDtDictionary *>(entry) : nullptr, zh[i].items, en[i].items, filled, ambiguous);
  }
}

void CompareMenu(HMENU menu, KyDtDictionary *table, const std::vector<tolv::MenuItemTemplate> &zh,
                 const std::vector<tolv::MenuItemTemplate> &en, const std::set<KyDtDictItem *> &ambiguous,
                 const std::string &where, RoundTripCount &count) {
  ASSERT_EQ(GetMenuItemCount(menu), static_cast<int>(en.size())) << where;
  for (std::size_t i = 0; i < en.size(); ++i) {
    CString name(zh[i].text.c_str());
    name.Replace(L'\\', L'#');
    KyDtDictItem *entry = table ? table->FindItem(name) : nullptr;
    if (zh[i].text.empty() || !entry) continue;
    if (ambiguous.count(entry)) {
      ++count.ambiguous;
      continue;
    }
    CString text;
    CMenu::FromHandle(menu)->GetMenuString(static_cast<UINT>(i), text, MF_BYPOSITION);
    EXPECT_EQ(text.str(), en[i].text) << where << " item " << i;
    ++count.menuItems;
    if (zh[i].popup)
      CompareMenu(GetSubMenu(menu, static_cast<int>(i)), entry->IsDict() ? static_cast<KyDtDictionary *>(entry) : nullptr,
                  zh[i].items, en[i].items, ambiguous, where, count);
  }
}

}  // namespace

TEST_F(WineCorpusTest, ChineseDialogsAndMenusTranslateToTheirEnglishResources) {
  KyDtDictionary package;
  LanguageToolContext context;
  context.package = &package;
  package.m_strName = L"TOLV_LANGUAUE_PACKAGE";
  const std::wstring systemDir = tolv::ToSystemPath(wineDir_);
  std::set<KyDtDictItem *> ambiguous;
  // Export from the Chinese resources, then fill the local names from the
  // English resources of the same ids.
  for (const auto &name : langtest::kBilingualModules) {
    const CString path = (systemDir + L"\\" + tolv::FromUtf8(name)).c_str();
    ExportModule(context, path);
    const CString key = LanguageModuleKey(path);
    HMODULE module = LoadLibraryW(path);
    ASSERT_NE(module, nullptr) << name;
    if (KyDtDictionary *dialogs = package.FindDict(key + L"\\DIALOG")) {
      for (KyDtDictItem *const *slot = dialogs->GetFirst(); slot; slot = dialogs->GetNext(slot)) {
        auto *table = static_cast<KyDtDictionary *>(*slot);
        bool zhFound = false, enFound = false;
        const unsigned id = static_cast<unsigned>(_wtoi(table->m_strName));
        auto zh = DialogIn(module, id, 0x0804, zhFound);
        auto en = DialogIn(module, id, 0x0409, enFound);
        if (!zhFound || !enFound) continue;
        table->m_strLocalName = en.title.c_str();
        std::set<KyDtDictItem *> filled;
        for (std::size_t i = 0; i < zh.items.size(); ++i) {
          const tolv::DialogItemTemplate *pair = nullptr;
          if (SameControls(zh, en)) pair = &en.items[i];
          else for (const auto &e : en.items) if (e.id == zh.items[i].id && e.id != 0xFFFF && e.id != 0xFFFFFFFF) pair = &e;
          if (!pair || !Translatable(zh.items[i]) || pair->title.IsId()) continue;
          KyDtDictItem *entry = table->FindItem(zh.items[i].title.text.c_str());
          if (!entry) continue;
          if (filled.count(entry) && entry->m_strLocalName != CString(pair->title.text.c_str())) ambiguous.insert(entry);
          entry->m_strLocalName = pair->title.text.c_str();
          filled.insert(entry);
        }
      }
    }
    if (KyDtDictionary *menus = package.FindDict(key + L"\\MENU")) {
      for (KyDtDictItem *const *slot = menus->GetFirst(); slot; slot = menus->GetNext(slot)) {
        bool zhFound = false, enFound = false;
        const unsigned id = static_cast<unsigned>(_wtoi((*slot)->m_strName));
        auto zh = MenuIn(module, id, 0x0804, zhFound);
        auto en = MenuIn(module, id, 0x0409, enFound);
        if (!zhFound || !enFound || !SameShape(zh.items, en.items)) continue;
        std::set<KyDtDictItem *> filled;
        FillMenu(static_cast<KyDtDictionary *>(*slot), zh.items, en.items, filled, ambiguous);
      }
    }
    if (KyDtDictionary *strings = package.FindDict(key + L"\\STRING")) {
      tolv::SetResourceLanguage(0x0409);
      for (KyDtDictItem *const *slot = strings->GetFirst(); slot; slot = strings->GetNext(slot)) {
        wchar_t text[4096];
        if (LoadStringW(module, static_cast<UINT>(_wtoi((*slot)->m_strName)), text, 4096) > 0) {
          CString english(text);
          english.Remove(L'\n');
          (*slot)->m_strLocalName = english;
        }
      }
      tolv::SetResourceLanguage(0);
    }
    FreeLibrary(module);
  }
  ASSERT_TRUE(package.SaveToXML((tolv::ToSystemPath(dir_.str()) + L"\\TolvLanguage.xml").c_str()));

  langtest::WriteText(dir_.path() / "Set.ini", L"[system]\nlanguage=Eng\n");
  InitLanguage();
  ASSERT_NE(g_pTolvLangSwitch, nullptr);

  RoundTripCount count;
  for (const auto &name : langtest::kBilingualModules) {
    const CString path = (systemDir + L"\\" + tolv::FromUtf8(name)).c_str();
    HMODULE module = LoadLibraryW(path);
    ASSERT_NE(module, nullptr);
    KyDtDictionary *own = nullptr;
    KyUtPushResource current(module, own);
    ASSERT_NE(own, nullptr) << name;
    KyDtDictionary *dialogs = own->FindDict(L"DIALOG");
    for (KyDtDictItem *const *slot = dialogs->GetFirst(); slot; slot = dialogs->GetNext(slot)) {
      const unsigned id = static_cast<unsigned>(_wtoi((*slot)->m_strName));
      bool zhFound = false, enFound = false;
      auto zh = DialogIn(module, id, 0x0804, zhFound);
      auto en = DialogIn(module, id, 0x0409, enFound);
      if (!zhFound || !enFound) {
        ++count.unpaired;
        continue;
      }
      CDialog dialog;
      ASSERT_TRUE(dialog.Create(id)) << name << " dialog " << id;
      g_pTolvLangSwitch->TranslateDialog(&dialog);
      const std::string where = name + " dialog " + std::to_string(id);
      CString caption;
      dialog.GetWindowText(caption);
      EXPECT_EQ(caption.str(), en.title) << where;
      ++count.dialogs;
      if (!SameControls(zh, en)) {
        ++count.differentTemplates;
        dialog.DestroyWindow();
        continue;
      }
      // The children stand in template order.
      std::vector<HWND> children;
      EnumChildWindows(dialog.m_hWnd, [](HWND child, LPARAM p) -> BOOL {
        reinterpret_cast<std::vector<HWND> *>(p)->push_back(child);
        return TRUE;
      }, reinterpret_cast<LPARAM>(&children));
      ASSERT_EQ(children.size(), zh.items.size()) << where;
      KyDtDictionary *table = static_cast<KyDtDictionary *>(*slot);
      for (std::size_t i = 0; i < zh.items.size(); ++i) {
        if (!Translatable(zh.items[i]) || en.items[i].title.IsId()) continue;
        const std::wstring &source = zh.items[i].title.text;
        KyDtDictItem *entry = nullptr;
        for (KyDtDictItem *const *c = table->GetFirst(); c; c = table->GetNext(c))
          if ((*c)->m_strName == CString(source.c_str())) entry = *c;
        if (source.find(L'\\') != std::wstring::npos) {
          ++count.backslash;
          continue;
        }
        bool isAmbiguous = false;
        for (KyDtDictItem *const *c = table->GetFirst(); c && entry; c = table->GetNext(c)) {
          if (*c != entry) continue;
          // An entry two controls share with different English texts.
          for (std::size_t j = 0; j < zh.items.size(); ++j)
            if (j != i && zh.items[j].title.text == source && !en.items[j].title.IsId() && en.items[j].title.text != en.items[i].title.text)
              isAmbiguous = true;
        }
        if (isAmbiguous) {
          ++count.ambiguous;
          continue;
        }
        wchar_t text[1024];
        GetWindowTextW(children[i], text, 1024);
        EXPECT_EQ(std::wstring(text), en.items[i].title.text) << where << " control " << i;
        ++count.controls;
      }
      dialog.DestroyWindow();
    }
    if (KyDtDictionary *menus = own->FindDict(L"MENU")) {
      for (KyDtDictItem *const *slot = menus->GetFirst(); slot; slot = menus->GetNext(slot)) {
        const unsigned id = static_cast<unsigned>(_wtoi((*slot)->m_strName));
        bool zhFound = false, enFound = false;
        auto zh = MenuIn(module, id, 0x0804, zhFound);
        auto en = MenuIn(module, id, 0x0409, enFound);
        if (!zhFound || !enFound || !SameShape(zh.items, en.items)) {
          ++count.unpaired;
          continue;
        }
        CMenu menu;
        ASSERT_TRUE(menu.LoadMenu(id));
        g_pTolvLangSwitch->TranslateMenu(id, &menu);
        std::set<KyDtDictItem *> none;
        CompareMenu(menu.m_hMenu, static_cast<KyDtDictionary *>(*slot), zh.items, en.items, none,
                    name + " menu " + std::to_string(id), count);
        ++count.menus;
      }
    }
    if (KyDtDictionary *strings = own->FindDict(L"STRING")) {
      for (KyDtDictItem *const *slot = strings->GetFirst(); slot; slot = strings->GetNext(slot)) {
        EXPECT_EQ(g_pTolvLangSwitch->LoadLangString(static_cast<unsigned>(_wtoi((*slot)->m_strName))),
                  (*slot)->m_strLocalName);
        ++count.strings;
      }
    }
    FreeLibrary(module);
  }
  std::cout << "[ wine     ] translated " << count.dialogs << " dialogs (" << count.controls << " controls), "
            << count.menus << " menus (" << count.menuItems << " items), " << count.strings << " strings; "
            << "not compared: " << count.unpaired << " without both languages, " << count.differentTemplates
            << " dialogs whose templates differ, " << count.ambiguous << " texts shared by controls with different "
            << "English, " << count.backslash << " texts with a backslash\n";
  EXPECT_GT(count.dialogs, 50);
  EXPECT_GT(count.controls, 300);
  EXPECT_GT(count.menus, 5);
  EXPECT_EQ(tolv::LiveWindowCount(), 0);
}
