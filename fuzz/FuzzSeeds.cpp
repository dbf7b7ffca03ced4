#include "FuzzSeeds.h"

#include <unistd.h>

#include <cstdio>
#include <string>

#include "dictionary/KyDtDict.h"
#include "platform/windows/AtomicFile.h"
#include "platform/windows/TextCodec.h"

namespace {

// A small tree with every kind, attributes, a reference, a class-named
// dictionary and Chinese names.
void Fill(KyDtDictionary &root) {
  root.SetValue(CString(L"GENERAL\\AUTO"), true);
  root.SetValue(CString(L"GENERAL\\COUNT"), 42);
  root.SetValue(CString(L"GENERAL\\SCALE"), 0.125);
  root.SetValue(CString(L"GENERAL\\标题"), CString(L"楼层平面图"));
  KyDtDictItem *option = root.FindOrAddItem(CString(L"GENERAL\\MODE"), KyDtDictItem::DT_OPTION);
  if (auto *o = dynamic_cast<KyDtDictOptionItem *>(option)) {
    o->Append(CString(L"A"));
    o->Append(CString(L"B C"));
    o->m_nCurSel = 1;
  }
  KyDtDictItem *ch = root.FindOrAddItem(CString(L"GENERAL\\CHAR"), KyDtDictItem::DT_CHAR);
  if (auto *c = dynamic_cast<KyDtDictCharItem *>(ch)) c->m_value = 'x';
  KyDtDictionary *floor = root.FindOrAddDict(CString(L"PROJECT\\F1"));
  if (floor) {
    floor->SetClassName(L"Floor");
    floor->SetAttributeValue(L"height", L"3000");
  }
  root.SetRef(CString(L"PROJECT\\LINK"), CString(L"GENERAL\\COUNT"));
}

std::string TempPath(const char *ext) {
  char name[64];
  std::snprintf(name, sizeof name, "/tmp/tolv-fuzz-seed-%d%s", static_cast<int>(::getpid()), ext);
  return name;
}

std::string SaveWith(bool xml, int autoSort) {
  KyDtDictionary root;
  root.SetAutoSort(autoSort);
  Fill(root);
  std::string path = TempPath(xml ? ".xml" : ".dat");
  std::wstring wide = tolv::FromUtf8(path);
  ::unlink(path.c_str());
  bool ok = xml ? root.SaveToXML(wide.c_str()) : root.Save(wide.c_str());
  std::string bytes;
  if (ok) tolv::ReadWholeFile(path, bytes);
  ::unlink(path.c_str());
  return bytes;
}

}  // namespace

std::vector<std::string> ArchiveSeeds() { return {SaveWith(false, 0), SaveWith(false, 1)}; }

std::vector<std::string> XmlSeeds() {
  std::vector<std::string> seeds = {SaveWith(true, 0), SaveWith(true, 1)};
  seeds.push_back(
      "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<TolvDictionary autosort=\"FALSE\">"
      "<Option name=\"o\" options=\"A B;C D\">A B</Option><Char name=\"c\">x</Char>"
      "<Reference name=\"r\" hard=\"TRUE\">o</Reference><Floor name=\"f\"><Int>1</Int></Floor>"
      "</TolvDictionary>\n");
  return seeds;
}
