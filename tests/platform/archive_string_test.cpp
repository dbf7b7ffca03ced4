// The archive's string forms: marker, stepped length, UTF-16 units; the
// narrow form on reading; and what truncated or hostile streams give.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cstdint>
#include <string>
#include <vector>

#include "archive_test_util.h"
#include "platform/mfc/CArchive.h"
#include "platform/mfc/CMemFile.h"
#include "platform/windows/TextCodec.h"

using archivetest::ArchiveCause;
using archivetest::Hex;
using archivetest::Load;
using archivetest::Stored;

namespace {

std::string StoredString(const CString &text) {
  return Stored([&](CArchive &ar) { ar << text; });
}

CString LoadedString(const std::string &bytes) {
  CString text = L"preset";
  Load(bytes, [&](CArchive &ar) { ar >> text; });
  return text;
}

std::string Repeat(const std::string &piece, std::size_t times) {
  std::string s;
  s.reserve(piece.size() * times);
  for (std::size_t i = 0; i < times; ++i) s += piece;
  return s;
}

// The wide form's header for `length` units, written by the length helper.
std::string WideHeader(ULONGLONG length) {
  return Stored([&](CArchive &ar) { AfxWriteStringLength(ar, length, true); });
}

long MaxResidentKilobytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

}  // namespace

TEST(CArchiveString, EmptyStringIsFourBytes) {
  EXPECT_EQ(Hex(StoredString(CString())), "FF FE FF 00");
  EXPECT_EQ(LoadedString(StoredString(CString())), CString());
}

TEST(CArchiveString, CharactersAreUtf16LittleEndian) {
  EXPECT_EQ(Hex(StoredString(CString(L"a\x4E2D"))), "FF FE FF 02 61 00 2D 4E");
  EXPECT_EQ(Hex(Stored([](CArchive &ar) { ar << L"ab"; })), "FF FE FF 02 61 00 62 00");
}

TEST(CArchiveString, CharacterOutsideTheBmpCountsAsTwoUnits) {
  CString text(std::wstring(L"x") + static_cast<wchar_t>(0x1F600));
  std::string bytes = StoredString(text);
  EXPECT_EQ(Hex(bytes), "FF FE FF 03 78 00 3D D8 00 DE");
  CString back = LoadedString(bytes);
  ASSERT_EQ(back.GetLength(), 2);
  EXPECT_EQ(static_cast<std::uint32_t>(back.GetAt(1)), 0x1F600u);
}

TEST(CArchiveString, LoneSurrogatesReadAsTheyStandAndPairsJoin) {
  // high alone, a pair, low alone, high at the very end
  static const char kBytes[] = "\xFF\xFE\xFF\x05" "\x00\xD8" "\x3D\xD8\x00\xDE" "\x00\xDC" "\x01\xD8";
  const std::string bytes(kBytes, sizeof kBytes - 1);
  const CString back = LoadedString(bytes);
  ASSERT_EQ(back.GetLength(), 4);
  EXPECT_EQ(static_cast<std::uint32_t>(back.GetAt(0)), 0xD800u);
  EXPECT_EQ(static_cast<std::uint32_t>(back.GetAt(1)), 0x1F600u);
  EXPECT_EQ(static_cast<std::uint32_t>(back.GetAt(2)), 0xDC00u);
  EXPECT_EQ(static_cast<std::uint32_t>(back.GetAt(3)), 0xD801u);
  EXPECT_EQ(back.view(), tolv::FromUtf16(u"\xD800\xD83D\xDE00\xDC00\xD801"));
}

TEST(CArchiveString, ReadingIntoASharedStringLeavesTheOtherCopy) {
  CString text = L"preset";
  const CString copy = text;
  Load(StoredString(CString(L"new text")), [&](CArchive &ar) { ar >> text; });
  EXPECT_EQ(text, L"new text");
  EXPECT_EQ(copy, L"preset");
}

