#include "suite/accountset/shop/csv_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace salerpt::accountset::shop {
namespace {

// What was read of a record: its line, its fields, and the fault.
struct Read {
  std::int64_t line;
  std::vector<std::string> fields;
  std::string fault;
  bool operator==(const Read&) const = default;
};

void PrintTo(const Read& read, std::ostream* out) {
  *out << read.line << ":";
  for (const auto& field : read.fields) *out << " [" << field << "]";
  *out << " " << read.fault;
}

// The records of a text that comes in pieces of `step` bytes.
std::vector<Read> ReadAll(const std::string& text, std::size_t step = 7) {
  std::size_t place = 0;
  CsvReader reader([&](char* buffer, std::size_t size) {
    const std::size_t count = std::min({size, step, text.size() - place});
    text.copy(buffer, count, place);
    place += count;
    return count;
  });
  std::vector<Read> all;
  CsvRecord record;
  while (reader.Next(record)) {
    all.push_back({record.line, {record.fields.begin(), record.fields.end()}, std::string(record.fault)});
  }
  return all;
}

TEST(CsvReader, ReadsPlainFieldsOfEveryLine) {
  EXPECT_EQ(ReadAll("a,b\nc,d\n"), (std::vector<Read>{{1, {"a", "b"}, ""}, {2, {"c", "d"}, ""}}));
}

TEST(CsvReader, TakesTheLastLineWithoutALineEnd) {
  EXPECT_EQ(ReadAll("a,b\nc,d"), (std::vector<Read>{{1, {"a", "b"}, ""}, {2, {"c", "d"}, ""}}));
}

TEST(CsvReader, TakesCarriageReturnsBeforeLineEnds) {
  EXPECT_EQ(ReadAll("a,b\r\n\"c\",d\r\n"), (std::vector<Read>{{1, {"a", "b"}, ""}, {2, {"c", "d"}, ""}}));
}

TEST(CsvReader, PassesOverAByteOrderMark) {
  EXPECT_EQ(ReadAll("\xEF\xBB\xBF"
                    "a,b\n",
                    1),
            (std::vector<Read>{{1, {"a", "b"}, ""}}));
}

TEST(CsvReader, GivesEmptyFields) {
  EXPECT_EQ(ReadAll(",a,\n\"\",\n"), (std::vector<Read>{{1, {"", "a", ""}, ""}, {2, {"", ""}, ""}}));
}

TEST(CsvReader, GivesAnEmptyLineAsOneEmptyField) {
  EXPECT_EQ(ReadAll("a\n\nb\n"), (std::vector<Read>{{1, {"a"}, ""}, {2, {""}, ""}, {3, {"b"}, ""}}));
}

TEST(CsvReader, UnquotesFields) {
  EXPECT_EQ(ReadAll("\"a,b\",\"say \"\"hi\"\"\",\"\"\"\"\n"),
            (std::vector<Read>{{1, {"a,b", "say \"hi\"", "\""}, ""}}));
}

TEST(CsvReader, KeepsLineEndsWithinQuotesAndCountsThem) {
  EXPECT_EQ(ReadAll("\"a\nb\",c\nd\n"), (std::vector<Read>{{1, {"a\nb", "c"}, ""}, {3, {"d"}, ""}}));
  EXPECT_EQ(ReadAll("\"a\r\nb\"\r\nd"), (std::vector<Read>{{1, {"a\r\nb"}, ""}, {3, {"d"}, ""}}));
}

TEST(CsvReader, GivesNothingForAnEmptyText) {
  EXPECT_TRUE(ReadAll("").empty());
}

TEST(CsvReader, TellsOfAQuoteInsideAPlainField) {
  EXPECT_EQ(ReadAll("a\"\"b,c\nd\n"),
            (std::vector<Read>{{1, {"a\"\"b,c"}, "a quote stands inside a field that is not quoted"},
                               {2, {"d"}, ""}}));
}

TEST(CsvReader, TellsOfTextBehindAClosingQuote) {
  const auto all = ReadAll("\"a\"b,c\nd\n");
  ASSERT_EQ(all.size(), 2U);
  EXPECT_EQ(all[0].fault, "text stands behind a closing quote");
  EXPECT_EQ(all[1], (Read{2, {"d"}, ""}));
}

TEST(CsvReader, LosesOneLineToAQuoteThatNeverCloses) {
  EXPECT_EQ(
      ReadAll("a\nb,\"c\nd\ne\n"),
      (std::vector<Read>{
          {1, {"a"}, ""}, {2, {"b,\"c"}, "a quote opens and never closes"}, {3, {"d"}, ""}, {4, {"e"}, ""}}));
}

TEST(CsvReader, LosesOneLineToAQuoteThatAnotherFieldSeemsToClose) {
  const auto all = ReadAll("a,\"b\nc,\"d\"\nf,\"g\ne\n");
  ASSERT_EQ(all.size(), 4U);
  EXPECT_EQ(all[0], (Read{1, {"a,\"b"}, "text stands behind a closing quote"}));
  EXPECT_EQ(all[1], (Read{2, {"c", "d"}, ""}));
  EXPECT_EQ(all[2], (Read{3, {"f,\"g"}, "a quote opens and never closes"}));
  EXPECT_EQ(all[3], (Read{4, {"e"}, ""}));
}

TEST(CsvReader, LosesOneLineToAQuoteThatClosesFarBehind) {
  std::string text = "a,\"b\n";
  for (int i = 0; i < 20000; ++i) text += "line\n";
  text += "c,d\"\nlast\n";
  const auto all = ReadAll(text, 100000);
  ASSERT_EQ(all.size(), 20003U);
  EXPECT_EQ(all[0], (Read{1, {"a,\"b"}, "a quote opens and never closes"}));
  EXPECT_EQ(all[1], (Read{2, {"line"}, ""}));
  EXPECT_EQ(all.back(), (Read{20003, {"last"}, ""}));
}

TEST(CsvReader, PassesOverALineWithoutEnd) {
  const auto all = ReadAll("a\n" + std::string(3'000'000, 'x') + "\nb\n", 100000);
  ASSERT_EQ(all.size(), 3U);
  EXPECT_EQ(all[1].line, 2);
  EXPECT_EQ(all[1].fault, "longer than any record may be");
  EXPECT_EQ(all[2], (Read{3, {"b"}, ""}));
}

TEST(CsvReader, TellsOfBytesThatAreNoText) {
  for (const std::string bytes :
       {"\xFF", "\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80", "\xE4\xB8"}) {
    const auto all = ReadAll("a," + bytes + "\nb\n");
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].fault, "it holds bytes that are no UTF-8 text");
    EXPECT_EQ(all[1], (Read{2, {"b"}, ""}));
  }
  EXPECT_EQ(ReadAll(std::string("a\0b\n", 4)).at(0).fault, "it holds bytes that are no UTF-8 text");
}

