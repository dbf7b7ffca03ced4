// One resolved layer of a layer standard: the name the drawing gives it and
// how it looks. A definition is valid exactly when it has a layer name.
#pragma once

#include <cstdint>
#include <map>

#include "platform/acad/AcDbObjectId.h"
#include "platform/mfc/CString.h"

class AcDbDatabase;

class KyDtLayerDef {
 public:
  KyDtLayerDef();
  // Builds an empty definition and assigns: the copy has its own map.
  KyDtLayerDef(const KyDtLayerDef &other);
  ~KyDtLayerDef();
  // Copies the seven plain fields, then replaces this map's pairs by the
  // source's.
  KyDtLayerDef &operator=(const KyDtLayerDef &other);

  // Merges one field of an assembled key into this definition.
  KyDtLayerDef &operator+=(const KyDtLayerDef &field);
  // Definitions have no order: both always answer false.
  bool operator<(const KyDtLayerDef &other) const;
  bool operator>(const KyDtLayerDef &other) const;

  CString GetAttributeValue(const wchar_t *name) const;
  void SetAttributeValue(const wchar_t *name, const wchar_t *value);
  // The add-on's own drawing-scale numbers, kept as attributes.
  void SetLineScale(double scale);
  void SetLineWeight(double weight);
  // "linescale" when it is a positive number, else 1.0.
  double GetLineScale() const;
  // "lineweight" when it is a positive number, else 0.0.
  double GetLineWeight() const;

  bool IsValid() const { return !layerName.IsEmpty(); }

  // The layer of this definition in the drawing (null: the working
  // database): the one the drawing has, untouched, or a new one.
  AcDbObjectId InitLayer(AcDbDatabase *db) const;

  CString key;
  CString localName;
  CString layerName;
  std::uint16_t color = 0;  // 0: not set
  CString lineType;         // empty: not set
  std::int32_t lineWeight = -3;  // the host's "by default": not set
  CString comment;
  std::map<CString, CString> *attributes;
};
