// A list of child elements as GetChildrenNodes gives it, and the holder that
// callers keep it in. Both are handles: the elements stay in their document.
#pragma once

#include <memory>

#include "platform/utility/AutoPtr.h"
#include "platform/utility/KyUtXMLDOMNode.h"

class KyUtXMLDOMNodes {
 public:
  ~KyUtXMLDOMNodes();
  KyUtXMLDOMNodes(const KyUtXMLDOMNodes &) = delete;
  KyUtXMLDOMNodes &operator=(const KyUtXMLDOMNodes &) = delete;

  int GetCount() const;
  // A new handle on the element at the index from 0; empty out of range.
  _auto_ptr<KyUtXMLDOMNode> GetItem(int index) const;

 private:
  friend struct KyUtXMLDOMAccess;
  struct Impl;
  explicit KyUtXMLDOMNodes(std::unique_ptr<Impl> impl);
  std::unique_ptr<Impl> impl_;
};

// Holds one list and reads like a pointer to it: `array = list;` takes the
// list over, then `array->GetCount()` and `array->GetItem(i)`.
class KyUtXMLDOMNodeArray {
 public:
  KyUtXMLDOMNodeArray();
  ~KyUtXMLDOMNodeArray();
  KyUtXMLDOMNodeArray(const KyUtXMLDOMNodeArray &) = delete;
  KyUtXMLDOMNodeArray &operator=(const KyUtXMLDOMNodeArray &) = delete;

  // Takes the list over; the source is left empty.
  KyUtXMLDOMNodeArray &operator=(_auto_ptr<KyUtXMLDOMNodes> &nodes);
  KyUtXMLDOMNodeArray &operator=(_auto_ptr<KyUtXMLDOMNodes> &&nodes);
  KyUtXMLDOMNodeArray *operator->() { return this; }

  // 0 and empty handles while no list is held.
  int GetCount();
  _auto_ptr<KyUtXMLDOMNode> GetItem(int index);

 private:
  _auto_ptr<KyUtXMLDOMNodes> nodes_;
};
