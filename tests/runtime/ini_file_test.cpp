#include "runtime/ini_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "error_check.h"
#include "fake_world.h"
#include "runtime/error.h"
#include "runtime/ini_text.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

using testing::FakePlatform;
using testing::TempFolder;
namespace fs = std::filesystem;

// Settings in a folder of their own, under the name that the reports use.
class IniFileTest : public ::testing::Test {
 protected:
  IniFileTest() {
    runtime_.SetPlatform(std::make_shared<FakePlatform>(folder_.Path()));
    ini_.SetFileName(kName);
  }
  [[nodiscard]] std::string Text() const { return folder_.Read(kName); }
  void SetText(std::string_view text) const { folder_.Write(kName, text); }

  static constexpr const char* kName = "JXCQ7SaleRpt.INI";
  Runtime runtime_;
  TempFolder folder_;
  IniFile ini_;
};

TEST_F(IniFileTest, KeepsTheFileName) {
  EXPECT_EQ(ini_.FileName(), "JXCQ7SaleRpt.INI");
  ini_.SetFileName("other.ini");
  EXPECT_EQ(ini_.FileName(), "other.ini");
}

TEST_F(IniFileTest, GivesTheDefaultWhereFileSectionOrKeyIsMissing) {
  EXPECT_EQ(ini_.Read("Para", "Debug", "0"), "0");
  SetText("[Other]\r\nDebug=1\r\n[Para]\r\nElse=1\r\n");
  EXPECT_EQ(ini_.Read("Nowhere", "Debug", "0"), "0");
  EXPECT_EQ(ini_.Read("Para", "Debug", "0"), "0");
}

TEST_F(IniFileTest, ReadsWithoutRegardToCase) {
  SetText("[166ORVSaleRpt]\r\nShowList=1\r\n");
  EXPECT_EQ(ini_.Read("166orvsalerpt", "SHOWLIST", "0"), "1");
}

TEST_F(IniFileTest, LeavesOutBlanksAndQuotesAroundAValue) {
  SetText("[ a ]\r\n  one  =  1  \r\ntwo=\" 2 \"\nthree = '3'\nfour=\"4'\nfive=\"\n six\t=\t6\t\n");
  EXPECT_EQ(ini_.Read("a", "one", ""), "1");
  EXPECT_EQ(ini_.Read("a", "two", ""), " 2 ");
  EXPECT_EQ(ini_.Read("a", "three", ""), "3");
  EXPECT_EQ(ini_.Read("a", "four", ""), "\"4'");
  EXPECT_EQ(ini_.Read("a", "five", ""), "\"");
  EXPECT_EQ(ini_.Read("a", "six", ""), "6");
}

TEST_F(IniFileTest, GivesAnEmptyValueAndNotTheDefaultForAKeyWithoutValue) {
  SetText("[a]\none=\ntwo=\"\"\n");
  EXPECT_EQ(ini_.Read("a", "one", "x"), "");
  EXPECT_EQ(ini_.Read("a", "two", "x"), "");
}

TEST_F(IniFileTest, TakesTheFirstEntryOfTheFirstSection) {
  SetText("[a]\none=1\none=2\n[b]\none=3\n[a]\none=4\ntwo=5\n");
  EXPECT_EQ(ini_.Read("a", "one", ""), "1");
  EXPECT_EQ(ini_.Read("a", "two", "none"), "none");
}

TEST_F(IniFileTest, ReadsNoComments) {
  SetText("[a]\n;one=1\n ; two=2\nthree\nfour=4;5=6\n");
  EXPECT_EQ(ini_.Read("a", "one", "none"), "none");
  EXPECT_EQ(ini_.Read("a", ";one", "none"), "none");
  EXPECT_EQ(ini_.Read("a", "two", "none"), "none");
  EXPECT_EQ(ini_.Read("a", "three", "none"), "none");
  EXPECT_EQ(ini_.Read("a", "four", "none"), "4;5=6");
}

TEST_F(IniFileTest, ReadsBehindAByteOrderMarkAndWithoutALastLineEnd) {
  SetText("\xEF\xBB\xBF[a]\r\none=1");
  EXPECT_EQ(ini_.Read("a", "one", ""), "1");
}

TEST_F(IniFileTest, GivesTheDefaultForAFolderInThePlaceOfTheFile) {
  fs::create_directory(folder_.Path() / kName);
  EXPECT_EQ(ini_.Read("a", "one", "none"), "none");
}

