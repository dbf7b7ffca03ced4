#include "project/KyDtProject.h"

#include <cwctype>
#include <string>
#include <unordered_set>

#include "language/LangTranslate.h"
#include "platform/mfc/AfxMessage.h"
#include "platform/utility/KyUtXMLDOMFile.h"
#include "platform/windows/WinCrt.h"
#include "project/KyDtProjectDict.h"
#include "project/KyDtProjectFloor.h"
#include "project/ProjectPaths.h"

namespace {

constexpr const wchar_t *kRootName = L"TolvProject";
constexpr const wchar_t *kRepeatedMessage = L" 楼层号重复!";
constexpr const wchar_t *kGapMessage = L" 楼层号不连续!";

// Every character a decimal digit; the first may be a sign. The empty text
// passes.
bool IsIntegerText(const KyStringW &text) {
  for (int i = 0; i < text.GetLength(); ++i) {
    wchar_t ch = text[i];
    if (i == 0 && (ch == L'-' || ch == L'+')) continue;
    if (!std::iswdigit(static_cast<wint_t>(ch))) return false;
  }
  return true;
}

// The key under which _wcsicmp finds two names equal: each character
// folded, up to the first null character.
std::wstring NoCaseKey(const CString &name) {
  std::wstring key(name.GetString());
  for (wchar_t &ch : key) ch = tolv::FoldLower(ch);
  return key;
}

// Appends the full name of a drawing unless `files` has it already. The
// set mirrors `files`, so that each file costs one lookup instead of a
// comparison with every file before it.
class FileCollector {
 public:
  FileCollector(const KyDtProject &project, KyDList<CString> &files) : files_(files) {
    project.GetFilePath(folder_);
    for (const CString *p = files.GetFirst(); p; p = files.GetNext(p)) seen_.insert(NoCaseKey(*p));
  }
  void Add(const CString &name) {
    CString full = tolv::project::FullDrawingName(folder_, tolv::project::RelativeDrawingName(folder_, name));
    if (seen_.insert(NoCaseKey(full)).second) files_.Append(full);
  }

 private:
  CString folder_;
  KyDList<CString> &files_;
  std::unordered_set<std::wstring> seen_;
};

void ShowFloorMessage(bool showMessage, const wchar_t *text) {
  if (showMessage) AfxMessageBox(_TL(text), MB_ICONERROR, 0);
}

}  // namespace

bool ParseFloorNumber(KyStringW &text, KyStringW &first, KyStringW &last, bool &isRange) {
  first = KyStringW();
  last = KyStringW();
  isRange = false;
  text.Replace(L" ", L"", 0, -1);
  // Only whether there is a separator past the first character counts:
  // the separator itself is taken to stand at index 1.
  const int p = (text.Find(L",", 0, -1) > 0 || text.Find(L"~", 0, -1) > 0 || text.Find(L"-", 0, -1) > 0) ? 1 : 0;
  if (IsIntegerText(text)) return true;
  const int length = text.GetLength();
  if (p >= length - 1) return false;
  first = text.Mid(0, p - 1);
  last = text.Mid(p + 1, length - 1);
  if (!first.IsIntNumber() || !last.IsIntNumber()) return false;
  isRange = true;
  return true;
}

CString KyDtProject::GetTypeName() const { return kRootName; }

void KyDtProject::Reset() {
  m_strFileFullName.Empty();
  KyDtProjectDirectoryItem::Reset();
}

bool KyDtProject::Is(CString path) const { return _wcsicmp(path, m_strFileFullName) == 0; }

bool KyDtProject::GetProjectName(CString &name) const { return tolv::project::FileNameOf(m_strFileFullName, name); }

bool KyDtProject::GetFilePath(CString &path) const { return tolv::project::FolderOf(m_strFileFullName, path); }

bool KyDtProject::ReadFromXML(const wchar_t *path) {
  if (!path || !*path) return false;
  KyUtXMLDOMFile document;
  if (!document.Open(path)) return false;
  _auto_ptr<KyUtXMLDOMNode> root = document.GetRoot();
  if (!root || std::wcscmp(root->GetNodeName(), kRootName) != 0) return false;
  *this << root;
  m_strFileFullName = path;
  return true;
}

bool KyDtProject::SaveToXML(const wchar_t *path) {
  KyUtXMLDOMFile document;
  if (!path || !document.Open(path)) return false;
  _auto_ptr<KyUtXMLDOMNode> root = document.GetRoot();
  if (!root) return false;
  *this >> root;
  m_strFileFullName = path;
  return document.Save(nullptr);
}

KyDtProjectDirectoryItem *KyDtProject::GetFloorTable() {
  KyDtProjectItem *item = FindChildItem(L"FLOOR_TABLE");
  return item && item->IsKindOf(L"Directory") ? static_cast<KyDtProjectDirectoryItem *>(item) : nullptr;
}

