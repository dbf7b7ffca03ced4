#include "host/HostSession.h"

#include "host/HostOutput.h"
#include "platform/acad/AcEdCommandStack.h"
#include "platform/acad/HostDocument.h"
#include "platform/acad/AcRxDynamicLinker.h"
#include "platform/acad/AcRxRegistry.h"
#include "platform/windows/PathMap.h"
#include "platform/windows/TextCodec.h"

namespace {

AcRxDynamicLinker *Linker() {
  return AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER));
}

}  // namespace

HostSession::~HostSession() {
  if (document_) CloseDocument();
  if (loader_.IsLoaded()) Stop();
}

bool HostSession::Start(const std::string &modulePath) {
  if (!loader_.Load(modulePath)) {
    HostLine("cannot load " + modulePath + ": " + loader_.error());
    return false;
  }
  HostLine("loaded " + modulePath + " (api version " + std::to_string(loader_.ApiVersion()) + ")");
  // The application id is the `pkt` of every message to this module.
  appId_ = Linker()->beginApplication(L"TolvDataBase");
  Send(AcRx::kInitAppMsg, "kInitAppMsg");
  HostLine(std::string("the module is ") +
           (Linker()->isApplicationLocked(appId_) ? "locked" : "unlocked") + " and " +
           (Linker()->isAppMDIAware(appId_) ? "works with several documents"
                                            : "works with one document only"));
  if (!sibling_.LoadBeside(modulePath)) HostLine("no sibling module: " + sibling_.error());
  return true;
}

bool HostSession::OpenDocument(const std::string &drawing) {
  if (drawing.empty()) {
    tolv::NewDocument();
  } else {
    Acad::ErrorStatus es = tolv::OpenDocument(tolv::ToSystemPath(drawing));
    if (es != Acad::eOk) {
      HostLine("cannot open the drawing " + drawing + ": " + tolv::ToUtf8(acadErrorStatusText(es)));
      ++failures_;
      return false;
    }
  }
  document_ = tolv::LispHost::Instance().OpenDocument();
  std::wstring name = tolv::DocumentPath();
  HostLine("document " + std::to_string(document_) + " opened" +
           (name.empty() ? std::string()
                         : " with the drawing " + tolv::MapPath(tolv::DrawingSavePath(name))));
  Send(AcRx::kLoadDwgMsg, "kLoadDwgMsg");
  return true;
}

bool HostSession::SaveDrawing() {
  Acad::ErrorStatus es = tolv::SaveDocument();
  if (es == Acad::eInvalidInput) {
    HostLine("the drawing has no name yet: use SAVEAS");
    return false;
  }
  return Report(es, tolv::DocumentPath());
}

bool HostSession::SaveDrawingAs(const std::wstring &path) { return Report(tolv::SaveDocumentAs(path), path); }

bool HostSession::Report(Acad::ErrorStatus es, const std::wstring &path) {
  if (es != Acad::eOk) {
    HostLine("cannot save the drawing: " + tolv::ToUtf8(acadErrorStatusText(es)));
    return false;
  }
  HostLine("drawing saved to " + tolv::MapPath(tolv::DrawingSavePath(path)));
  return true;
}

void HostSession::CloseDocument() {
  if (!document_) return;
  Send(AcRx::kUnloadDwgMsg, "kUnloadDwgMsg");
  tolv::LispHost::Instance().CloseDocument(document_);
  tolv::CloseDocument();
  HostLine("document " + std::to_string(document_) + " closed");
  document_ = 0;
}

void HostSession::Stop() {
  if (!loader_.IsLoaded()) return;
  Send(AcRx::kUnloadAppMsg, "kUnloadAppMsg");
  // Whatever the module left defined is gone with it.
  tolv::LispHost::Instance().ForgetApplication(appId_);
  Linker()->endApplication(appId_);
  appId_ = nullptr;
  sibling_.Unload();
  if (loader_.Unload()) {
    HostLine("module unloaded");
  } else {
    // A module that stays would start its next load with this load's state.
    HostLine("module unloaded, but it is still in the process");
    ++failures_;
  }
}

bool HostSession::RunCommand(const std::wstring &name) {
  AcEdCommandStack *commands = AcEdCommandStack::cast(acrxSysRegistry()->at(ACRX_COMMAND_DOCK));
  AcEdCommand *command = commands ? commands->lookupGlobalCmd(name.c_str()) : nullptr;
  if (!command) return false;
  command->commandExecute();
  return true;
}

bool HostSession::InvokeLisp(const std::wstring &name, tolv::LispResult &result) {
  tolv::LispFunction function;
  if (!tolv::LispHost::Instance().Find(name, function)) return false;
  // Only this session's module defines functions, so the owner is the module.
  result = tolv::LispHost::Instance().Invoke(function, [&] {
    Send(AcRx::kInvkSubrMsg, nullptr);
  });
  return true;
}

void HostSession::Send(AcRx::AppMsgCode msg, const char *name) {
  // What the module defines with the interpreter while it handles a
  // message is its own.
  tolv::LispHost::ServingScope serving(appId_);
  AcRx::AppRetCode rc = loader_.Send(msg, appId_);
  if (rc != AcRx::kRetOK) ++failures_;
  // The invocation of a Lisp function is reported by its result instead.
  if (name) HostLine(std::string(name) + " -> " + std::to_string(static_cast<int>(rc)));
}