TEST_F(IniFileTest, MakesTheFileWithItsFirstValue) {
  ini_.Write("166ORVSaleRpt", "ShowList", "1");
  EXPECT_EQ(Text(), "[166ORVSaleRpt]\r\nShowList=1\r\n");
}

TEST_F(IniFileTest, MakesTheFolderOfTheFile) {
  const fs::path file = folder_.Path() / "new" / "folder" / "a.ini";
  ini_.SetFileName(file.string());
  ini_.Write("a", "one", "1");
  EXPECT_EQ(folder_.Read("new/folder/a.ini"), "[a]\r\none=1\r\n");
  EXPECT_EQ(ini_.Read("a", "one", ""), "1");
}

TEST_F(IniFileTest, ReplacesOneValueAndKeepsEverythingElse) {
  SetText("; mine\r\n\r\n[a]\r\n; the first\r\nOne = 1\r\ntwo=2\r\n\r\n[b]\r\none=3\r\n");
  ini_.Write("A", "one", "9");
  EXPECT_EQ(Text(), "; mine\r\n\r\n[a]\r\n; the first\r\nOne =9\r\ntwo=2\r\n\r\n[b]\r\none=3\r\n");
}

TEST_F(IniFileTest, AddsAKeyAtTheEndOfItsSection) {
  SetText("[a]\r\none=1\r\n\r\n[b]\r\none=3\r\n");
  ini_.Write("a", "two", "2");
  EXPECT_EQ(Text(), "[a]\r\none=1\r\ntwo=2\r\n\r\n[b]\r\none=3\r\n");
}

TEST_F(IniFileTest, AddsASectionAtTheEndOfTheFile) {
  SetText("[a]\r\none=1\r\n");
  ini_.Write("b", "two", "2");
  EXPECT_EQ(Text(), "[a]\r\none=1\r\n[b]\r\ntwo=2\r\n");
}

TEST_F(IniFileTest, EndsALastLineThatIsOpen) {
  SetText("[a]\r\none=1");
  ini_.Write("a", "two", "2");
  EXPECT_EQ(Text(), "[a]\r\none=1\r\ntwo=2\r\n");
  SetText("[a]\none=1");
  ini_.Write("b", "two", "2");
  EXPECT_EQ(Text(), "[a]\none=1\n[b]\ntwo=2\n");
}

TEST_F(IniFileTest, ReplacesAValueInALastLineThatIsOpen) {
  SetText("[a]\r\none=1");
  ini_.Write("a", "one", "22");
  EXPECT_EQ(Text(), "[a]\r\none=22");
}

TEST_F(IniFileTest, KeepsTheLineEndsOfTheFile) {
  SetText("[a]\none=1\n");
  ini_.Write("a", "one", "2");
  ini_.Write("a", "two", "3");
  ini_.Write("b", "one", "4");
  EXPECT_EQ(Text(), "[a]\none=2\ntwo=3\n[b]\none=4\n");
}

TEST_F(IniFileTest, KeepsAByteOrderMark) {
  SetText("\xEF\xBB\xBF");
  ini_.Write("a", "one", "1");
  EXPECT_EQ(Text(), "\xEF\xBB\xBF[a]\r\none=1\r\n");
}

TEST_F(IniFileTest, GivesBackWhateverWasWritten) {
  for (const char* value :
       {"", " ", " a", "a\t", "\"", "\"a\"", "'a'", "\"\"", "' \"", ";a", "[a]", "a=b", "客户"}) {
    ini_.Write("a", "one", value);
    EXPECT_EQ(ini_.Read("a", "one", "none"), value);
  }
}

TEST_F(IniFileTest, RefusesWhatAnIniFileCannotHoldAndLeavesTheFile) {
  SetText("[a]\r\none=1\r\n");
  EXPECT_EQ(NumberRaisedBy([&] { ini_.Write("a", "one", "1\r\n[b]"); }), error_number::kInvalidCall);
  EXPECT_EQ(NumberRaisedBy([&] { ini_.Write("a\nb", "one", "1"); }), error_number::kInvalidCall);
  EXPECT_EQ(NumberRaisedBy([&] { ini_.Write("a]", "one", "1"); }), error_number::kInvalidCall);
  EXPECT_EQ(NumberRaisedBy([&] { ini_.Write("a", "one=", "1"); }), error_number::kInvalidCall);
  EXPECT_EQ(NumberRaisedBy([&] { ini_.Write("a", ";one", "1"); }), error_number::kInvalidCall);
  EXPECT_EQ(NumberRaisedBy([&] { ini_.Write("a", "[one", "1"); }), error_number::kInvalidCall);
  EXPECT_EQ(NumberRaisedBy([&] { ini_.Write("a", " ", "1"); }), error_number::kInvalidCall);
  EXPECT_EQ(Text(), "[a]\r\none=1\r\n");
}

