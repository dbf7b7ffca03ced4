// The archive's number forms, its modes and its buffering.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>

#include "platform/mfc/CArchive.h"
#include "platform/mfc/CFile.h"
#include "platform/mfc/CMemFile.h"
#include "support/TestSupport.h"
#include "archive_test_util.h"

using archivetest::ArchiveCause;
using archivetest::Hex;
using archivetest::Load;
using archivetest::Stored;

// Widths that differ between here and the home platform must be named.
template <typename T>
concept Storable = requires(CArchive &ar, T value) { ar << value; };
template <typename T>
concept Loadable = requires(CArchive &ar, T &value) { ar >> value; };
static_assert(!Storable<long> && !Loadable<long>);
static_assert(!Storable<unsigned long> && !Loadable<unsigned long>);
static_assert(!Storable<bool> && !Loadable<bool>);
static_assert(Storable<std::int32_t> && Loadable<std::int32_t>);
static_assert(Storable<LONGLONG> && Loadable<LONGLONG>);

namespace {

std::string Bytes(std::initializer_list<int> values) {
  std::string s;
  for (int v : values) s += static_cast<char>(v);
  return s;
}

// A Long item named "a" with value 5, in the dictionary's item form.
void WriteLongItem(CArchive &ar) {
  ar << std::int32_t{3};
  ar << CString(L"a");
  ar << CString();
  ar << CString();
  ar << std::int32_t{0};
  ar << std::int32_t{5};
}

}  // namespace

TEST(CArchiveForm, LongItemExampleIsTwentySixBytes) {
  std::string expected = Bytes({0x03, 0x00, 0x00, 0x00, 0xFF, 0xFE, 0xFF, 0x01, 0x61, 0x00, 0xFF, 0xFE, 0xFF,
                                0x00, 0xFF, 0xFE, 0xFF, 0x00, 0x00, 0x00, 0x00, 0x00, 0x05, 0x00, 0x00, 0x00});
  ASSERT_EQ(expected.size(), 26u);
  EXPECT_EQ(Hex(Stored(WriteLongItem)), Hex(expected));
}

TEST(CArchiveForm, LongItemExampleReadsBack) {
  std::int32_t kind = 0, attributes = -1, value = 0;
  CString name, local = L"x", comment = L"y";
  Load(Stored(WriteLongItem), [&](CArchive &ar) { ar >> kind >> name >> local >> comment >> attributes >> value; });
  EXPECT_EQ(kind, 3);
  EXPECT_EQ(name, CString(L"a"));
  EXPECT_TRUE(local.IsEmpty());
  EXPECT_TRUE(comment.IsEmpty());
  EXPECT_EQ(attributes, 0);
  EXPECT_EQ(value, 5);
}

TEST(CArchiveForm, IntegersAreLittleEndianInTheirWidths) {
  std::string bytes = Stored([](CArchive &ar) {
    ar << std::int32_t{-2};
    ar << 0x01020304u;
    ar << static_cast<short>(-3);
    ar << static_cast<WORD>(0xABCD);
    ar << 'A';
    ar << static_cast<BYTE>(0xC8);
    ar << static_cast<signed char>(-1);
    ar << L'\x4E2D';
    ar << 0x0102030405060708LL;
    ar << 0xF0E0D0C0B0A09080ULL;
  });
  EXPECT_EQ(Hex(bytes), "FE FF FF FF 04 03 02 01 FD FF CD AB 41 C8 FF 2D 4E "
                        "08 07 06 05 04 03 02 01 80 90 A0 B0 C0 D0 E0 F0");
}

TEST(CArchiveForm, IntegersRoundTrip) {
  std::string bytes = Stored([](CArchive &ar) {
    ar << std::int32_t{-2} << 0xFFFFFFFEu << static_cast<short>(-3) << static_cast<WORD>(0xABCD) << 'z'
       << static_cast<BYTE>(200) << static_cast<signed char>(-100) << L'\x4E2D' << -5LL << 0xF0E0D0C0B0A09080ULL;
  });
  std::int32_t i = 0;
  unsigned u = 0;
  short s = 0;
  WORD w = 0;
  char c = 0;
  BYTE b = 0;
  signed char sc = 0;
  wchar_t wc = 0;
  long long ll = 0;
  unsigned long long ull = 0;
  Load(bytes, [&](CArchive &ar) { ar >> i >> u >> s >> w >> c >> b >> sc >> wc >> ll >> ull; });
  EXPECT_EQ(i, -2);
  EXPECT_EQ(u, 0xFFFFFFFEu);
  EXPECT_EQ(s, -3);
  EXPECT_EQ(w, 0xABCD);
  EXPECT_EQ(c, 'z');
  EXPECT_EQ(b, 200);
  EXPECT_EQ(sc, -100);
  EXPECT_EQ(wc, L'\x4E2D');
  EXPECT_EQ(ll, -5);
  EXPECT_EQ(ull, 0xF0E0D0C0B0A09080ULL);
}

