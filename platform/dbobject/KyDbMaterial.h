// The add-on's materials in a drawing. Entities refer to a material by
// name; the material says how a cut through it is hatched and coloured and
// which of two materials wins where walls meet.
//
// Materials live in the add-on's own dictionary "TOLV_MATERIALS" of the
// named-object dictionary, one KyDbMaterial per name. In drawing files a
// material is an object of type TOLVMATERIAL of application TolvDbObject.
#pragma once

#include <string>

#include "platform/acad/AcDb.h"
#include "platform/acad/AcDbObject.h"

class AcDbDictionary;

class KyDbMaterial : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(KyDbMaterial);
  KyDbMaterial();
  ~KyDbMaterial() override;

  const wchar_t *GetName() const { return name_.c_str(); }
  Acad::ErrorStatus SetName(const wchar_t *name);
  const wchar_t *GetDescription() const { return description_.c_str(); }
  Acad::ErrorStatus SetDescription(const wchar_t *text);
  // The hatch pattern of a cut, its scale and angle in degrees.
  const wchar_t *GetPatternName() const { return pattern_.c_str(); }
  Acad::ErrorStatus SetPatternName(const wchar_t *name);
  double GetPatternScale() const { return patternScale_; }
  Acad::ErrorStatus SetPatternScale(double scale);
  double GetPatternAngle() const { return patternAngle_; }
  Acad::ErrorStatus SetPatternAngle(double degrees);
  int GetColorIndex() const { return colorIndex_; }
  Acad::ErrorStatus SetColorIndex(int index);
  // Where two materials meet, the higher number cuts through the lower.
  int GetPriority() const { return priority_; }
  Acad::ErrorStatus SetPriority(int priority);

  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler *filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler *filer) override;

 private:
  std::wstring name_;
  std::wstring description_;
  std::wstring pattern_ = L"SOLID";
  double patternScale_ = 1.0;
  double patternAngle_ = 0.0;
  int colorIndex_ = 7;
  int priority_ = 0;
};

// The key of the add-on's material dictionary in the named-object dictionary.
constexpr const wchar_t *kTolvMaterialDictionaryKey = L"TOLV_MATERIALS";

// The material dictionary of a drawing (null: the working database),
// opened in the mode asked for and made if the drawing lacks it; the caller
// closes it. Null when it can't be had.
AcDbDictionary *GetAecMaterialDictionary(AcDb::OpenMode mode, AcDbDatabase *db = nullptr);
// Makes sure every system material stands in the material dictionary;
// materials there already are left as they are. False when the dictionary
// can't be opened for write.
bool InitAecSysMaterial(AcDbDatabase *db = nullptr);
// Fills a material for a name: a system material gets its own data, any
// other name the data of a plain material (solid grey, lowest priority).
// True when the name is a system material's. False for a null material.
bool InitMaterialData(const wchar_t *name, KyDbMaterial *material);
// The names of the system materials, in their order, ending with null.
const wchar_t *const *KyDbSystemMaterialNames();