TEST_F(IniFileTest, SeesWhatAnotherWroteMeanwhile) {
  IniFile other;
  other.SetFileName(kName);
  ini_.Write("a", "one", "1");
  other.Write("a", "two", "2");
  ini_.Write("a", "one", "3");
  EXPECT_EQ(other.Read("a", "one", ""), "3");
  EXPECT_EQ(ini_.Read("a", "two", ""), "2");
}

TEST_F(IniFileTest, LeavesNoOtherFileBehind) {
  ini_.Write("a", "one", "1");
  ini_.Write("a", "one", "2");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_.Path()), fs::directory_iterator()), 1);
}

TEST_F(IniFileTest, KeepsThePermissionsOfTheFile) {
  SetText("[a]\none=1\n");
  fs::permissions(folder_.Path() / kName, fs::perms::owner_read | fs::perms::owner_write);
  ini_.Write("a", "one", "2");
  EXPECT_EQ(fs::status(folder_.Path() / kName).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(IniFileTest, WritesThroughALink) {
  folder_.Write("real.ini", "[a]\none=1\n");
  fs::create_symlink("real.ini", folder_.Path() / kName);
  ini_.Write("a", "one", "2");
  EXPECT_TRUE(fs::is_symlink(folder_.Path() / kName));
  EXPECT_EQ(folder_.Read("real.ini"), "[a]\none=2\n");
}

TEST_F(IniFileTest, RaisesAndNamesAFileWhoseFolderCannotBeWritten) {
  // A file stands where the folder should be: no user can write below it.
  const fs::path file = folder_.Write("plain", "x") / "a.ini";
  ini_.SetFileName(file.string());
  EXPECT_EQ(ini_.Read("a", "one", "none"), "none");
  try {
    ini_.Write("a", "one", "1");
    FAIL() << "nothing was raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), error_number::kFileAccess);
    EXPECT_NE(error.Description().find(file.string()), std::string::npos);
  }
  EXPECT_EQ(folder_.Read("plain"), "x");
}

TEST_F(IniFileTest, LeavesTheOldFileWhereTheNewOneCannotBeMade) {
  SetText("[a]\none=1\n");
  // Stands where the new file of this process would be made; holds for every user.
  fs::create_directory(folder_.Path() / "JXCQ7SaleRpt.INI.4711.tmp");
  EXPECT_EQ(NumberRaisedBy([&] { ini_.Write("a", "one", "2"); }), error_number::kFileAccess);
  EXPECT_EQ(Text(), "[a]\none=1\n");
}

TEST_F(IniFileTest, RaisesForAFolderInThePlaceOfTheFile) {
  fs::create_directory(folder_.Path() / kName);
  EXPECT_EQ(NumberRaisedBy([&] { ini_.Write("a", "one", "1"); }), error_number::kFileAccess);
  EXPECT_TRUE(fs::is_directory(folder_.Path() / kName));
}

TEST_F(IniFileTest, RaisesWithoutAFileName) {
  ini_.SetFileName("");
  EXPECT_EQ(ini_.Read("a", "one", "none"), "none");
  EXPECT_EQ(NumberRaisedBy([&] { ini_.Write("a", "one", "1"); }), error_number::kFileAccess);
}

// Any text whatever takes a value and gives it back; the same value once more changes nothing.
TEST(IniText, TakesAValueIntoAnyText) {
  std::mt19937 random(16394);
  const std::string letters = "ab[]=;\"' \t\r\n\n客";
  for (int round = 0; round < 5000; ++round) {
    std::string text;
    for (auto i = random() % 40; i > 0; --i) text += letters[random() % letters.size()];
    const std::string changed = SetIniValue(text, "a", "b", "value");
    EXPECT_EQ(FindIniValue(changed, "a", "b"), "value") << text;
    if (!FindIniValue(text, "a", "b")) {
      EXPECT_GT(changed.size(), text.size()) << text;
    }
    const std::string again = SetIniValue(changed, "a", "b", "value");
    EXPECT_EQ(again, changed) << text;
  }
}

}  // namespace
}  // namespace salerpt
