// The host's system registry: a dictionary of named service objects that
// every application reaches through acrxSysRegistry(). Two services stand in
// it from the start: the dynamic linker under ACRX_DYNAMIC_LINKER and the
// command stack under ACRX_COMMAND_DOCK.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "platform/acad/AcRxObject.h"

constexpr const wchar_t *ACRX_DYNAMIC_LINKER = L"DynamicLinker";
constexpr const wchar_t *ACRX_COMMAND_DOCK = L"ACAD_REGISTERED_COMMANDS";

// A dictionary from a name (case-sensitive) to an object. It holds the
// objects without owning them: whoever puts one in takes it out and frees it.
class AcRxDictionary : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcRxDictionary);

  AcRxDictionary() = default;
  AcRxDictionary(const AcRxDictionary &) = delete;
  AcRxDictionary &operator=(const AcRxDictionary &) = delete;

  // The object under the key, or null.
  AcRxObject *at(const wchar_t *key) const;
  // Puts the object under the key; gives the object that stood there, or null.
  AcRxObject *atPut(const wchar_t *key, AcRxObject *object);
  // Takes the object out; gives it, or null when the key was not there.
  AcRxObject *remove(const wchar_t *key);
  bool has(const wchar_t *key) const { return at(key) != nullptr; }
  std::uint32_t numEntries() const { return static_cast<std::uint32_t>(entries_.size()); }

 private:
  std::map<std::wstring, AcRxObject *> entries_;
};

// The process's system registry, with its two services in place.
AcRxDictionary *acrxSysRegistry();
