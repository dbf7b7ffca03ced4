#include "standards/KyDtLayerDef.h"

#include "platform/acad/AcDbLayerTableRecord.h"
#include "platform/dbobject/KyDbLayerMakers.h"
#include "platform/geometry/GeTolerance.h"
#include "platform/windows/WinCrt.h"

KyDtLayerDef::KyDtLayerDef() : attributes(new std::map<CString, CString>) {}

KyDtLayerDef::KyDtLayerDef(const KyDtLayerDef &other) : KyDtLayerDef() { *this = other; }

KyDtLayerDef::~KyDtLayerDef() { delete attributes; }

KyDtLayerDef &KyDtLayerDef::operator=(const KyDtLayerDef &other) {
  if (this == &other) return *this;
  key = other.key;
  localName = other.localName;
  layerName = other.layerName;
  color = other.color;
  lineType = other.lineType;
  lineWeight = other.lineWeight;
  comment = other.comment;
  attributes->clear();
  for (const auto &[name, value] : *other.attributes) attributes->insert_or_assign(name, value);
  return *this;
}

KyDtLayerDef &KyDtLayerDef::operator+=(const KyDtLayerDef &field) {
  if (localName.IsEmpty()) {
    localName = field.localName;
  } else {
    // A field without a display name still leaves its hyphen.
    localName += L"-";
    localName += field.localName;
  }
  if (field.color != 0) color = field.color;
  if (!field.lineType.IsEmpty()) lineType = field.lineType;
  // The last field always decides the weight, set or not.
  lineWeight = field.lineWeight;
  for (const auto &[name, value] : *field.attributes) {
    if (!value.IsEmpty()) SetAttributeValue(name, value);
  }
  if (!field.layerName.IsEmpty()) {
    if (layerName.IsEmpty()) {
      layerName = field.layerName;
    } else {
      layerName += L"-";
      layerName += field.layerName;
    }
  }
  return *this;
}

bool KyDtLayerDef::operator<(const KyDtLayerDef &) const { return false; }
bool KyDtLayerDef::operator>(const KyDtLayerDef &) const { return false; }

CString KyDtLayerDef::GetAttributeValue(const wchar_t *name) const {
  auto it = attributes->find(CString(name));
  return it == attributes->end() ? CString() : it->second;
}

void KyDtLayerDef::SetAttributeValue(const wchar_t *name, const wchar_t *value) {
  attributes->insert_or_assign(CString(name), CString(value));
}

void KyDtLayerDef::SetLineScale(double scale) {
  CString text;
  text.Format(L"%lg", scale);
  SetAttributeValue(L"linescale", text);
}

void KyDtLayerDef::SetLineWeight(double weight) {
  CString text;
  text.Format(L"%lg", weight);
  SetAttributeValue(L"lineweight", text);
}

double KyDtLayerDef::GetLineScale() const {
  const double scale = _wtof(GetAttributeValue(L"linescale"));
  return scale > g_fZero ? scale : 1.0;
}

double KyDtLayerDef::GetLineWeight() const {
  const double weight = _wtof(GetAttributeValue(L"lineweight"));
  return weight > g_fZero ? weight : 0.0;
}

AcDbObjectId KyDtLayerDef::InitLayer(AcDbDatabase *db) const {
  // A standard never re-styles a layer the drawing has already.
  AcDbObjectId id = GetLayerIdFromString(layerName, db);
  if (!id.isNull()) return id;
  id = ::InitLayer(layerName, color, db);
  // Line type and weight go together: without the line type the layer
  // keeps its default weight too.
  const AcDbObjectId linetypeId = InitLineType(lineType, db);
  if (!linetypeId.isNull()) {
    AcDbObject *obj = nullptr;
    if (acdbOpenAcDbObject(obj, id, AcDb::kForWrite) == Acad::eOk) {
      if (AcDbLayerTableRecord *layer = AcDbLayerTableRecord::cast(obj)) {
        layer->setLinetypeObjectId(linetypeId);
        layer->setLineWeight(static_cast<AcDb::LineWeight>(lineWeight));
      }
      obj->close();
    }
  }
  return id;
}
