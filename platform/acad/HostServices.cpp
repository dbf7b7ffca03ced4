#include <memory>

#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbHostApplicationServices.h"
#include "platform/acad/DbInternals.h"
#include "platform/acad/HostDocument.h"

namespace {

struct HostState {
  AcDbDatabase *working = nullptr;  // set by a caller, not owned
  std::unique_ptr<AcDbDatabase> document;
  std::wstring path;
};

HostState &Host() {
  static HostState state;
  return state;
}

bool EndsWithDwg(const std::wstring &path) {
  return path.size() > 4 && tolv::SameName(path.substr(path.size() - 4), L".dwg");
}

}  // namespace

AcDbDatabase *AcDbHostApplicationServices::workingDatabase() const {
  HostState &host = Host();
  if (host.working) return host.working;
  if (!host.document) host.document = std::make_unique<AcDbDatabase>(true, false);
  return host.document.get();
}

void AcDbHostApplicationServices::setWorkingDatabase(AcDbDatabase *db) { Host().working = db; }

AcDbHostApplicationServices *acdbHostApplicationServices() {
  static AcDbHostApplicationServices services;
  return &services;
}

namespace tolv {

void ForgetWorkingDatabase(AcDbDatabase *db) {
  HostState &host = Host();
  if (host.working == db) host.working = nullptr;
}

std::wstring DrawingSavePath(const std::wstring &path) {
  return EndsWithDwg(path) ? path.substr(0, path.size() - 4) + L".dxf" : path;
}

Acad::ErrorStatus OpenDocument(const std::wstring &path) {
  if (path.empty()) return Acad::eInvalidInput;
  auto db = std::make_unique<AcDbDatabase>(false, false);
  Acad::ErrorStatus es = db->readDwgFile(path.c_str());
  if (es == Acad::eFileNotFound) {
    db = std::make_unique<AcDbDatabase>(true, false);
  } else if (es != Acad::eOk) {
    return es;
  }
  HostState &host = Host();
  if (host.working == host.document.get()) host.working = nullptr;
  host.document = std::move(db);
  host.path = DrawingSavePath(path);
  return Acad::eOk;
}

void NewDocument() {
  HostState &host = Host();
  if (host.working == host.document.get()) host.working = nullptr;
  host.document = std::make_unique<AcDbDatabase>(true, false);
  host.path.clear();
}

Acad::ErrorStatus SaveDocument() {
  HostState &host = Host();
  if (host.path.empty()) return Acad::eInvalidInput;
  return SaveDocumentAs(host.path);
}

Acad::ErrorStatus SaveDocumentAs(const std::wstring &path) {
  if (path.empty()) return Acad::eInvalidInput;
  HostState &host = Host();
  if (!host.document) host.document = std::make_unique<AcDbDatabase>(true, false);
  std::wstring target = DrawingSavePath(path);
  Acad::ErrorStatus es = host.document->saveAs(target.c_str());
  if (es == Acad::eOk) host.path = target;
  return es;
}

void CloseDocument() {
  HostState &host = Host();
  if (host.working == host.document.get()) host.working = nullptr;
  host.document.reset();
  host.path.clear();
}

AcDbDatabase *Document() { return Host().document.get(); }
std::wstring DocumentPath() { return Host().path; }

}  // namespace tolv
