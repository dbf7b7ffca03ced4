#include "standards/KyDtLayerStd.h"

#include "containers/KyDList.h"
#include "dictionary/KyDtDictStringItem.h"
#include "dictionary/KyDtDictionary.h"
#include "platform/utility/SupportFiles.h"
#include "platform/windows/WinCrt.h"

namespace {

// The attribute names the definition takes into fields of its own. Whether
// another attribute is one of them is asked of this one text, so any
// substring of it ("type", "line", "me") counts as known too.
constexpr const wchar_t *kKnownLayerAttributes = L"name,localname,color,linetype,lw,comment";

KyDtDictionary *ChildDict(KyDtDictionary *parent, const wchar_t *name) {
  if (!parent) return nullptr;
  KyDtDictItem *item = parent->FindItem(CString(name));
  return item && item->IsDict() ? static_cast<KyDtDictionary *>(item) : nullptr;
}

void FillFromItem(const KyDtDictStringItem &item, KyDtLayerDef &def) {
  def.layerName = item.m_value;
  def.localName = item.GetAttributeValue(L"localname");
  def.color = static_cast<std::uint16_t>(_wtoi(item.GetAttributeValue(L"color")));
  def.lineType = item.GetAttributeValue(L"linetype");
  const CString lw = item.GetAttributeValue(L"lw");
  if (!lw.IsEmpty()) def.lineWeight = _wtoi(lw);
  def.comment = item.GetAttributeValue(L"comment");
  const std::wstring_view known(kKnownLayerAttributes);
  for (const auto &[name, value] : *item.m_pAttributes) {
    if (known.find(name.view()) != std::wstring_view::npos) continue;
    def.SetAttributeValue(name, value);
  }
}

}  // namespace

KyDtDictionary *KyDtLayerStd::GetFieldDict() const { return ChildDict(m_pStd, L"LAYER_FIELD_DEF"); }

KyDtDictionary *KyDtLayerStd::GetAssemblyDict() const { return ChildDict(m_pStd, L"ASSEMBLY_LAYER_DEF"); }

bool KyDtLayerStd::FindLayer(KyDtDictionary *dict, KyDtLayerDef &def) {
  if (!dict) return false;
  for (dict->MoveToFirst(); !dict->IsOut(); dict->MoveToNext()) {
    KyDtDictItem *item = dict->GetCurData();
    if (!item) continue;
    if (item->IsDict()) {
      if (FindLayer(static_cast<KyDtDictionary *>(item), def)) return true;
      continue;
    }
    if (item->GetType() != KyDtDictItem::DT_STRING) continue;
    if (item->GetAttributeValue(L"name").Compare(def.key) != 0) continue;
    FillFromItem(*static_cast<KyDtDictStringItem *>(item), def);
    return true;
  }
  return false;
}

bool KyDtLayerStd::AssembleLayer(KyDtLayerDef &def) const {
  KyDtDictionary *fields = GetFieldDict();
  if (!fields) return false;
  CStringArray tokens;
  CutStrToArr(def.key, L"-", tokens);
  KyDtLayerDef work(def);
  for (int i = 0; i < tokens.GetSize(); ++i) {
    KyDtLayerDef field;
    field.key = tokens[i];
    if (!FindLayer(fields, field)) return false;
    work += field;
  }
  def = work;
  return true;
}

bool KyDtLayerStd::GetLayerDef(KyDtLayerDef &def) const {
  const bool assembled = AssembleLayer(def);
  KyDtLayerDef whole;
  whole.key = def.key;
  if (!FindLayer(GetAssemblyDict(), whole)) return def.IsValid();
  if (!assembled) {
    def = whole;
    return def.IsValid();
  }
  // The entry of the whole key corrects the assembly where it says
  // something; the assembled display name stands.
  if (!whole.layerName.IsEmpty()) def.layerName = whole.layerName;
  if (whole.color != 0) def.color = whole.color;
  if (!whole.lineType.IsEmpty()) def.lineType = whole.lineType;
  if (whole.lineWeight != -3) def.lineWeight = whole.lineWeight;
  if (!whole.comment.IsEmpty()) def.comment = whole.comment;
  for (const auto &[name, value] : *whole.attributes) {
    if (!value.IsEmpty()) def.SetAttributeValue(name, value);
  }
  return def.IsValid();
}

AcDbObjectId KyDtLayerStd::InitLayer(const wchar_t *key, AcDbDatabase *db) const {
  KyDtLayerDef def;
  def.key = key;
  if (!GetLayerDef(def)) return AcDbObjectId();
  return def.InitLayer(db);
}
