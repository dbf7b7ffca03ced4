#include "platform/acad/AcEdLisp.h"

#include <algorithm>
#include <cstdio>
#include <map>

#include "platform/acad/AdsCodes.h"
#include "platform/windows/WinCrt.h"

namespace {

struct Document {
  std::vector<tolv::LispFunction> functions;  // in the order of definition
};

struct InterpreterState {
  std::map<int, Document> documents;
  int current = 0;
  int nextDocument = 1;
  void *servedApp = nullptr;
  // The invocation under way, if any.
  bool invoking = false;
  int invokedCode = 0;
  tolv::LispResult result;
};

InterpreterState &State() {
  static InterpreterState state;
  return state;
}

Document *CurrentDoc() {
  auto it = State().documents.find(State().current);
  return it == State().documents.end() ? nullptr : &it->second;
}

bool SameName(const std::wstring &a, const wchar_t *b) { return _wcsicmp(a.c_str(), b) == 0; }

int SetResult(tolv::LispResult result) {
  if (!State().invoking) return RTERROR;
  State().result = std::move(result);
  return RTNORM;
}

}  // namespace

int acedDefun(const wchar_t *name, int funcNumber) {
  Document *doc = CurrentDoc();
  if (!doc || !name || !*name || funcNumber < 0) return RTERROR;
  // A new definition of a name replaces the old one, as in Lisp.
  auto &fns = doc->functions;
  fns.erase(std::remove_if(fns.begin(), fns.end(),
                           [&](const tolv::LispFunction &f) { return SameName(f.name, name); }),
            fns.end());
  fns.push_back({name, funcNumber, State().servedApp});
  return RTNORM;
}

int acedUndef(const wchar_t *name, int funcNumber) {
  Document *doc = CurrentDoc();
  if (!doc || !name) return RTERROR;
  auto &fns = doc->functions;
  auto it = std::find_if(fns.begin(), fns.end(), [&](const tolv::LispFunction &f) {
    return SameName(f.name, name) && f.code == funcNumber && f.appId == State().servedApp;
  });
  if (it == fns.end()) return RTERROR;
  fns.erase(it);
  return RTNORM;
}

int acedGetFunCode() { return State().invoking ? State().invokedCode : RTERROR; }

int acedRetInt(int value) {
  tolv::LispResult r;
  r.kind = tolv::LispResult::kInt;
  r.intValue = value;
  return SetResult(std::move(r));
}

int acedRetReal(double value) {
  tolv::LispResult r;
  r.kind = tolv::LispResult::kReal;
  r.realValue = value;
  return SetResult(std::move(r));
}

int acedRetStr(const wchar_t *text) {
  tolv::LispResult r;
  r.kind = tolv::LispResult::kString;
  r.text = text ? text : L"";
  return SetResult(std::move(r));
}

int acedRetNil() {
  tolv::LispResult r;
  r.kind = tolv::LispResult::kNil;
  return SetResult(std::move(r));
}

int acedRetT() {
  tolv::LispResult r;
  r.kind = tolv::LispResult::kT;
  return SetResult(std::move(r));
}

int acedRetVoid() {
  tolv::LispResult r;
  r.kind = tolv::LispResult::kVoid;
  return SetResult(std::move(r));
}

namespace tolv {

std::wstring LispResult::ToString() const {
  switch (kind) {
    case kNone:
    case kVoid:
      return L"";
    case kNil:
      return L"nil";
    case kT:
      return L"T";
    case kInt:
      return std::to_wstring(intValue);
    case kReal: {
      wchar_t buf[64];
      std::swprintf(buf, 64, L"%g", realValue);
      return buf;
    }
    case kString:
      return L"\"" + text + L"\"";
  }
  return L"";
}

LispHost &LispHost::Instance() {
  static LispHost host;
  return host;
}

int LispHost::OpenDocument() {
  int id = State().nextDocument++;
  State().documents[id];
  State().current = id;
  return id;
}

void LispHost::CloseDocument(int document) {
  State().documents.erase(document);
  if (State().current == document)
    State().current = State().documents.empty() ? 0 : State().documents.begin()->first;
}

bool LispHost::ActivateDocument(int document) {
  if (!State().documents.count(document)) return false;
  State().current = document;
  return true;
}

int LispHost::CurrentDocument() const { return State().current; }

LispHost::ServingScope::ServingScope(void *appId) : previous_(State().servedApp) {
  State().servedApp = appId;
}

LispHost::ServingScope::~ServingScope() { State().servedApp = previous_; }

bool LispHost::Find(const std::wstring &name, LispFunction &function) const {
  const Document *doc = CurrentDoc();
  if (!doc) return false;
  for (const LispFunction &f : doc->functions) {
    if (SameName(f.name, name.c_str())) {
      function = f;
      return true;
    }
  }
  return false;
}

std::vector<LispFunction> LispHost::Functions() const {
  const Document *doc = CurrentDoc();
  return doc ? doc->functions : std::vector<LispFunction>();
}

void LispHost::ForgetApplication(void *appId) {
  for (auto &[id, doc] : State().documents) {
    auto &fns = doc.functions;
    fns.erase(std::remove_if(fns.begin(), fns.end(),
                             [&](const LispFunction &f) { return f.appId == appId; }),
              fns.end());
  }
}

LispResult LispHost::Invoke(const LispFunction &function, const std::function<void()> &deliver) {
  InterpreterState &s = State();
  // Invocations may nest (a function may call the interpreter back), so the
  // outer one's state is kept and restored.
  const bool wasInvoking = s.invoking;
  const int outerCode = s.invokedCode;
  LispResult outerResult = std::move(s.result);
  s.invoking = true;
  s.invokedCode = function.code;
  s.result = LispResult();
  {
    ServingScope serving(function.appId);
    if (deliver) deliver();
  }
  LispResult result = std::move(s.result);
  s.invoking = wasInvoking;
  s.invokedCode = outerCode;
  s.result = std::move(outerResult);
  return result;
}

}  // namespace tolv