TEST(CArchiveString, LengthStepsAtTheirBoundaries) {
  struct Step {
    int length;
    std::string header;
  } steps[] = {
      {254, "FF FE FF FE"},
      {255, "FF FE FF FF FF 00"},
      {0xFFFD, "FF FE FF FF FD FF"},
      {0xFFFE, "FF FE FF FF FF FF FE FF 00 00"},
      {0xFFFF, "FF FE FF FF FF FF FF FF 00 00"},
  };
  for (const Step &step : steps) {
    CString text(std::wstring(static_cast<std::size_t>(step.length), L'\x00E9'));
    std::string bytes = StoredString(text);
    std::size_t headerSize = (step.header.size() + 1) / 3;
    ASSERT_EQ(bytes.size(), headerSize + 2 * static_cast<std::size_t>(step.length)) << step.length;
    EXPECT_EQ(Hex(bytes.substr(0, headerSize)), step.header) << step.length;
    EXPECT_EQ(bytes.substr(headerSize), Repeat(std::string("\xE9\x00", 2), static_cast<std::size_t>(step.length)));
    EXPECT_EQ(LoadedString(bytes), text) << step.length;
  }
}

TEST(CArchiveString, LengthHelperCoversTheFourAndEightByteSteps) {
  EXPECT_EQ(Hex(WideHeader(0xFFFFFFFEull)), "FF FE FF FF FF FF FE FF FF FF");
  EXPECT_EQ(Hex(WideHeader(0xFFFFFFFFull)), "FF FE FF FF FF FF FF FF FF FF FF FF FF FF 00 00 00 00");
  EXPECT_EQ(Hex(WideHeader(0x123456789ull)), "FF FE FF FF FF FF FF FF FF FF 89 67 45 23 01 00 00 00");
  EXPECT_EQ(Hex(Stored([](CArchive &ar) { AfxWriteStringLength(ar, 0x10000, false); })), "FF FF FF 00 00 01 00");
  EXPECT_EQ(Hex(Stored([](CArchive &ar) { AfxWriteStringLength(ar, 3, false); })), "03");

  for (ULONGLONG length : {0ull, 1ull, 254ull, 255ull, 0xFFFDull, 0xFFFEull, 0xFFFFull, 0xFFFFFFFEull, 0xFFFFFFFFull,
                           0xFFFFFFFFFFFFFFFFull}) {
    for (bool unicode : {true, false}) {
      std::string bytes = Stored([&](CArchive &ar) { AfxWriteStringLength(ar, length, unicode); });
      ULONGLONG back = 0;
      int charSize = 0;
      Load(bytes, [&](CArchive &ar) { back = AfxReadStringLength(ar, charSize); });
      EXPECT_EQ(back, length);
      EXPECT_EQ(charSize, unicode ? 2 : 1) << length;
    }
  }
}

TEST(CArchiveString, NarrowFormReadsAsCodePage936) {
  EXPECT_EQ(LoadedString(std::string("\x03" "abc", 4)), CString(L"abc"));
  EXPECT_EQ(LoadedString(std::string("\x04\xD6\xD0\xCE\xC4", 5)), CString(L"\x4E2D\x6587"));
  EXPECT_EQ(LoadedString(std::string("\x00", 1)), CString());

  // 300 bytes take the two-byte step.
  std::string gbk = Repeat("\xD6\xD0", 150);
  std::string bytes = std::string("\xFF\x2C\x01", 3) + gbk;
  EXPECT_EQ(LoadedString(bytes), CString(std::wstring(150, L'\x4E2D')));
}

TEST(CArchiveString, NarrowAndWideStringsMixInOneStream) {
  std::string bytes = std::string("\x02hi", 3) + StoredString(CString(L"\x6587")) + std::string("\x01z", 2);
  CString a, b, c;
  Load(bytes, [&](CArchive &ar) { ar >> a >> b >> c; });
  EXPECT_EQ(a, CString(L"hi"));
  EXPECT_EQ(b, CString(L"\x6587"));
  EXPECT_EQ(c, CString(L"z"));
}

