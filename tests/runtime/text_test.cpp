#include "runtime/text.h"

#include <gtest/gtest.h>

#include <limits>

namespace salerpt {
namespace {

TEST(UpperCase, ChangesAsciiLettersOnly) {
  EXPECT_EQ(UpperCase("SElECT az 09 {}"), "SELECT AZ 09 {}");
  EXPECT_EQ(UpperCase("销售é"), "销售é");
}

TEST(EqualNames, IsBlindToCase) {
  EXPECT_TRUE(EqualNames("SElECT", "select"));
  EXPECT_TRUE(EqualNames("", ""));
  EXPECT_TRUE(EqualNames("客户Name", "客户NAME"));
  EXPECT_FALSE(EqualNames("Select", "Selec"));
  EXPECT_FALSE(EqualNames("a", "b"));
  // '@' and '`' lie 32 apart, as upper and lower case do.
  EXPECT_FALSE(EqualNames("@", "`"));
}

TEST(NameLess, AgreesWithEqualNames) {
  const NameLess less;
  EXPECT_FALSE(less("ORDERBY", "OrderBy"));
  EXPECT_FALSE(less("OrderBy", "ORDERBY"));
  EXPECT_TRUE(less("apple", "Banana"));
  EXPECT_FALSE(less("Banana", "apple"));
  EXPECT_TRUE(less("ab", "ABC"));
}

TEST(HashName, AgreesWithEqualNames) {
  EXPECT_EQ(HashName("SElECT"), HashName("select"));
  EXPECT_NE(HashName("FNumber"), HashName("FName"));
}

TEST(Trim, TakesBlanksOnly) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("\ta "), "\ta");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
}

TEST(Replace, ReplacesEveryOccurrence) {
  EXPECT_EQ(Replace("##A## and ##A##", "##A##", "x"), "x and x");
  EXPECT_EQ(Replace("abc", "b", ""), "ac");
  EXPECT_EQ(Replace("ab", "b", "longer"), "alonger");
}

TEST(Replace, GoesFromTheLeftWithoutOverlap) {
  EXPECT_EQ(Replace("aaa", "aa", "b"), "ba");
}

TEST(Replace, LooksAtNothingThatItPutIn) {
  EXPECT_EQ(Replace("a", "a", "aa"), "aa");
}

TEST(Replace, MindsCase) {
  EXPECT_EQ(Replace("Aa", "a", "x"), "Ax");
}

TEST(Replace, GivesTheTextForNothingToReplace) {
  EXPECT_EQ(Replace("abc", "", "x"), "abc");
  EXPECT_EQ(Replace("abc", "z", "x"), "abc");
  EXPECT_EQ(Replace("", "z", "x"), "");
}

TEST(Join, TakesTextsAndNumbers) {
  EXPECT_EQ(Join("FName", 3, std::string(" varchar"), std::string_view("(255)")), "FName3 varchar(255)");
  EXPECT_EQ(Join("", ""), "");
  EXPECT_EQ(Join("a", kCrLf), "a\r\n");
}

TEST(Join, PrintsTheBoundsOfANumber) {
  EXPECT_EQ(Join(std::numeric_limits<int>::min()), "-2147483648");
  EXPECT_EQ(Join(std::numeric_limits<int>::max()), "2147483647");
  EXPECT_EQ(Join(0), "0");
}

TEST(Join, AllocatesAsMuchAsIsNeeded) {
  const std::string text = Join(std::string(500, 'x'), std::string(500, 'y'));
  EXPECT_EQ(text.size(), 1000);
  EXPECT_EQ(text.capacity(), 1000);
}

TEST(Append, AddsInPlace) {
  std::string text = "Where ";
  Append(text, "FID = ", 12, kCrLf);
  EXPECT_EQ(text, "Where FID = 12\r\n");
}

TEST(Append, TakesPartsOfTheTextItself) {
  std::string text = "abcdefghijklmnopqrstuvwxyz";
  Append(text, text, "-", std::string_view(text).substr(0, 3));
  EXPECT_EQ(text, "abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyz-abc");
  text.reserve(200);
  Append(text, std::string_view(text).substr(52));
  EXPECT_EQ(text, "abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyz-abc-abc");
}

TEST(Append, GrowsByDoubling) {
  std::string text;
  int grown = 0;
  for (int i = 0; i < 100000; ++i) {
    const std::size_t before = text.capacity();
    Append(text, "x");
    if (text.capacity() != before) ++grown;
  }
  EXPECT_EQ(text.size(), 100000);
  EXPECT_LE(grown, 17);
}

TEST(Append, StaysWithinWhatWasReserved) {
  std::string text;
  text.reserve(1000);
  const char* const data = text.data();
  Append(text, std::string(400, 'x'), std::string(600, 'y'));
  EXPECT_EQ(text.data(), data);
}

}  // namespace
}  // namespace salerpt
