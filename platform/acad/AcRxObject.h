// The host's run-time class system: every database class has one AcRxClass
// record, reached by the static desc() and, for an instance, by isA();
// isKindOf() walks the parent chain. CLASS::cast() is the checked down-cast.
//
// A class declares its members with ACRX_DECLARE_MEMBERS(CLASS) and defines
// them in one .cpp with ACRX_NO_CONS_DEFINE_MEMBERS(CLASS, PARENT) (abstract
// or not creatable by name), ACRX_CONS_DEFINE_MEMBERS(CLASS, PARENT, VER)
// (creatable) or ACRX_DXF_DEFINE_MEMBERS(CLASS, PARENT, DWGVER, MAINTVER,
// PROXYFLAGS, DXFNAME, APP) (creatable and read back from drawing files by
// its DXF name). Class records register themselves on first use; a class
// that a drawing file must be able to create is used once at library load,
// e.g. by `static const bool kRegistered = (CLASS::desc() != nullptr);`.
#pragma once

#include <string>

class AcRxObject;

class AcRxClass {
 public:
  using Constructor = AcRxObject *(*)();

  AcRxClass(const wchar_t *name, AcRxClass *parent, Constructor constructor = nullptr,
            const wchar_t *dxfName = nullptr, const wchar_t *appName = nullptr,
            int proxyFlags = 0);
  ~AcRxClass();
  AcRxClass(const AcRxClass &) = delete;
  AcRxClass &operator=(const AcRxClass &) = delete;

  const wchar_t *name() const { return name_.c_str(); }
  AcRxClass *myParent() const { return parent_; }
  // The name that stands after group code 0 in a drawing file; empty when
  // the class has none of its own.
  const wchar_t *dxfName() const { return dxfName_.c_str(); }
  const wchar_t *appName() const { return appName_.c_str(); }
  int proxyFlags() const { return proxyFlags_; }
  bool isDerivedFrom(const AcRxClass *other) const;
  // A new default instance, or null for a class that can't be created by name.
  AcRxObject *create() const { return constructor_ ? constructor_() : nullptr; }

 private:
  std::wstring name_;
  AcRxClass *parent_;
  Constructor constructor_;
  std::wstring dxfName_;
  std::wstring appName_;
  int proxyFlags_;
};

class AcRxObject {
 public:
  virtual ~AcRxObject() = default;
  static AcRxClass *desc();
  static AcRxObject *cast(const AcRxObject *in) { return const_cast<AcRxObject *>(in); }
  virtual AcRxClass *isA() const;
  bool isKindOf(const AcRxClass *cls) const { return cls && isA()->isDerivedFrom(cls); }
};

namespace tolv {
// The registered class of that C++ name or DXF name (exact, then without
// regard to case for the DXF name); null when none is registered.
AcRxClass *FindRxClass(const wchar_t *name);
AcRxClass *FindRxClassByDxfName(const wchar_t *dxfName);
}  // namespace tolv

// The checked down-cast of the host: null when `in` is null or of another class.
template <class T>
T *AcRxCast(const AcRxObject *in) {
  return in && in->isKindOf(T::desc()) ? const_cast<T *>(static_cast<const T *>(in)) : nullptr;
}

#define ACRX_DECLARE_MEMBERS(CLASS)                                             \
  static AcRxClass *desc();                                                     \
  static CLASS *cast(const AcRxObject *in) { return AcRxCast<CLASS>(in); }      \
  AcRxClass *isA() const override

#define TOLV_RX_DEFINE_MEMBERS_(CLASS, PARENT, CONS, DXFNAME, APP, PROXY)           \
  AcRxClass *CLASS::desc() {                                                        \
    static AcRxClass cls(L"" #CLASS, PARENT::desc(), CONS, DXFNAME, APP, PROXY);    \
    return &cls;                                                                    \
  }                                                                                 \
  AcRxClass *CLASS::isA() const { return CLASS::desc(); }

#define ACRX_NO_CONS_DEFINE_MEMBERS(CLASS, PARENT) \
  TOLV_RX_DEFINE_MEMBERS_(CLASS, PARENT, nullptr, nullptr, nullptr, 0)

#define ACRX_CONS_DEFINE_MEMBERS(CLASS, PARENT, VERNO)                                  \
  TOLV_RX_DEFINE_MEMBERS_(CLASS, PARENT, []() -> AcRxObject * { return new CLASS; }, \
                          nullptr, nullptr, 0)

#define ACRX_DXF_DEFINE_MEMBERS(CLASS, PARENT, DWGVER, MAINTVER, PROXYFLAGS, DXFNAME, APP) \
  TOLV_RX_DEFINE_MEMBERS_(CLASS, PARENT, []() -> AcRxObject * { return new CLASS; },    \
                          L"" #DXFNAME, L"" #APP, PROXYFLAGS)
