#include "platform/dbobject/KyDbMaterial.h"

#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbDictionary.h"
#include "platform/acad/AcDbDxfFiler.h"
#include "platform/acad/AcDbHostApplicationServices.h"

ACRX_DXF_DEFINE_MEMBERS(KyDbMaterial, AcDbObject, 0, 0, 0, TOLVMATERIAL, TolvDbObject)

namespace {

// Drawing files create materials by type name: the class must be known
// as soon as the library is loaded.
const bool kRegistered = KyDbMaterial::desc() != nullptr;

struct SystemMaterial {
  const wchar_t *name;
  const wchar_t *description;
  const wchar_t *pattern;
  double scale;
  double angle;
  int color;
  int priority;
};

// Cut hatching after the usual drafting conventions of building plans.
const SystemMaterial kSystemMaterials[] = {
    {L"钢筋混凝土", L"Reinforced concrete", L"AR-CONC", 0.5, 0.0, 8, 90},
    {L"混凝土", L"Concrete", L"AR-CONC", 1.0, 0.0, 8, 80},
    {L"砖", L"Brick", L"ANSI31", 1.0, 0.0, 1, 60},
    {L"空心砖", L"Hollow brick", L"ANSI37", 1.0, 0.0, 1, 55},
    {L"加气混凝土", L"Aerated concrete block", L"AR-SAND", 1.0, 0.0, 2, 50},
    {L"石材", L"Stone", L"ANSI33", 1.0, 0.0, 9, 70},
    {L"钢", L"Steel", L"STEEL", 1.0, 0.0, 5, 100},
    {L"木材", L"Wood", L"ANSI36", 1.0, 0.0, 30, 40},
    {L"玻璃", L"Glass", L"ANSI34", 1.0, 45.0, 4, 30},
    {L"保温材料", L"Thermal insulation", L"INSUL", 1.0, 0.0, 3, 20},
    {L"轻质隔墙", L"Light partition", L"ANSI32", 1.0, 0.0, 6, 10},
    {L"土", L"Earth", L"EARTH", 1.0, 0.0, 32, 5},
};

const wchar_t *const kSystemMaterialNames[] = {
    L"钢筋混凝土", L"混凝土", L"砖", L"空心砖", L"加气混凝土", L"石材",
    L"钢",         L"木材",   L"玻璃", L"保温材料", L"轻质隔墙",  L"土", nullptr};

const SystemMaterial *FindSystemMaterial(const wchar_t *name) {
  if (!name) return nullptr;
  for (const SystemMaterial &m : kSystemMaterials) {
    if (std::wstring(m.name) == name) return &m;
  }
  return nullptr;
}

AcDbDatabase *Resolve(AcDbDatabase *db) { return db ? db : acdbHostApplicationServices()->workingDatabase(); }

}  // namespace

KyDbMaterial::KyDbMaterial() = default;
KyDbMaterial::~KyDbMaterial() = default;

Acad::ErrorStatus KyDbMaterial::SetName(const wchar_t *name) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  name_ = name ? name : L"";
  return Acad::eOk;
}

Acad::ErrorStatus KyDbMaterial::SetDescription(const wchar_t *text) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  description_ = text ? text : L"";
  return Acad::eOk;
}

Acad::ErrorStatus KyDbMaterial::SetPatternName(const wchar_t *name) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  pattern_ = name ? name : L"";
  return Acad::eOk;
}

Acad::ErrorStatus KyDbMaterial::SetPatternScale(double scale) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (!(scale > 0.0)) return Acad::eInvalidInput;
  patternScale_ = scale;
  return Acad::eOk;
}

Acad::ErrorStatus KyDbMaterial::SetPatternAngle(double degrees) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  patternAngle_ = degrees;
  return Acad::eOk;
}

Acad::ErrorStatus KyDbMaterial::SetColorIndex(int index) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (index < 0 || index > 256) return Acad::eInvalidInput;
  colorIndex_ = index;
  return Acad::eOk;
}

