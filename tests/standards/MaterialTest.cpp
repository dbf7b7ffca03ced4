// Materials by name in a drawing.
#include <gtest/gtest.h>

#include "StandardsFixture.h"
#include "platform/acad/AcDbDictionary.h"
#include "platform/dbobject/KyDbMaterial.h"
#include "standards/KyDtMaterial.h"

namespace {

class MaterialTest : public StandardsTest {
 protected:
  int MaterialCount() {
    AcDbDictionary *dict = GetAecMaterialDictionary(AcDb::kForRead, &db_);
    if (!dict) return -1;
    const int n = static_cast<int>(dict->numEntries());
    dict->close();
    return n;
  }
  int SystemCount() {
    int n = 0;
    for (const wchar_t *const *p = KyDbSystemMaterialNames(); *p; ++p) ++n;
    return n;
  }
};

TEST_F(MaterialTest, MakesAMaterialOnceAndFindsItAgain) {
  const AcDbObjectId id = KyDtInitMaterial(L"陶粒混凝土", &db_);
  ASSERT_FALSE(id.isNull());
  EXPECT_EQ(MaterialCount(), SystemCount() + 1);
  EXPECT_EQ(KyDtInitMaterial(L"陶粒混凝土", &db_), id);
  EXPECT_EQ(MaterialCount(), SystemCount() + 1);
  KyDbMaterial *m = nullptr;
  ASSERT_EQ(acdbOpenObject(m, id, AcDb::kForRead), Acad::eOk);
  EXPECT_STREQ(m->GetName(), L"陶粒混凝土");
  m->close();
}

TEST_F(MaterialTest, SystemMaterialIsFoundNotMadeAgain) {
  const AcDbObjectId id = KyDtInitMaterial(L"砖", &db_);
  ASSERT_FALSE(id.isNull());
  EXPECT_EQ(MaterialCount(), SystemCount());
  KyDbMaterial *m = nullptr;
  ASSERT_EQ(acdbOpenObject(m, id, AcDb::kForRead), Acad::eOk);
  EXPECT_STREQ(m->GetPatternName(), L"ANSI31");
  m->close();
}

TEST_F(MaterialTest, EmptyNameStillSeesToTheSystemMaterials) {
  EXPECT_TRUE(KyDtInitMaterial(L"", &db_).isNull());
  EXPECT_EQ(MaterialCount(), SystemCount());
  AcDbDatabase other;
  EXPECT_TRUE(KyDtInitMaterial(nullptr, &other).isNull());
}

TEST_F(MaterialTest, NullDatabaseMeansTheWorkingOne) {
  const AcDbObjectId id = KyDtInitMaterial(L"木材", nullptr);
  EXPECT_EQ(id.database(), &db_);
}

}  // namespace
