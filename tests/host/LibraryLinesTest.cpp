// The library's host lines (BLOCK, INSERTBLOCK) and `tolv lib`, run through
// the host program on a copy of the bundled support folder.
#include <gtest/gtest.h>

#include <filesystem>

#include "HostProcess.h"
#include "support/TestSupport.h"

namespace {

namespace fs = std::filesystem;

class LibraryLines : public ::testing::Test {
 protected:
  LibraryLines() {
    fs::copy(fs::path(TOLV_SOURCE_DIR) / "share" / "support", support(), fs::copy_options::recursive);
  }
  fs::path support() const { return work_.path() / "support"; }
  fs::path group() const { return support() / "DwgLib" / "ARCH" / "LibGroup.DMLS"; }
  HostRun Host(const std::string &script, const std::string &drawing = "") {
    const std::string path = (work_.path() / "lines.scr").string();
    tolvtest::WriteFileBytes(path, script);
    std::vector<std::string> args{"host", "--module", TOLV_MODULE_PATH, "--main-dir", support().string()};
    if (!drawing.empty()) {
      args.insert(args.end(), {"--drawing", drawing, "--save-on-quit"});
    }
    args.insert(args.end(), {"--script", path});
    return RunHostProgram(args, work_.str());
  }
  HostRun Lib(std::vector<std::string> args) {
    args.insert(args.begin(), "lib");
    return RunHostProgram(args, work_.str());
  }

