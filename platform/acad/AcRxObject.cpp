#include "platform/acad/AcRxObject.h"

#include <map>
#include <mutex>

#include "platform/windows/WinCrt.h"

namespace {

struct ClassRegistry {
  std::mutex mutex;
  std::map<std::wstring, AcRxClass *> byName;
  std::map<std::wstring, AcRxClass *> byDxfName;  // upper-cased key
};

// Never destroyed: class records of other libraries may leave it at any
// time, also during the process's exit.
ClassRegistry &Registry() {
  static auto *registry = new ClassRegistry();
  return *registry;
}

std::wstring Upper(const std::wstring &text) {
  std::wstring out(text);
  for (wchar_t &c : out) c = tolv::FoldUpper(c);
  return out;
}

}  // namespace

AcRxClass::AcRxClass(const wchar_t *name, AcRxClass *parent, Constructor constructor, const wchar_t *dxfName,
                     const wchar_t *appName, int proxyFlags)
    : name_(name ? name : L""),
      parent_(parent),
      constructor_(constructor),
      dxfName_(dxfName ? dxfName : L""),
      appName_(appName ? appName : L""),
      proxyFlags_(proxyFlags) {
  ClassRegistry &reg = Registry();
  std::lock_guard<std::mutex> lock(reg.mutex);
  reg.byName[name_] = this;
  if (!dxfName_.empty()) reg.byDxfName[Upper(dxfName_)] = this;
}

AcRxClass::~AcRxClass() {
  // A library that is unloaded takes its classes with it.
  ClassRegistry &reg = Registry();
  std::lock_guard<std::mutex> lock(reg.mutex);
  auto byName = reg.byName.find(name_);
  if (byName != reg.byName.end() && byName->second == this) reg.byName.erase(byName);
  if (!dxfName_.empty()) {
    auto byDxf = reg.byDxfName.find(Upper(dxfName_));
    if (byDxf != reg.byDxfName.end() && byDxf->second == this) reg.byDxfName.erase(byDxf);
  }
}

bool AcRxClass::isDerivedFrom(const AcRxClass *other) const {
  for (const AcRxClass *c = this; c; c = c->parent_) {
    if (c == other) return true;
  }
  return false;
}

AcRxClass *AcRxObject::desc() {
  static AcRxClass cls(L"AcRxObject", nullptr);
  return &cls;
}

AcRxClass *AcRxObject::isA() const { return AcRxObject::desc(); }

namespace tolv {

AcRxClass *FindRxClass(const wchar_t *name) {
  if (!name) return nullptr;
  ClassRegistry &reg = Registry();
  std::lock_guard<std::mutex> lock(reg.mutex);
  auto it = reg.byName.find(name);
  return it == reg.byName.end() ? nullptr : it->second;
}

AcRxClass *FindRxClassByDxfName(const wchar_t *dxfName) {
  if (!dxfName || !*dxfName) return nullptr;
  ClassRegistry &reg = Registry();
  std::lock_guard<std::mutex> lock(reg.mutex);
  auto it = reg.byDxfName.find(Upper(dxfName));
  return it == reg.byDxfName.end() ? nullptr : it->second;
}

}  // namespace tolv
