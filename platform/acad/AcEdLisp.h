// The host's Lisp interpreter, as far as applications meet it: they define
// external functions by name and number (acedDefun), find out which of them
// is being invoked (acedGetFunCode) and hand back a result (acedRet...).
//
// Each open document has its own set of defined functions, so an
// application defines its functions again for every document (on the
// host's kLoadDwgMsg). A definition belongs to the application whose
// message the host is delivering at the time; when one of its functions is
// invoked, the host sends that application kInvkSubrMsg.
//
// Function names are matched without regard to case, as Lisp symbols are.
#pragma once

#include <functional>
#include <string>
#include <vector>

// Application side. RTNORM on success, RTERROR otherwise.
int acedDefun(const wchar_t *name, int funcNumber);
int acedUndef(const wchar_t *name, int funcNumber);
// The number of the function being invoked, or RTERROR outside an invocation.
int acedGetFunCode();
int acedRetInt(int value);
int acedRetReal(double value);
int acedRetStr(const wchar_t *text);
int acedRetNil();
int acedRetT();
int acedRetVoid();

namespace tolv {

// The value a function handed back.
struct LispResult {
  enum Kind { kNone, kVoid, kNil, kT, kInt, kReal, kString };
  Kind kind = kNone;
  int intValue = 0;
  double realValue = 0.0;
  std::wstring text;
  // As the interpreter would echo it: 5, 2.5, "text", nil, T; empty for none.
  std::wstring ToString() const;
};

// A defined function of the current document.
struct LispFunction {
  std::wstring name;
  int code = 0;
  void *appId = nullptr;
};

// Host side of the interpreter.
class LispHost {
 public:
  static LispHost &Instance();

  // Opens a document with an empty set of functions and makes it current.
  int OpenDocument();
  // Forgets the document and its functions; another open one becomes current.
  void CloseDocument(int document);
  bool ActivateDocument(int document);
  // The current document, or 0 when none is open.
  int CurrentDocument() const;

  // While alive, definitions are made on behalf of that application.
  class ServingScope {
   public:
    explicit ServingScope(void *appId);
    ~ServingScope();
    ServingScope(const ServingScope &) = delete;
    ServingScope &operator=(const ServingScope &) = delete;

   private:
    void *previous_;
  };

  // The function of that name in the current document.
  bool Find(const std::wstring &name, LispFunction &function) const;
  // The functions of the current document in the order they were defined.
  std::vector<LispFunction> Functions() const;
  // Forgets every function of the application in all documents.
  void ForgetApplication(void *appId);

  // Invokes: makes the function's number current, lets `deliver` send the
  // owning application its kInvkSubrMsg, and gives what it handed back.
  LispResult Invoke(const LispFunction &function, const std::function<void()> &deliver);

 private:
  LispHost() = default;
};

}  // namespace tolv
