// One element of an XML document held by a KyUtXMLDOMFile.
//
// A node object is only a handle: deleting it leaves the element in its
// document, and it must not outlive the document. Text comes and goes as
// wide strings. Every `const wchar_t *` a handle returns stays valid for as
// long as the handle lives, even after the element changes, so callers may
// keep several of them at once (an attribute's name next to its value).
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "platform/mfc/CString.h"
#include "platform/utility/AutoPtr.h"

class KyUtXMLDOMNodes;

class KyUtXMLDOMNode {
 public:
  ~KyUtXMLDOMNode();
  KyUtXMLDOMNode(const KyUtXMLDOMNode &) = delete;
  KyUtXMLDOMNode &operator=(const KyUtXMLDOMNode &) = delete;

  // Readers make and drop a handle per element: each thread keeps a few
  // handles' memory for the next ones.
  static void *operator new(std::size_t size);
  static void operator delete(void *memory) noexcept;

  const wchar_t *GetNodeName();

  // The element's text: its character data and CDATA children joined in
  // order; empty when it has none. Child elements don't contribute.
  const wchar_t *GetNodeValue();
  // Replace the element's text (child elements are kept). A double is
  // written in the shortest form that reads back to the same value.
  bool SetNodeValue(const wchar_t *text);
  bool SetNodeValue(const int &value);
  bool SetNodeValue(const double &value);

  // Attributes in document order.
  std::int32_t GetAttributeNum();
  // Empty text for an index out of range.
  const wchar_t *GetAttributeName(int index);
  // Empty text (never null) when the attribute is absent.
  const wchar_t *GetAttributeValue(const wchar_t *name);
  // Sets an existing attribute in place, or adds it at the end. False for a
  // name that can't stand in XML.
  bool SetAttributeValue(const wchar_t *name, const wchar_t *value);
  bool IsAttributeExist(const wchar_t *name);

  // Adds a child element at the end, with the text and, unless its name is
  // empty, the one attribute. Empty when the tag can't stand in XML.
  _auto_ptr<KyUtXMLDOMNode> AppendNode(const wchar_t *tag, const wchar_t *text,
                                       const wchar_t *attributeName, const wchar_t *attributeValue);
  // The same with attributes paired by index; names that are empty are
  // skipped, and the shorter array sets the count.
  _auto_ptr<KyUtXMLDOMNode> AppendNode(const wchar_t *tag, const CStringArray &attributeNames,
                                       const CStringArray &attributeValues, const wchar_t *text);

  // Removes every child element with its subtree; text stays.
  bool DeleteChildrenNodes();
  // The child elements in document order; never text, comments or
  // processing instructions.
  _auto_ptr<KyUtXMLDOMNodes> GetChildrenNodes();

 private:
  friend struct KyUtXMLDOMAccess;
  struct Impl;
  explicit KyUtXMLDOMNode(std::unique_ptr<Impl> impl);
  std::unique_ptr<Impl> impl_;
};
