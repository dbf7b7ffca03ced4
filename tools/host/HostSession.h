// One run of the CAD host around the data-layer module: load it, start it,
// open a document, serve commands and Lisp calls, close, stop and unload,
// with the messages the host sends in that order.
#pragma once

#include <string>

#include "host/ModuleLoader.h"
#include "host/SiblingLoader.h"
#include "platform/acad/AcEdLisp.h"
#include "platform/acad/AcadErrorStatus.h"

class HostSession {
 public:
  HostSession() = default;
  ~HostSession();
  HostSession(const HostSession &) = delete;
  HostSession &operator=(const HostSession &) = delete;

  // Loads the module and sends it kInitAppMsg. False (with the reason
  // printed) when the module can't be loaded.
  bool Start(const std::string &modulePath);
  // Opens a document and sends kLoadDwgMsg, so the module defines its Lisp
  // functions in it. Its drawing is read from `drawing` (a POSIX path) when
  // that file exists, a new drawing to be saved there when it doesn't, and
  // a new unnamed drawing when the path is empty. The drawing is the
  // working database. False, with the reason printed, when the file can't
  // be read: no document is then open.
  bool OpenDocument(const std::string &drawing = std::string());
  // Sends kUnloadDwgMsg and closes the document.
  void CloseDocument();

  // Saves the document's drawing under its name, or under a new one that
  // it keeps (a system path). False, with the reason printed, on failure.
  bool SaveDrawing();
  bool SaveDrawingAs(const std::wstring &path);
  // Sends kUnloadAppMsg and unloads the module.
  void Stop();

  // Runs a registered command; false when no command has that name.
  bool RunCommand(const std::wstring &name);
  // Invokes a Lisp function of the current document: false when none has
  // that name; otherwise `result` is what the function handed back.
  bool InvokeLisp(const std::wstring &name, tolv::LispResult &result);
  // Serves a line that the sibling module registered: -1 when its first
  // word is none of them, else 0 or 1 as the line succeeded or failed.
  int ServeSiblingLine(const std::string &line) { return sibling_.ServeLine(line); }
  // What the sibling's lines are, for HELP.
  std::string SiblingLineUsage() const { return sibling_.LineUsage(); }

  // Messages that came back with another code than kRetOK.
  int failures() const { return failures_; }

 private:
  void Send(AcRx::AppMsgCode msg, const char *name);
  bool Report(Acad::ErrorStatus es, const std::wstring &path);

  ModuleLoader loader_;
  // Loaded after the module has started and unloaded before it goes, as
  // it holds the module.
  SiblingLoader sibling_;
  void *appId_ = nullptr;
  int document_ = 0;
  int failures_ = 0;
};