TEST(CArchiveForm, FloatingPointIsIeeeLittleEndian) {
  std::string bytes = Stored([](CArchive &ar) { ar << 1.5 << 1.5f << -0.1; });
  EXPECT_EQ(Hex(bytes), "00 00 00 00 00 00 F8 3F 00 00 C0 3F 9A 99 99 99 99 99 B9 BF");
  double d = 0, back = 0;
  float f = 0;
  Load(bytes, [&](CArchive &ar) { ar >> d >> f >> back; });
  EXPECT_EQ(d, 1.5);
  EXPECT_EQ(f, 1.5f);
  EXPECT_EQ(back, -0.1);
}

TEST(CArchiveForm, BufferSizeNeverChangesTheBytes) {
  auto write = [](CArchive &ar) {
    for (int i = 0; i < 300; ++i) {
      ar << std::int32_t{i} << CString(std::wstring(static_cast<std::size_t>(i), L'\x00E9'));
      ar << static_cast<double>(i) / 7;
    }
    std::string raw(10000, 'r');
    ar.Write(raw.data(), static_cast<UINT>(raw.size()));
  };
  std::string reference = Stored(write, 4096);
  for (int size : {1, 2, 7, 64, 65536}) EXPECT_EQ(Stored(write, size), reference) << "buffer " << size;

  for (int size : {1, 5, 4096}) {
    Load(
        reference,
        [&](CArchive &ar) {
          for (int i = 0; i < 300; ++i) {
            std::int32_t n = -1;
            CString text;
            double d = 0;
            ar >> n >> text >> d;
            ASSERT_EQ(n, i);
            ASSERT_EQ(text.GetLength(), i);
            ASSERT_EQ(d, static_cast<double>(i) / 7);
          }
          std::string raw(10000, '\0');
          EXPECT_EQ(ar.Read(raw.data(), static_cast<UINT>(raw.size())), 10000u);
          EXPECT_EQ(raw, std::string(10000, 'r'));
        },
        size);
  }
}

TEST(CArchiveMode, WritingToALoadingArchiveThrowsReadOnly) {
  CMemFile file;
  archivetest::Fill(file, std::string(16, '\0'));
  CArchive ar(&file, CArchive::load);
  EXPECT_TRUE(ar.IsLoading());
  EXPECT_FALSE(ar.IsStoring());
  EXPECT_EQ(ArchiveCause([&] { ar << std::int32_t{1}; }), CArchiveException::readOnly);
  EXPECT_EQ(ArchiveCause([&] { ar << 2.0; }), CArchiveException::readOnly);
  EXPECT_EQ(ArchiveCause([&] { ar << CString(L"x"); }), CArchiveException::readOnly);
  EXPECT_EQ(ArchiveCause([&] { ar.Write("abc", 3); }), CArchiveException::readOnly);
  EXPECT_EQ(CArchiveException::readOnly, 2);
}

TEST(CArchiveMode, ReadingFromAStoringArchiveThrowsWriteOnly) {
  CMemFile file;
  CArchive ar(&file, CArchive::store);
  EXPECT_TRUE(ar.IsStoring());
  std::int32_t n = 0;
  CString text;
  char raw[4];
  EXPECT_EQ(ArchiveCause([&] { ar >> n; }), CArchiveException::writeOnly);
  EXPECT_EQ(ArchiveCause([&] { ar >> text; }), CArchiveException::writeOnly);
  EXPECT_EQ(ArchiveCause([&] { ar.Read(raw, 4); }), CArchiveException::writeOnly);
  EXPECT_EQ(CArchiveException::writeOnly, 4);
}

TEST(CArchiveMode, ExceptionIsAnMfcAndStandardException) {
  try {
    AfxThrowArchiveException(CArchiveException::endOfFile, L"x.dat");
  } catch (const CException &e) {
    wchar_t text[64];
    EXPECT_TRUE(e.GetErrorMessage(text, 64));
    EXPECT_NE(std::wstring(text).find(L"x.dat"), std::wstring::npos);
    EXPECT_STREQ(e.what(), "unexpected end of archive");
    EXPECT_EQ(dynamic_cast<const CArchiveException &>(e).m_cause, 3);
  }
  try {
    AfxThrowArchiveException(CArchiveException::badSchema);
  } catch (const std::exception &e) {
    EXPECT_NE(dynamic_cast<const CArchiveException *>(&e), nullptr);
  }
}

TEST(CArchiveMode, ClosedArchiveRefusesUse) {
  CMemFile file;
  CArchive ar(&file, CArchive::store);
  ar << std::int32_t{1};
  ar.Close();
  EXPECT_EQ(file.GetLength(), 4u);
  EXPECT_EQ(ar.GetFile(), nullptr);
  EXPECT_EQ(ArchiveCause([&] { ar << std::int32_t{2}; }), CArchiveException::genericException);
  ar.Close();  // a second close does nothing
  EXPECT_EQ(file.GetLength(), 4u);
}