TEST(CArchiveTruncation, EveryCutOfASampleStreamThrowsEndOfFile) {
  auto write = [](CArchive &ar) {
    ar << std::int32_t{-7} << CString(L"name") << 2.5 << 'c';
    ar << CString(std::wstring(300, L'w')) << static_cast<short>(9) << 123456789012LL;
    ar << CString() << static_cast<BYTE>(1);
    ar.Write("raw!", 4);
  };
  auto read = [](CArchive &ar) {
    std::int32_t i;
    CString s;
    double d;
    char c;
    short sh;
    long long ll;
    BYTE b;
    char raw[4];
    ar >> i >> s >> d >> c >> s >> sh >> ll >> s >> b;
    ar.Read(raw, 4);
  };
  std::string whole = Stored(write);
  ASSERT_GT(whole.size(), 600u);
  for (int bufferSize : {4096, 3}) {
    EXPECT_EQ(ArchiveCause([&] { Load(whole, read, bufferSize); }), -1);
    for (std::size_t cut = 0; cut < whole.size(); ++cut) {
      EXPECT_EQ(ArchiveCause([&] { Load(whole.substr(0, cut), read, bufferSize); }), CArchiveException::endOfFile)
          << "cut at " << cut << ", buffer " << bufferSize;
    }
  }
}

TEST(CArchiveTruncation, NarrowStringCutShortThrowsEndOfFile) {
  CString text;
  EXPECT_EQ(ArchiveCause([&] { Load(std::string("\x05" "abcd", 5), [&](CArchive &ar) { ar >> text; }); }),
            CArchiveException::endOfFile);
  EXPECT_EQ(ArchiveCause([&] { Load(std::string("\xFF\x00", 2), [&](CArchive &ar) { ar >> text; }); }),
            CArchiveException::endOfFile);
}

TEST(CArchiveHostile, LengthOneUnitBeyondTheStreamThrowsAndExactFitReads) {
  std::string fits("\xFF\xFE\xFF\x02\x61\x00\x62\x00", 8);
  EXPECT_EQ(LoadedString(fits), CString(L"ab"));
  std::string over("\xFF\xFE\xFF\x03\x61\x00\x62\x00\x63", 9);  // half a unit short
  EXPECT_EQ(ArchiveCause([&] { LoadedString(over); }), CArchiveException::endOfFile);
}

TEST(CArchiveHostile, HugeLengthsThrowEndOfFileWithoutAllocating) {
  long before = MaxResidentKilobytes();
  std::string tail = "abcdefgh";
  std::vector<std::string> streams = {
      // wide, four-byte step, 0xFFFFFFFE units
      std::string("\xFF\xFE\xFF\xFF\xFF\xFF\xFE\xFF\xFF\xFF", 10) + tail,
      // wide, eight-byte step, 2^63 - 1 units (twice that overflows)
      std::string("\xFF\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 10) + std::string("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F", 8) +
          tail,
      // wide, eight-byte step, the largest length
      std::string("\xFF\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 10) + std::string(8, '\xFF') + tail,
      // wide, eight-byte step, 2^32 units
      std::string("\xFF\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 10) + std::string("\x00\x00\x00\x00\x01\x00\x00\x00", 8) +
          tail,
      // narrow, four-byte step
      std::string("\xFF\xFF\xFF\xFE\xFF\xFF\x7F", 7) + tail,
      // narrow, eight-byte step
      std::string("\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 7) + std::string(8, '\xFF') + tail,
  };
  for (const std::string &bytes : streams) {
    int cause = -1;
    try {
      LoadedString(bytes);
    } catch (const CArchiveException &e) {
      cause = e.m_cause;
    }
    EXPECT_EQ(cause, CArchiveException::endOfFile) << Hex(bytes);
  }
  // A buffer of the claimed size would have been gigabytes.
  EXPECT_LT(MaxResidentKilobytes() - before, 64 * 1024);
}

TEST(CArchiveHostile, RawReadBeyondTheStreamThrowsEndOfFile) {
  std::vector<char> target(1 << 20);
  EXPECT_EQ(ArchiveCause([&] {
              Load(std::string(10, 'x'), [&](CArchive &ar) { ar.Read(target.data(), static_cast<UINT>(target.size())); });
            }),
            CArchiveException::endOfFile);
}
