// Drawings of the stand-in host checked by an independent reader, ezdxf
// of Debian's python3-ezdxf: its audit must find nothing, and every name
// and value must read back as written. Where that reader writes a drawing,
// the stand-in must read it, save it, and the reader must see the same.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <sstream>

#include "DbTestHelpers.h"
#include "platform/acad/AcDbDictionary.h"
#include "platform/acad/AdsResbuf.h"
#include "platform/dbobject/KyDbLayerMakers.h"
#include "platform/dbobject/KyDbMaterial.h"
#include "platform/dbobject/KyDbStyleMakers.h"
#include "platform/utility/SupportFiles.h"
#include "platform/windows/PathMap.h"
#include "platform/windows/TextCodec.h"
#include "support/TestSupport.h"

namespace {

// Debian's interpreter: the one python3-ezdxf is installed for.
constexpr const char *kPython = "/usr/bin/python3";

std::string Quote(const std::string &s) {
  std::string out = "'";
  for (char c : s) {
    if (c == '\'') {
      out += "'\\''";
    } else {
      out += c;
    }
  }
  return out + "'";
}

// Runs the checker script; its output and exit status.
int RunChecker(const std::vector<std::string> &args, std::string &output) {
  std::string command = std::string(kPython) + " " + Quote(TOLV_SOURCE_DIR "/tests/acad/ezdxf_check.py");
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

class IndependentReader : public testing::Test {
 protected:
  void SetUp() override {
    if (::access(kPython, X_OK) != 0) {
      GTEST_SKIP() << "SKIPPED: " << kPython << " is missing, so the drawings can't be checked by ezdxf; "
                   << "install python3 and python3-ezdxf (make test does) to run these checks";
    }
    std::string out;
    int rc = ::system((std::string(kPython) + " -c 'import ezdxf' 2>/dev/null").c_str());
    ASSERT_EQ(rc, 0) << "python3 is here but ezdxf is not: install python3-ezdxf (make test does)";
    tolv::SetMainDirectory(tolv::ToSystemPath(TOLV_SOURCE_DIR "/share/support"));
  }
  void TearDown() override { tolv::SetMainDirectory(L""); }
};

std::string Json(const std::wstring &text) {
  std::string utf8 = tolv::ToUtf8(text);
  std::string out = "\"";
  for (char c : utf8) {
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else {
      out += c;
    }
  }
  return out + "\"";
}

AcDbObjectId StyledLayer(AcDbDatabase &db, const wchar_t *name, int color, const wchar_t *linetype,
                         AcDb::LineWeight weight) {
  // The data layer's order: the layer, then its line type, then the styling.
  AcDbObjectId id = InitLayer(name, color, &db);
  AcDbObjectId lt = InitLineType(linetype, &db);
  EXPECT_FALSE(lt.isNull()) << "line type " << tolv::ToUtf8(linetype);
  AcDbObject *obj = nullptr;
  if (!lt.isNull() && acdbOpenAcDbObject(obj, id, AcDb::kForWrite) == Acad::eOk) {
    auto *layer = AcDbLayerTableRecord::cast(obj);
    layer->setLinetypeObjectId(lt);
    layer->setLineWeight(weight);
    obj->close();
  }
  return id;
}

AcDbObjectId TextStyle(AcDbDatabase &db, const wchar_t *name, const wchar_t *font, const wchar_t *bigFont,
                       double width, double ecY, double ecX, int color) {
  auto *record = new AcDbTextStyleTableRecord;
  record->setName(name);
  record->setFileName(font);
  record->setBigFontFileName(bigFont);
  record->setXScale(width);
  AcDbObjectId id = AddTextStyle(record, 0, &db);
  resbuf *xdata = acutBuildList(1001, L"_MRV", 1040, ecY, 1040, ecX, 1070, color, 0);
  AssureRegApp(L"_MRV", &db);
  EXPECT_EQ(record->setXData(xdata), Acad::eOk);
  acutRelRb(xdata);
  record->close();
  return id;
}

AcDbObjectId DimStyle(AcDbDatabase &db, const wchar_t *name, const wchar_t *arrow, AcDbObjectId textStyle,
                      bool angular) {
  // Every setter the data layer calls, in its order.
  auto *r = new AcDbDimStyleTableRecord;
  r->setDimblk(arrow);
  r->setName(name);
  r->setDimgap(1.0);
  r->setDimtxt(3.5);
  r->setDimtxsty(textStyle);
  r->setDimexe(2.0);
  r->setDimexo(3.0);
  r->setDimasz(1.5);
  r->setDimscale(1.0);
  r->setDimdli(0.0);
  r->setDimtofl(true);
  r->setDimtmove(2);
  r->setDimtdec(0);
  r->setDimdec(0);
  r->setDimaunit(0);
  r->setDimadec(2);
  r->setDimazin(2);
  r->setDimtoh(false);
  r->setDimtad(1);
  r->setDimtix(true);
  r->setDimtih(false);
  r->setDimdle(0.5);
  r->setDimgap(0.8);
  if (angular) {
    r->setDimtad(3);
  } else {
    r->setDimlfac(0.001);
    r->setDimdec(2);
    r->setDimpost(L"m");
  }
  AcCmColor color;
  color.setColorIndex(3);
  r->setDimclrt(color);
  return AddDimStyle(r, 1, &db);
}

AcDbObjectId CustomMaterial(AcDbDatabase &db, const wchar_t *name) {
  InitAecSysMaterial(&db);
  AcDbDictionary *dict = GetAecMaterialDictionary(AcDb::kForRead, &db);
  AcDbObjectId id;
  if (dict->getAt(name, id) == Acad::eKeyNotFound && dict->upgradeOpen() == Acad::eOk) {
    auto *m = new KyDbMaterial;
    InitMaterialData(name, m);
    if (dict->setAt(name, m, id) == Acad::eOk) {
      m->close();
    } else {
      delete m;
    }
  }
  dict->close();
  return id;
}

// The drawing of the check, with the block drawing made by the reader.
void BuildDrawing(AcDbDatabase &db, const tolvtest::ScratchDir &dir) {
  std::string out;
  ASSERT_EQ(RunChecker({"make-block", (dir.path() / "WIN1.dxf").string()}, out), 0) << out;
  StyledLayer(db, L"WALL", 1, L"CONTINUOUS", AcDb::kLnWt050);
  StyledLayer(db, L"AXIS", 2, L"CENTER", AcDb::kLnWt018);
  StyledLayer(db, L"墙-隐藏", 8, L"HIDDEN", AcDb::kLnWt030);
  AcDbObjectId dimText = TextStyle(db, L"TOLV_DIM", L"simplex.shx", L"hztxt.shx", 0.7, 0.8, 0.7, 3);
  TextStyle(db, L"TOLV_汉字", L"txt.shx", L"gbcbig.shx", 1.0, 1.0, 1.0, 5);
  DimStyle(db, L"DIM(mm-M)", L"_ARCHTICK", dimText, false);
  DimStyle(db, L"ANGLE", L"", dimText, true);
  AcDbDatabase source(false, false);
  ASSERT_EQ(source.readDwgFile((dir.wide("WIN1.DWG")).c_str(), 64, false, nullptr), Acad::eOk);
  AcDbObjectId block;
  ASSERT_EQ(db.insert(block, L"WINDOW$WIN1", &source, false), Acad::eOk);
  CustomMaterial(db, L"花岗岩");
  acadtest::AddLine(db, db.modelSpaceId(), AcGePoint3d(0, 0, 0), AcGePoint3d(6000, 0, 0), L"WALL");
}

std::string Expectations() {
  std::ostringstream j;
  j << "{\n\"version\": \"AC1015\",\n";
  j << "\"layers\": [{\"name\": \"0\", \"color\": 7},\n"
       " {\"name\": \"WALL\", \"color\": 1, \"linetype\": \"Continuous\", \"lineweight\": 50},\n"
       " {\"name\": \"AXIS\", \"color\": 2, \"linetype\": \"CENTER\", \"lineweight\": 18},\n"
    << " {\"name\": " << Json(L"墙-隐藏") << ", \"color\": 8, \"linetype\": \"HIDDEN\", \"lineweight\": 30},\n"
    << " {\"name\": \"WINDOW_FRAME\", \"color\": 4}, {\"name\": \"GLASS\", \"color\": 5}],\n";
  j << "\"linetypes\": [{\"name\": \"CENTER\", \"description\": \"Center ____ _ ____ _ ____ _\","
       " \"pattern\": [32, -6, 6, -6], \"length\": 50},\n"
       " {\"name\": \"HIDDEN\", \"description\": \"Hidden _ _ _ _ _ _ _ _ _\", \"pattern\": [6, -3], \"length\": 9},\n"
       " {\"name\": \"BLOCK_DASH\", \"pattern\": [5.0, -2.5], \"length\": 7.5}],\n";
  j << "\"styles\": [{\"name\": \"TOLV_DIM\", \"font\": \"simplex.shx\", \"bigfont\": \"hztxt.shx\", \"width\": 0.7,"
       " \"xdata\": {\"_MRV\": [[1040, 0.8], [1040, 0.7], [1070, 3]]}},\n"
    << " {\"name\": " << Json(L"TOLV_汉字") << ", \"font\": \"txt.shx\", \"bigfont\": \"gbcbig.shx\", \"width\": 1.0,"
    << " \"xdata\": {\"_MRV\": [[1040, 1.0], [1040, 1.0], [1070, 5]]}},\n"
       " {\"name\": \"BLOCK_TEXT\", \"font\": \"simplex.shx\"}],\n";
  j << "\"appids\": [\"ACAD\", \"_MRV\"],\n";
  std::string common =
      "\"dimgap\": 0.8, \"dimtxt\": 3.5, \"dimexe\": 2.0, \"dimexo\": 3.0, \"dimasz\": 1.5, \"dimscale\": 1.0,"
      " \"dimdli\": 0.0, \"dimtofl\": 1, \"dimtmove\": 2, \"dimtdec\": 0, \"dimaunit\": 0, \"dimadec\": 2,"
      " \"dimazin\": 2, \"dimtoh\": 0, \"dimtix\": 1, \"dimtih\": 0, \"dimdle\": 0.5, \"dimclrt\": 3";
  j << "\"dimstyles\": [{\"name\": \"DIM(mm-M)\", \"dimtxsty\": \"TOLV_DIM\", \"dimblk\": \"_ARCHTICK\", \"vars\": {"
    << common << ", \"dimtad\": 1, \"dimdec\": 2, \"dimlfac\": 0.001, \"dimpost\": \"m\"}},\n"
    << " {\"name\": \"ANGLE\", \"dimtxsty\": \"TOLV_DIM\", \"vars\": {" << common
    << ", \"dimtad\": 3, \"dimdec\": 0, \"dimlfac\": 1.0}}],\n";
  j << "\"blocks\": [{\"name\": \"WINDOW$WIN1\", \"types\": [\"LINE\", \"LINE\", \"CIRCLE\", \"LWPOLYLINE\", \"TEXT\"],"
       " \"layers\": [\"WINDOW_FRAME\", \"WINDOW_FRAME\", \"GLASS\", \"GLASS\", \"WINDOW_FRAME\"]},\n"
       " {\"name\": \"_ARCHTICK\", \"types\": [\"LINE\"]}],\n";
  j << "\"modelspace\": [\"LINE\"],\n";
  j << "\"dictionaries\": [{\"path\": [\"TOLV_MATERIALS\"], \"keys\": [";
  bool first = true;
  for (const wchar_t *const *n = KyDbSystemMaterialNames(); *n; ++n) {
    j << (first ? "" : ", ") << Json(*n);
    first = false;
  }
  j << ", " << Json(L"花岗岩") << "],\n \"entries\": {" << Json(L"钢")
    << ": {\"type\": \"TOLVMATERIAL\", \"tags\": {\"1\": " << Json(L"钢")
    << ", \"3\": \"Steel\", \"2\": \"STEEL\", \"40\": 1.0, \"62\": 5, \"90\": 100}},\n  " << Json(L"花岗岩")
    << ": {\"type\": \"TOLVMATERIAL\", \"tags\": {\"1\": " << Json(L"花岗岩")
    << ", \"2\": \"SOLID\", \"90\": 0}}}}]\n}\n";
  return j.str();
}

}  // namespace

TEST_F(IndependentReader, AuditsCleanAndReadsBackEveryNameAndValue) {
  tolvtest::ScratchDir dir("ezdxf_check");
  AcDbDatabase db;
  BuildDrawing(db, dir);
  ASSERT_EQ(db.saveAs(dir.wide("standards.dxf").c_str()), Acad::eOk);
  tolvtest::WriteFileBytes(dir.path() / "expect.json", Expectations());
  std::string out;
  int rc = RunChecker({"check", (dir.path() / "standards.dxf").string(), (dir.path() / "expect.json").string()}, out);
  std::cout << "ezdxf check of the stand-in's drawing:\n" << out;
  EXPECT_EQ(rc, 0) << out;
  EXPECT_NE(out.find("audit: 0 errors"), std::string::npos) << out;
  EXPECT_EQ(out.find("FAIL"), std::string::npos) << out;
  EXPECT_NE(out.rfind("OK\n"), std::string::npos);
}

TEST_F(IndependentReader, OurDrawingReadAndSavedAgainLooksTheSame) {
  tolvtest::ScratchDir dir("ezdxf_ours");
  AcDbDatabase db;
  BuildDrawing(db, dir);
  ASSERT_EQ(db.saveAs(dir.wide("first.dxf").c_str()), Acad::eOk);
  AcDbDatabase back(false, false);
  ASSERT_EQ(back.readDwgFile(dir.wide("first.dxf").c_str()), Acad::eOk);
  ASSERT_EQ(back.saveAs(dir.wide("second.dxf").c_str()), Acad::eOk);
  std::string out;
  int rc = RunChecker({"compare", (dir.path() / "first.dxf").string(), (dir.path() / "second.dxf").string()}, out);
  std::cout << "ezdxf comparison, ours read and saved again:\n" << out;
  EXPECT_EQ(rc, 0) << out;
}

TEST_F(IndependentReader, TheReadersOwnDrawingReadAndSavedLooksTheSame) {
  tolvtest::ScratchDir dir("ezdxf_theirs");
  std::string out;
  ASSERT_EQ(RunChecker({"make-sample", (dir.path() / "sample.dxf").string()}, out), 0) << out;
  AcDbDatabase db(false, false);
  ASSERT_EQ(db.readDwgFile(dir.wide("SAMPLE.DWG").c_str()), Acad::eOk);
  ASSERT_EQ(db.saveAs(dir.wide("resaved.dxf").c_str()), Acad::eOk);
  int rc = RunChecker({"compare", (dir.path() / "sample.dxf").string(), (dir.path() / "resaved.dxf").string()}, out);
  std::cout << "ezdxf comparison, its own drawing read and saved by the stand-in:\n" << out;
  EXPECT_EQ(rc, 0) << out;
  // And the resaved drawing reads back into the stand-in once more.
  AcDbDatabase again(false, false);
  EXPECT_EQ(again.readDwgFile(dir.wide("resaved.dxf").c_str()), Acad::eOk);
}

TEST_F(IndependentReader, TheCheckerNoticesWrongValues) {
  // The check above means something only if a wrong expectation fails.
  tolvtest::ScratchDir dir("ezdxf_wrong");
  AcDbDatabase db;
  BuildDrawing(db, dir);
  ASSERT_EQ(db.saveAs(dir.wide("standards.dxf").c_str()), Acad::eOk);
  std::string wrong = Expectations();
  auto replace = [&](const std::string &from, const std::string &to) {
    std::size_t at = wrong.find(from);
    ASSERT_NE(at, std::string::npos) << from;
    wrong.replace(at, from.size(), to);
  };
  replace("\"name\": \"WALL\", \"color\": 1", "\"name\": \"WALL\", \"color\": 2");
  replace("[[1040, 0.8], [1040, 0.7], [1070, 3]]", "[[1040, 0.8], [1040, 0.7], [1070, 4]]");
  replace("\"dimlfac\": 0.001", "\"dimlfac\": 0.01");
  replace("\"90\": 100", "\"90\": 99");
  replace("\"_ARCHTICK\", \"types\": [\"LINE\"]", "\"_ARCHTICK\", \"types\": [\"CIRCLE\"]");
  tolvtest::WriteFileBytes(dir.path() / "wrong.json", wrong);
  std::string out;
  int rc = RunChecker({"check", (dir.path() / "standards.dxf").string(), (dir.path() / "wrong.json").string()}, out);
  EXPECT_EQ(rc, 1);
  EXPECT_NE(out.find("FAIL: layer WALL color: got 1, want 2"), std::string::npos) << out;
  EXPECT_NE(out.find("xdata _MRV[2] value: got 3, want 4"), std::string::npos) << out;
  EXPECT_NE(out.find("dimlfac: got 0.001, want 0.01"), std::string::npos) << out;
  EXPECT_NE(out.find("group 90: got 100, want 99"), std::string::npos) << out;
  EXPECT_NE(out.find("block _ARCHTICK entity types"), std::string::npos) << out;
  EXPECT_NE(out.find("FAILED (5)"), std::string::npos) << out;
}
