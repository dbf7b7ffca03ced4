// The hash index behind the named map: lookups, first insert, erasing in
// the middle of probe runs and across the table's end.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "uiconfig/KyDtUINameIndex.h"

namespace {

KyDtUIItem *Item(std::size_t n) { return reinterpret_cast<KyDtUIItem *>(0x1000 + 16 * n); }

TEST(UiNameIndex, FindsWhatWasInsertedAndNothingElse) {
  KyDtUINameIndex index;
  EXPECT_EQ(index.Find(L"A"), nullptr);
  std::vector<std::wstring> keys;
  for (int i = 0; i < 2000; ++i) keys.push_back(L"CMD_" + std::to_wstring(i));
  for (std::size_t i = 0; i < keys.size(); ++i) index.Insert(keys[i], Item(i));
  for (std::size_t i = 0; i < keys.size(); ++i) EXPECT_EQ(index.Find(keys[i]), Item(i));
  EXPECT_EQ(index.Find(L"CMD_2000"), nullptr);
  EXPECT_EQ(index.Find(L""), nullptr);
}

TEST(UiNameIndex, EmptyKeyIsAKeyLikeAnyOther) {
  KyDtUINameIndex index;
  index.Insert(L"", Item(1));
  EXPECT_EQ(index.Find(L""), Item(1));
  index.Erase(L"");
  EXPECT_EQ(index.Find(L""), nullptr);
}

TEST(UiNameIndex, ErasingKeepsEveryOtherKeyReachable) {
  // Against a reference map, erasing every third key, then the rest in
  // reverse, with lookups of all keys after each step.
  KyDtUINameIndex index;
  std::vector<std::wstring> keys;
  for (int i = 0; i < 500; ++i) keys.push_back(L"K" + std::to_wstring(i * 7919 % 1000));
  std::map<std::wstring, KyDtUIItem *> expected;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    index.Insert(keys[i], Item(i));
    expected[keys[i]] = Item(i);
  }
  auto check = [&] {
    for (const std::wstring &key : keys) {
      auto found = expected.find(key);
      ASSERT_EQ(index.Find(key), found == expected.end() ? nullptr : found->second) << std::string(key.begin(), key.end());
    }
  };
  for (std::size_t i = 0; i < keys.size(); i += 3) {
    index.Erase(keys[i]);
    expected.erase(keys[i]);
    check();
  }
  index.Erase(L"not there");
  check();
  for (std::size_t i = keys.size(); i-- > 0;) {
    index.Erase(keys[i]);
    expected.erase(keys[i]);
  }
  check();
  index.Insert(keys[0], Item(9));
  EXPECT_EQ(index.Find(keys[0]), Item(9));
  index.Clear();
  EXPECT_EQ(index.Find(keys[0]), nullptr);
}

TEST(UiNameIndex, LongKeysAndCharactersBeyondSixteenBitsAreFound) {
  // Long keys and keys with characters outside the basic plane are views
  // of their owner's text; short ones are held in the slot.
  const std::wstring longKey = L"A_NAME_LONGER_THAN_TWENTY_CHARACTERS";
  const std::wstring longKey2 = L"A_NAME_LONGER_THAN_TWENTY_CHARACTERZ";
  const std::wstring wide = L"\U0001F600X";
  const std::wstring wide2 = L"\U0000F600X";
  const std::wstring chinese = L"全部命令";
  KyDtUINameIndex index;
  index.Insert(longKey, Item(1));
  index.Insert(wide, Item(2));
  index.Insert(chinese, Item(3));
  EXPECT_EQ(index.Find(longKey), Item(1));
  EXPECT_EQ(index.Find(longKey2), nullptr);
  EXPECT_EQ(index.Find(wide), Item(2));
  EXPECT_EQ(index.Find(wide2), nullptr);
  EXPECT_EQ(index.Find(chinese), Item(3));
  EXPECT_EQ(index.Find(L"全部命"), nullptr);
  index.Erase(wide);
  EXPECT_EQ(index.Find(wide), nullptr);
  EXPECT_EQ(index.Find(longKey), Item(1));
}

}  // namespace