TEST(CsvReader, KeepsTextOfEveryLength) {
  EXPECT_EQ(ReadAll("\xC3\xA9,\xE4\xB8\xAD,\xF0\x9F\x98\x80\n", 1),
            (std::vector<Read>{{1, {"\xC3\xA9", "\xE4\xB8\xAD", "\xF0\x9F\x98\x80"}, ""}}));
}

TEST(CsvReader, TakesBackAllButTheFirstLineWhenAsked) {
  const std::string text = "\"a\nb\"\nc\n";
  std::size_t place = 0;
  CsvReader reader([&](char* buffer, std::size_t size) {
    const std::size_t count = std::min(size, text.size() - place);
    text.copy(buffer, count, place);
    place += count;
    return count;
  });
  CsvRecord record;
  ASSERT_TRUE(reader.Next(record));
  EXPECT_EQ(record.fields.at(0), "a\nb");
  reader.KeepFirstLineOnly();
  ASSERT_TRUE(reader.Next(record));
  EXPECT_EQ(record.line, 2);
  EXPECT_EQ(record.fault, "a quote opens and never closes");
  ASSERT_TRUE(reader.Next(record));
  EXPECT_EQ(record.line, 3);
  EXPECT_EQ(record.fields.at(0), "c");
}

}  // namespace
}  // namespace salerpt::accountset::shop