void KyDtProject::GetFloorTable(KyDList<KyDtProjectFloor *> &floors) {
  KyDtProjectDirectoryItem *table = GetFloorTable();
  if (!table) return;
  table->MoveToFirst();
  while (!table->IsOut()) {
    KyDtProjectItem *item = table->GetCurData();
    if (item && item->IsKindOf(L"Floor")) floors.Append(static_cast<KyDtProjectFloor *>(item));
    table->MoveToNext();
  }
}

KyDtProjectDirectoryItem *KyDtProject::GetDwgSet() {
  KyDtProjectItem *item = FindChildItem(L"DWG_SET");
  return item && item->IsKindOf(L"Directory") ? static_cast<KyDtProjectDirectoryItem *>(item) : nullptr;
}

KyDtDictionary *KyDtProject::FindDict(const wchar_t *name) {
  KyDtProjectItem *item = FindChildItem(name);
  return item && item->IsKindOf(L"TolvDictionary") ? &static_cast<KyDtProjectDict *>(item)->m_dict : nullptr;
}

CString KyDtProject::GetDwgRelativeName(CString name) const {
  CString folder;
  GetFilePath(folder);
  return tolv::project::RelativeDrawingName(folder, name);
}

CString KyDtProject::GetDwgFullName(CString name) const {
  CString folder;
  GetFilePath(folder);
  return tolv::project::FullDrawingName(folder, name);
}

bool KyDtProject::GetFloorFiles(KyDList<CString> &files) {
  KyDtProjectDirectoryItem *table = GetFloorTable();
  if (!table) return false;
  FileCollector collector(*this, files);
  table->MoveToFirst();
  while (!table->IsOut()) {
    KyDtProjectItem *item = table->GetCurData();
    if (item && item->IsKindOf(L"Floor")) collector.Add(item->m_strName);
    table->MoveToNext();
  }
  return true;
}

bool KyDtProject::GetDwgSetFiles(KyDList<CString> &files) {
  KyDtProjectDirectoryItem *set = GetDwgSet();
  if (!set) return false;
  return GetDwgSetFiles(files, set);
}

bool KyDtProject::GetDwgSetFiles(KyDList<CString> &files, KyDtProjectDirectoryItem *directory) {
  if (!directory) return false;
  FileCollector collector(*this, files);
  // Depth first in list order, each directory walked by its own cursor; a
  // stack instead of recursion, for sets nested however deep.
  KyDynArray<KyDtProjectDirectoryItem *> stack;
  directory->MoveToFirst();
  stack.Append(directory);
  while (stack.GetLength() > 0) {
    KyDtProjectDirectoryItem *current = stack.GetAt(stack.GetLength() - 1);
    if (current->IsOut()) {
      stack.SetLength(stack.GetLength() - 1, true);
      continue;
    }
    KyDtProjectItem *item = current->GetCurData();
    current->MoveToNext();
    if (!item) continue;
    if (item->IsKindOf(L"Directory")) {
      auto *child = static_cast<KyDtProjectDirectoryItem *>(item);
      child->MoveToFirst();
      stack.Append(child);
    } else {
      collector.Add(item->m_strName);
    }
  }
  return true;
}

bool KyDtProject::IsConnectFloors(bool showMessage) {
  KyDList<KyDtProjectFloor *> floors;
  GetFloorTable(floors);
  KyDList<KyStringW> numbers;
  for (KyDtProjectFloor *const *p = floors.GetFirst(); p; p = floors.GetNext(p)) {
    if (!(*p)->m_strNumber.IsEmpty()) numbers.Append(KyStringW((*p)->m_strNumber));
  }

  int prev = -1000;
  KyStringW first, last;
  bool isRange = false;
  // An empty table gives an empty first number here, which reads as one
  // floor. An unreadable first number is let pass without a word.
  KyStringW &lowest = numbers[0];
  if (!ParseFloorNumber(lowest, first, last, isRange)) return true;
  prev = isRange ? _wtoi(last) : _wtoi(lowest);

  for (std::int32_t i = 1; i < numbers.GetLength(); ++i) {
    KyStringW &number = numbers[i];
    if (!ParseFloorNumber(number, first, last, isRange)) {
      // An unreadable number is reported as a repetition.
      ShowFloorMessage(showMessage, kRepeatedMessage);
      return false;
    }
    // In 64 bits, so that a floor number at the end of the int range can't
    // overflow the step.
    long long cur = 0;
    const long long next = static_cast<long long>(prev) + 1;
    if (!isRange) {
      cur = _wtoi(number);
      if (cur == next) {
        prev = static_cast<int>(cur);
        // No floor 0: floor -1 is followed by floor 1.
        if (cur == -1) prev = 0;
        continue;
      }
    } else {
      cur = _wtoi(first);
      if (cur == next) {
        // The step over 0 is for single floors only.
        prev = _wtoi(last);
        continue;
      }
    }
    ShowFloorMessage(showMessage, cur == prev ? kRepeatedMessage : kGapMessage);
    return false;
  }
  return true;
}
