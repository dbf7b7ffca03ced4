// The bundled drawing library (share/support/DwgLib): read, saved and read
// again; every item's block loads into a drawing with its geometry; a
// drawing with inserted blocks passes an independent reader's checks.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <numbers>

#include "LibraryTestHelpers.h"
#include "platform/acad/AcDbBlockReference.h"
#include "platform/acad/AcDbBlockTableRecord.h"
#include "platform/acad/AcDbDatabase.h"
#include "platform/utility/SupportFiles.h"
#include "platform/windows/PathMap.h"
#include "platform/windows/TextCodec.h"

namespace fs = std::filesystem;

namespace {

constexpr const char *kPython = "/usr/bin/python3";

std::string Quote(const std::string &s) {
  std::string out = "'";
  for (char c : s) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return out + "'";
}

int RunChecker(const std::vector<std::string> &args, std::string &output) {
  std::string command = std::string(kPython) + " " + Quote(TOLV_SOURCE_DIR "/tests/library/library_check.py");
  for (const std::string &a : args) command += " " + Quote(a);
  command += " 2>&1";
  output.clear();
  FILE *pipe = ::popen(command.c_str(), "r");
  if (!pipe) return -1;
  char buffer[4096];
  std::size_t n;
  while ((n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0) output.append(buffer, n);
  int status = ::pclose(pipe);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// A copy of the bundled support folder as the main directory.
class BundledLibrary : public ::testing::Test {
 protected:
  void SetUp() override {
    fs::copy(fs::path(TOLV_SOURCE_DIR) / "share" / "support", support(), fs::copy_options::recursive);
    tolv::SetMainDirectory(tolv::ToSystemPath(support().string()));
  }
  void TearDown() override { tolv::SetMainDirectory(L""); }
  fs::path support() const { return work_.path() / "support"; }
  CString GroupFile() const { return KyDtLibBlockDef(L"", L"", L"ARCH").GetDmlsFile(); }

  // Reads the group and its libraries.
  void ReadGroup(KyDtDwgLibGroup &group) {
    group.SetFileName(GroupFile());
    ASSERT_TRUE(group.ReadFromXML());
    group.ReadLibFromXML();
  }

  tolvtest::ScratchDir work_{"bundled"};
};

std::size_t EntityCount(AcDbObjectId blockId) {
  AcDbBlockTableRecord *block = nullptr;
  if (acdbOpenObject(block, blockId, AcDb::kForRead) != Acad::eOk) return 0;
  const std::size_t n = block->entityIds().size();
  block->close();
  return n;
}

// The block names of every item of a library, from its data files.
std::vector<CString> BlockNames(KyDtLib &lib) {
  KyDynArray<KyDtLibItem *> items;
  lib.FindItem(L"file", L"*", items);
  std::vector<CString> names;
  CString stem = lib.GetFileName().Mid(lib.GetFilePath().GetLength());
  stem = stem.Left(stem.GetLength() - 4);
  for (std::int32_t i = 0; i < items.GetLength(); ++i) {
    KyDtLibBlockDef def;
    def.SetFromDwgFile(lib.GetFilePath() + stem + L"\\" + items.GetAt(i)->GetDataFile());
    names.push_back(def.GetBlockName());
  }
  return names;
}

}  // namespace

TEST_F(BundledLibrary, GroupHoldsThreeLibrariesOfADozenItemsWithAttributes) {
  KyDtDwgLibGroup group;
  ReadGroup(group);
  ASSERT_EQ(group.GetLength(), 3);
  const wchar_t *names[] = {L"Doors", L"Windows", L"Furniture and fixtures"};
  for (std::int32_t i = 0; i < 3; ++i) {
    KyDtLib *lib = group.GetAt(i);
    EXPECT_EQ(lib->GetAttributeValue(L"name_en"), CString(names[i]));
    KyDynArray<KyDtLibItem *> items;
    lib->FindItem(L"file", L"*", items);
    EXPECT_EQ(items.GetLength(), 12) << libtest::Dump(*lib).size();
    KyDynArray<KyDtLibDirectory *> dirs;
    lib->FindDirectory(L"name", L"*", dirs);
    EXPECT_GE(dirs.GetLength(), 4);
    for (std::int32_t k = 0; k < items.GetLength(); ++k) {
      for (const wchar_t *key : {L"width", L"type", L"desc", L"desc_en"}) {
        EXPECT_FALSE(items.GetAt(k)->GetAttributeValue(key).IsEmpty()) << items.GetAt(k)->GetName().str();
      }
    }
  }
  // A search across the nested bathroom directory.
  KyDtLibItem *basin = group.GetAt(2)->FindItem(L"type", L"washbasin");
  ASSERT_NE(basin, nullptr);
  EXPECT_EQ(basin->GetAttributeValue(L"desc"), CString(L"\x6d17\x8138\x76c6"));
  EXPECT_EQ(group.GetAt(2)->Find(L"TOILET")->GetName(), CString(L"TOILET"));
  KyDtAttributeList doors;
  doors.Add(L"type", L"double swing");
  doors.Add(L"width", L"1500");
  EXPECT_EQ(group.GetAt(0)->FindItem(doors)->GetName(), CString(L"SM1521"));
}

TEST_F(BundledLibrary, SavedAndReadAgainGivesTheSameTrees) {
  KyDtDwgLibGroup group;
  ReadGroup(group);
  std::vector<std::wstring> before;
  for (std::int32_t i = 0; i < group.GetLength(); ++i) before.push_back(libtest::Dump(*group.GetAt(i)));
  group.SaveLibToXML();
  ASSERT_TRUE(group.SaveToXML());
  KyDtDwgLibGroup back;
  ReadGroup(back);
  ASSERT_EQ(back.GetLength(), group.GetLength());
  for (std::int32_t i = 0; i < back.GetLength(); ++i) {
    EXPECT_EQ(libtest::Dump(*back.GetAt(i)), before[static_cast<std::size_t>(i)]);
    EXPECT_EQ(back.GetAt(i)->GetFileName(), group.GetAt(i)->GetFileName());
    EXPECT_EQ(back.GetAt(i)->GetNextFileIndex(), group.GetAt(i)->GetNextFileIndex());
  }
  // The group file names its libraries by file name alone.
  const std::string text = tolvtest::ReadFileBytes(support() / "DwgLib/ARCH/LibGroup.DMLS");
  EXPECT_NE(text.find("<TolvDwgLib>DOOR.DML</TolvDwgLib>"), std::string::npos) << text;
}

TEST_F(BundledLibrary, EveryItemsBlockLoadsWithItsGeometry) {
  KyDtDwgLibGroup group;
  ReadGroup(group);
  AcDbDatabase db;
  int loaded = 0;
  for (std::int32_t i = 0; i < group.GetLength(); ++i) {
    for (const CString &name : BlockNames(*group.GetAt(i))) {
      AcDbObjectId id = KyDtInitBlock(name, &db);
      ASSERT_FALSE(id.isNull()) << name.str();
      EXPECT_GE(EntityCount(id), 4u) << name.str();
      EXPECT_EQ(KyDtInitBlock(name, &db), id);
      ++loaded;
    }
  }
  EXPECT_EQ(loaded, 36);
}

TEST_F(BundledLibrary, PreviewsFollowTheOrderOfExtensions) {
  CString image;
  ASSERT_TRUE(KyDtGetSysBlkImage(L"ARCH$FURNITURE$WASHBASIN", image));
  EXPECT_EQ(image.Right(13).str(), L"WASHBASIN.slb");  // beside a .jpg
  ASSERT_TRUE(KyDtGetSysBlkImage(L"ARCH$FURNITURE$BED1520", image));
  EXPECT_EQ(image.Right(4), CString(L".jpg"));
  ASSERT_TRUE(KyDtGetSysBlkImage(L"ARCH$FURNITURE$SOFA", image));
  EXPECT_EQ(image.Right(5), CString(L".jpeg"));
  ASSERT_TRUE(KyDtGetSysBlkImage(L"ARCH$DOOR$M0921", image));
  EXPECT_EQ(image.Right(4), CString(L".bmp"));
  ASSERT_TRUE(KyDtGetSysBlkImage(L"ARCH$DOOR$TLM1521", image));
  EXPECT_EQ(image.Right(11), CString(L"TLM1521.dwg"));  // no picture: the drawing
  EXPECT_FALSE(KyDtGetSysBlkImage(L"ARCH$DOOR$NOSUCH", image));
}

TEST_F(BundledLibrary, DrawingWithInsertedBlocksPassesEzdxf) {
  if (::access(kPython, X_OK) != 0) {
    GTEST_SKIP() << "SKIPPED: " << kPython << " is missing, so the drawing can't be checked by ezdxf; "
                 << "install python3 and python3-ezdxf (make test does) to run this check";
  }
  ASSERT_EQ(::system((std::string(kPython) + " -c 'import ezdxf' 2>/dev/null").c_str()), 0)
      << "python3 is here but ezdxf is not: install python3-ezdxf (make test does)";
  struct Placed {
    const wchar_t *name;
    double x, y, degrees;
  };
  const Placed placed[] = {{L"ARCH$DOOR$M0921", 0, 0, 0},
                           {L"ARCH$WINDOW$C1515", 1500, 4000, 0},
                           {L"ARCH$FURNITURE$BED1520", 600, 2000, 90},
                           {L"ARCH$FURNITURE$WASHBASIN", 5000, 1000, 180},
                           {L"ARCH$DOOR$M0921", 3000, 0, 270}};
  AcDbDatabase db;
  std::string json = "{\"blocks\": {";
  std::string inserts = "\"inserts\": [";
  std::vector<std::wstring> seen;
  for (const Placed &p : placed) {
    AcDbObjectId blockId = KyDtInitBlock(p.name, &db);
    ASSERT_FALSE(blockId.isNull());
    AcDbBlockTableRecord *ms = nullptr;
    ASSERT_EQ(acdbOpenObject(ms, db.modelSpaceId(), AcDb::kForWrite), Acad::eOk);
    auto *insert = new AcDbBlockReference(AcGePoint3d(p.x, p.y, 0), blockId);
    ASSERT_EQ(ms->appendAcDbEntity(insert), Acad::eOk);
    insert->setRotation(p.degrees * std::numbers::pi / 180.0);
    EXPECT_EQ(insert->blockTableRecord(), blockId);
    insert->close();
    ms->close();
    if (std::find(seen.begin(), seen.end(), p.name) == seen.end()) {
      json += std::string(seen.empty() ? "" : ", ") + "\"" + tolv::ToUtf8(p.name) +
              "\": " + std::to_string(EntityCount(blockId));
      seen.push_back(p.name);
    }
    char row[200];
    std::snprintf(row, sizeof row, "%s[\"%s\", %g, %g, %g]", inserts.back() == '[' ? "" : ", ",
                  tolv::ToUtf8(p.name).c_str(), p.x, p.y, p.degrees);
    inserts += row;
  }
  json += "}, " + inserts + "]}";
  const fs::path drawing = work_.path() / "placed.dxf";
  ASSERT_EQ(db.saveAs(tolv::ToSystemPath(drawing.string()).c_str()), Acad::eOk);
  tolvtest::WriteFileBytes(work_.path() / "expect.json", json);
  std::string out;
  const int rc = RunChecker({drawing.string(), (work_.path() / "expect.json").string()}, out);
  std::cout << "ezdxf check of a drawing with library blocks:\n" << out;
  EXPECT_EQ(rc, 0) << out;
  EXPECT_NE(out.find("\nOK"), std::string::npos) << out;
  // Read back by the stand-in, the inserts find their blocks again.
  AcDbDatabase back(false, false);
  ASSERT_EQ(back.readDwgFile(tolv::ToSystemPath(drawing.string()).c_str()), Acad::eOk);
  AcDbBlockTableRecord *ms = nullptr;
  ASSERT_EQ(acdbOpenObject(ms, back.modelSpaceId(), AcDb::kForRead), Acad::eOk);
  std::vector<AcDbObjectId> ids = ms->entityIds();
  ms->close();
  ASSERT_EQ(ids.size(), 5u);
  AcDbBlockReference *ref = nullptr;
  ASSERT_EQ(acdbOpenObject(ref, ids[2], AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(ref->blockName(), L"ARCH$FURNITURE$BED1520");
  EXPECT_FALSE(ref->blockTableRecord().isNull());
  EXPECT_NEAR(ref->rotation(), std::numbers::pi / 2, 1e-12);
  EXPECT_EQ(ref->position().x, 600.0);
  ref->close();
}