TEST(CArchiveBuffer, StoringArchiveWritesOnlyWhenFlushed) {
  CMemFile file;
  CArchive ar(&file, CArchive::store, 4096);
  ar << std::int32_t{7} << std::int32_t{8};
  EXPECT_EQ(file.GetLength(), 0u);
  EXPECT_FALSE(ar.IsBufferEmpty());
  ar.Flush();
  EXPECT_EQ(file.GetLength(), 8u);
  ar.Close();
}

TEST(CArchiveBuffer, DestructorFlushesInTheNormalFlow) {
  CMemFile file;
  { CArchive(&file, CArchive::store) << std::int32_t{7}; }
  EXPECT_EQ(file.GetLength(), 4u);
}

TEST(CArchiveBuffer, DestructorDropsTheBufferWhileAnExceptionUnwinds) {
  CMemFile file;
  try {
    CArchive ar(&file, CArchive::store);
    ar << std::int32_t{7};
    throw std::runtime_error("abandon");
  } catch (const std::runtime_error &) {
  }
  EXPECT_EQ(file.GetLength(), 0u);
}

TEST(CArchiveBuffer, NoFlushOnDeleteDropsTheBuffer) {
  CMemFile file;
  { CArchive(&file, CArchive::store | CArchive::bNoFlushOnDelete) << std::int32_t{7}; }
  EXPECT_EQ(file.GetLength(), 0u);
}

TEST(CArchiveBuffer, LoadingFlushLeavesTheFileBehindTheLastValueRead) {
  CMemFile file;
  archivetest::Fill(file, Stored([](CArchive &ar) {
                      for (std::int32_t i = 0; i < 100; ++i) ar << i;
                    }));
  CArchive ar(&file, CArchive::load, 4096);
  std::int32_t a = -1, b = -1;
  ar >> a >> b;
  EXPECT_EQ(file.GetPosition(), 400u);  // the buffer took everything
  ar.Flush();
  EXPECT_EQ(file.GetPosition(), 8u);
  ar >> a;
  EXPECT_EQ(a, 2);
  ar.Close();
  EXPECT_EQ(file.GetPosition(), 12u);
  EXPECT_EQ(b, 1);
}

TEST(CArchiveBuffer, RawBlocksLargerThanTheBufferRoundTrip) {
  std::string block(100000, '\0');
  for (std::size_t i = 0; i < block.size(); ++i) block[i] = static_cast<char>(i * 31 + 7);
  std::string bytes = Stored(
      [&](CArchive &ar) {
        ar << 'x';
        ar.Write(block.data(), static_cast<UINT>(block.size()));
        ar << 'y';
      },
      64);
  ASSERT_EQ(bytes.size(), block.size() + 2);
  EXPECT_EQ(bytes.substr(1, block.size()), block);
  Load(
      bytes,
      [&](CArchive &ar) {
        char x = 0, y = 0;
        std::string back(block.size(), '\0');
        ar >> x;
        EXPECT_EQ(ar.Read(back.data(), static_cast<UINT>(back.size())), back.size());
        ar >> y;
        EXPECT_EQ(x, 'x');
        EXPECT_EQ(back, block);
        EXPECT_EQ(y, 'y');
      },
      64);
}

TEST(CArchiveBuffer, StreamOnADiskFileMatchesTheMemoryForm) {
  tolvtest::ScratchDir dir("archive_disk");
  std::wstring path = dir.wide("dict.dat");
  {
    CFile file;
    ASSERT_TRUE(file.Open(path.c_str(), CFile::modeCreate | CFile::modeWrite));
    file.SetLength(0);
    file.Flush();
    CArchive ar(&file, CArchive::store, 4096);
    ar << std::int32_t{1};
    WriteLongItem(ar);
    ar.Flush();
    ar.Close();
    file.Close();
  }
  std::string expected = Stored([](CArchive &ar) {
    ar << std::int32_t{1};
    WriteLongItem(ar);
  });
  EXPECT_EQ(Hex(tolvtest::ReadFileBytes(dir.path() / "dict.dat")), Hex(expected));

  CFile file;
  ASSERT_TRUE(file.Open(path.c_str(), CFile::modeRead));
  CArchive ar(&file, CArchive::load, 4096);
  std::int32_t flag = 0, kind = 0, attributes = -1, value = 0;
  CString name, local, comment;
  ar >> flag >> kind >> name >> local >> comment >> attributes >> value;
  EXPECT_EQ(flag, 1);
  EXPECT_EQ(kind, 3);
  EXPECT_EQ(name, CString(L"a"));
  EXPECT_EQ(value, 5);
  EXPECT_EQ(ArchiveCause([&] { ar >> value; }), CArchiveException::endOfFile);
  ar.Flush();
  ar.Close();
  file.Close();
}