  tolvtest::ScratchDir work_{"library_lines"};
};

TEST_F(LibraryLines, BlockLoadsOnceAndInsertBlockPlacesInModelSpace) {
  const std::string drawing = (work_.path() / "placed.dxf").string();
  HostRun run = Host(
      "BLOCK ARCH$DOOR$M0921\nblock arch$door$m0921\n"
      "INSERTBLOCK ARCH$DOOR$M0921 100 200\nINSERTBLOCK ARCH$FURNITURE$BED1520 1000 2000 90\nQUIT\n",
      drawing);
  ASSERT_EQ(run.status, 0) << run.out << run.err;
  EXPECT_NE(run.out.find("block ARCH$DOOR$M0921: 11 entities"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("inserted ARCH$DOOR$M0921 at 100,200, rotated 0"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("inserted ARCH$FURNITURE$BED1520 at 1000,2000, rotated 90"), std::string::npos) << run.out;
  const std::string dxf = tolvtest::ReadFileBytes(drawing);
  EXPECT_NE(dxf.find("\nINSERT"), std::string::npos);
  EXPECT_NE(dxf.find("ARCH$FURNITURE$BED1520"), std::string::npos);
  EXPECT_NE(dxf.find("AcDbBlockReference"), std::string::npos);
}

TEST_F(LibraryLines, MissingBlockAndBadArgumentsFailTheLine) {
  HostRun run = Host(
      "BLOCK ARCH$DOOR$NOSUCH\nBLOCK\nINSERTBLOCK ARCH$DOOR$M0921 x 0\nINSERTBLOCK ARCH$DOOR$M0921 0\n"
      "INSERTBLOCK $ 0 0\nINSERTBLOCK ARCH$DOOR$M0921 0 0 1e999\nQUIT\n");
  EXPECT_EQ(run.status, 3) << run.out;
  EXPECT_NE(run.out.find("ARCH$DOOR$NOSUCH: no block"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("BLOCK needs one block name"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("INSERTBLOCK needs a block name, X, Y"), std::string::npos) << run.out;
  EXPECT_EQ(run.out.find("inserted"), std::string::npos) << run.out;
}

TEST_F(LibraryLines, HelpListsTheLibraryLines) {
  HostRun run = Host("HELP\n");
  ASSERT_EQ(run.status, 0) << run.out;
  EXPECT_NE(run.out.find("BLOCK NAME"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("INSERTBLOCK NAME X Y [ANGLE]"), std::string::npos) << run.out;
}

TEST_F(LibraryLines, LibShowsTheGroupTreeWithBlocksAndImages) {
  HostRun run = Lib({group().string()});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("TolvDwgLibGroup \"\xe5\xbb\xba\xe7\xad\x91\xe5\x9b\xbe\xe5\xba\x93\""), std::string::npos)
      << run.out;
  EXPECT_NE(run.out.find("3 libraries"), std::string::npos);
  EXPECT_NE(run.out.find("block ARCH$FURNITURE$WASHBASIN"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("WASHBASIN.slb"), std::string::npos) << run.out;
  EXPECT_EQ(run.out.find("WASHBASIN.jpg"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("TLM1521.dwg (no picture: the drawing itself)"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("desc_en=single swing door 900 x 2100"), std::string::npos) << run.out;
}

TEST_F(LibraryLines, LibFindsByAttributesWithStar) {
  HostRun run = Lib({group().string(), "--find", "type=double swing", "--find", "width=*", "--items"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("SM1221"), std::string::npos);
  EXPECT_NE(run.out.find("SM1821"), std::string::npos);
  EXPECT_EQ(run.out.find("M0921"), std::string::npos);
  EXPECT_NE(run.out.find("3 matches"), std::string::npos) << run.out;
  HostRun dirs = Lib({(support() / "DwgLib/ARCH/FURNITURE.DML").string(), "--dirs"});
  ASSERT_EQ(dirs.status, 0);
  EXPECT_NE(dirs.out.find("name_en=Sanitary"), std::string::npos) << dirs.out;
  EXPECT_EQ(dirs.out.find("BED1520"), std::string::npos) << dirs.out;
  HostRun none = Lib({group().string(), "--find", "type=Double swing"});
  EXPECT_EQ(none.status, 1);
  EXPECT_NE(none.out.find("0 matches"), std::string::npos);
}

TEST_F(LibraryLines, LibRejectsMissingMalformedAndForeignFiles) {
  HostRun missing = Lib({(work_.path() / "none.DML").string()});
  EXPECT_EQ(missing.status, 2);
  EXPECT_NE(missing.err.find("none.DML: no such file"), std::string::npos) << missing.err;
  tolvtest::WriteFileBytes(work_.path() / "bad.DML", "<TolvDwgLib><Item></TolvDwgLib>");
  HostRun bad = Lib({(work_.path() / "bad.DML").string()});
  EXPECT_EQ(bad.status, 2);
  EXPECT_NE(bad.err.find("bad.DML: not well-formed XML"), std::string::npos) << bad.err;
  HostRun foreign = Lib({(support() / "config.xml").string()});
  EXPECT_EQ(foreign.status, 2);
  EXPECT_NE(foreign.err.find("<TolvDictionary> is no library"), std::string::npos) << foreign.err;
  tolvtest::WriteFileBytes(work_.path() / "lib.DMLS", "<TolvDwgLib/>");
  HostRun swapped = Lib({(work_.path() / "lib.DMLS").string()});
  EXPECT_EQ(swapped.status, 2);
  EXPECT_NE(swapped.err.find("<TolvDwgLib> is no library group"), std::string::npos) << swapped.err;
  EXPECT_EQ(Lib({}).status, 2);
  EXPECT_EQ(Lib({"--find"}).status, 2);
  EXPECT_EQ(Lib({"a.DML", "--items", "--dirs"}).status, 2);
  EXPECT_EQ(Lib({"a.DML", "--bogus"}).status, 2);
  HostRun help = Lib({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_NE(help.out.find("usage: tolv lib FILE"), std::string::npos);
}

TEST_F(LibraryLines, LibReportsAGroupsUnreadableLibraryAndGoesOn) {
  fs::remove(support() / "DwgLib/ARCH/WINDOW.DML");
  HostRun run = Lib({group().string()});
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.err.find("WINDOW.DML: can't be read as <TolvDwgLib>"), std::string::npos) << run.err;
  EXPECT_NE(run.out.find("ARCH$FURNITURE$SOFA"), std::string::npos);
}

}  // namespace

namespace {

TEST_F(LibraryLines, LibShowsADeepTreeWithLevelNumbersAndLongValues) {
  std::string xml = "<TolvWordLib name=\"deep\">";
  for (int i = 0; i < 10000; ++i) xml += "<Directory name=\"d\">";
  xml += "<Item name=\"leaf\" file=\"leaf.DWG\" text=\"" + std::string(100000, 'w') + "\"/>";
  for (int i = 0; i < 10000; ++i) xml += "</Directory>";
  xml += "</TolvWordLib>";
  tolvtest::WriteFileBytes(work_.path() / "deep.DML", xml);
  HostRun run = Lib({(work_.path() / "deep.DML").string(), "--find", "text=*"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("TolvWordLib \"deep\""), std::string::npos);
  EXPECT_NE(run.out.find("1 match"), std::string::npos);
  HostRun tree = Lib({(work_.path() / "deep.DML").string()});
  ASSERT_EQ(tree.status, 0) << tree.err;
  EXPECT_NE(tree.out.find("(level 10001) leaf"), std::string::npos);
  EXPECT_LT(tree.out.size(), 10000u * 100u + 200000u);
}

}  // namespace
