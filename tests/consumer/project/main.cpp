// A sibling module of the add-on, built outside the tree against the
// installed package, reaching the data layer through its public interface.
#include <TolvDataBase.h>

#include <unistd.h>

#include <cstdio>
#include <string>

namespace {

int Fail(const char *what) {
  std::printf("sibling module: %s\n", what);
  return 1;
}

}  // namespace

int main() {
  CString text(L"Tolv");
  text += L" sibling";
  if (text.GetLength() != 12 || text.Find(L"sib") != 5) return Fail("CString misbehaves");

  // A sibling reads and writes the settings through the exported dictionary.
  KyDtDictionary *entity = g_dictCfg.FindOrAddDict(L"ADVANCE\\SYSTEM\\ENTITY");
  if (!entity || !entity->SetValue(L"AUTO_BREAK", true)) return Fail("cannot write into g_dictCfg");
  bool autoBreak = false;
  if (!g_dictCfg.GetValue(L"ADVANCE\\SYSTEM\\ENTITY\\AUTO_BREAK", autoBreak) || !autoBreak)
    return Fail("cannot read g_dictCfg back");

  // And keeps its own data in the XML form.
  const std::string file = "/tmp/tolv_sibling_" + std::to_string(::getpid()) + ".xml";
  const std::wstring wideFile(file.begin(), file.end());
  KyDtDictionary own;
  own.SetValue(L"LAST\\COUNT", 3);
  own.SetValue(L"LAST\\NAME", CString(L"wall"));
  if (!own.SaveToXML(wideFile.c_str())) return Fail("cannot save a dictionary");
  KyDtDictionary back;
  int count = 0;
  CString name;
  const bool read = back.ReadFromXML(wideFile.c_str()) && back.GetValue(L"LAST\\COUNT", count) &&
                    back.GetValue(L"LAST\\NAME", name);
  std::remove(file.c_str());
  if (!read || count != 3 || name != L"wall") return Fail("the XML form doesn't come back");

  // The project database through its proxies, as the floor commands use it.
  KyDtProjectDb projectDb;
  KyDtProjectRegion *region = projectDb.BindDict() ? projectDb.Models().AddRegion(L"0") : nullptr;
  KyDtPrjFloor *floor = region ? region->AddFloor(L"1F") : nullptr;
  const bool floorOk = floor && floor->GetHeight() == 3000.0;
  delete floor;
  delete region;
  if (!floorOk || !g_curProject.IsEmptyProject()) return Fail("the project database misbehaves");

  std::printf("sibling module linked against the installed package: api %d, dictionary in use\n",
              acrxGetApiVersion());
  return 0;
}