Acad::ErrorStatus KyDbMaterial::SetPriority(int priority) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  priority_ = priority;
  return Acad::eOk;
}

Acad::ErrorStatus KyDbMaterial::dxfOutFields(AcDbDxfFiler *filer) const {
  filer->writeString(100, L"KyDbMaterial");
  filer->writeString(1, name_);
  filer->writeString(3, description_);
  filer->writeString(2, pattern_);
  filer->writeDouble(40, patternScale_);
  filer->writeDouble(50, patternAngle_);
  filer->writeInt16(62, static_cast<Adesk::Int16>(colorIndex_));
  filer->writeInt32(90, priority_);
  return Acad::eOk;
}

Acad::ErrorStatus KyDbMaterial::dxfInFields(AcDbDxfFiler *filer) {
  tolv::DxfTag tag;
  while (filer->readTag(tag)) {
    switch (tag.code) {
      case 1: name_ = tag.text; break;
      case 3: description_ = tag.text; break;
      case 2: pattern_ = tag.text; break;
      case 40: if (tag.real > 0.0) patternScale_ = tag.real; break;
      case 50: patternAngle_ = tag.real; break;
      case 62: if (tag.integer >= 0 && tag.integer <= 256) colorIndex_ = static_cast<int>(tag.integer); break;
      case 90: priority_ = static_cast<int>(tag.integer); break;
      default: break;
    }
  }
  return Acad::eOk;
}

AcDbDictionary *GetAecMaterialDictionary(AcDb::OpenMode mode, AcDbDatabase *db) {
  db = Resolve(db);
  if (!db) return nullptr;
  AcDbDictionary *nod = nullptr;
  if (db->getNamedObjectsDictionary(nod, AcDb::kForRead) != Acad::eOk) return nullptr;
  AcDbObjectId id;
  Acad::ErrorStatus es = nod->getAt(kTolvMaterialDictionaryKey, id);
  if (es == Acad::eKeyNotFound && nod->upgradeOpen() == Acad::eOk) {
    auto *dict = new AcDbDictionary;
    if (nod->setAt(kTolvMaterialDictionaryKey, dict, id) == Acad::eOk) {
      dict->close();
      es = Acad::eOk;
    } else {
      delete dict;
    }
  }
  nod->close();
  if (es != Acad::eOk) return nullptr;
  AcDbDictionary *dict = nullptr;
  if (acdbOpenObject(dict, id, mode) != Acad::eOk) return nullptr;
  return dict;
}

bool InitAecSysMaterial(AcDbDatabase *db) {
  AcDbDictionary *dict = GetAecMaterialDictionary(AcDb::kForWrite, db);
  if (!dict) return false;
  for (const SystemMaterial &m : kSystemMaterials) {
    if (dict->has(m.name)) continue;
    auto *material = new KyDbMaterial;
    InitMaterialData(m.name, material);
    AcDbObjectId id;
    if (dict->setAt(m.name, material, id) == Acad::eOk) {
      material->close();
    } else {
      delete material;
    }
  }
  dict->close();
  return true;
}

bool InitMaterialData(const wchar_t *name, KyDbMaterial *material) {
  if (!material) return false;
  const SystemMaterial *m = FindSystemMaterial(name);
  material->SetName(name ? name : L"");
  if (!m) {
    material->SetDescription(L"");
    material->SetPatternName(L"SOLID");
    material->SetPatternScale(1.0);
    material->SetPatternAngle(0.0);
    material->SetColorIndex(8);
    material->SetPriority(0);
    return false;
  }
  material->SetDescription(m->description);
  material->SetPatternName(m->pattern);
  material->SetPatternScale(m->scale);
  material->SetPatternAngle(m->angle);
  material->SetColorIndex(m->color);
  material->SetPriority(m->priority);
  return true;
}

const wchar_t *const *KyDbSystemMaterialNames() { return kSystemMaterialNames; }
