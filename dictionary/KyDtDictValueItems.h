// The number kinds of dictionary items: Bool, Char, Long and Double.
//
// A default-constructed item holds zero; every creation path of the system
// stores a value straight after creating one.
#pragma once

#include <cstdint>

#include "dictionary/KyDtDictItem.h"

class KyDtDictBoolItem : public KyDtDictItem {
 public:
  KyDtDictBoolItem() = default;
  KyDtDictBoolItem(const KyDtDictBoolItem &) = default;
  KyDtDictBoolItem &operator=(const KyDtDictBoolItem &) = default;

  ~KyDtDictBoolItem() override = default;
  int GetType() const override { return DT_BOOL; }
  void CopyData(const KyDtDictItem &source) override;
  void operator>>(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void operator>>(CArchive &ar) override;
  void operator<<(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void operator<<(CArchive &ar) override;

  // 1 means true. Archives keep any number as it stands.
  std::int32_t m_value = 0;
};

class KyDtDictCharItem : public KyDtDictItem {
 public:
  KyDtDictCharItem() = default;
  KyDtDictCharItem(const KyDtDictCharItem &) = default;
  KyDtDictCharItem &operator=(const KyDtDictCharItem &) = default;

  ~KyDtDictCharItem() override = default;
  int GetType() const override { return DT_CHAR; }
  void CopyData(const KyDtDictItem &source) override;
  // XML holds the number of the character (65 for 'A'), while reading takes
  // the first byte of the narrow form of the text: a written file reads
  // back as the first digit. Both directions are kept as they are.
  void operator>>(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void operator>>(CArchive &ar) override;
  void operator<<(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void operator<<(CArchive &ar) override;

  char m_value = 0;
};

class KyDtDictLongItem : public KyDtDictItem {
 public:
  KyDtDictLongItem() = default;
  KyDtDictLongItem(const KyDtDictLongItem &) = default;
  KyDtDictLongItem &operator=(const KyDtDictLongItem &) = default;

  ~KyDtDictLongItem() override = default;
  int GetType() const override { return DT_LONG; }
  void CopyData(const KyDtDictItem &source) override;
  void operator>>(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void operator>>(CArchive &ar) override;
  void operator<<(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void operator<<(CArchive &ar) override;

  std::int32_t m_value = 0;
};

class KyDtDictDoubleItem : public KyDtDictItem {
 public:
  KyDtDictDoubleItem() = default;
  KyDtDictDoubleItem(const KyDtDictDoubleItem &) = default;
  KyDtDictDoubleItem &operator=(const KyDtDictDoubleItem &) = default;

  ~KyDtDictDoubleItem() override = default;
  int GetType() const override { return DT_DOUBLE; }
  void CopyData(const KyDtDictItem &source) override;
  void operator>>(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void operator>>(CArchive &ar) override;
  void operator<<(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void operator<<(CArchive &ar) override;

  double m_value = 0.0;
};
