#include <gmock/gmock.h>

#include <sstream>

#include "runtime/error.h"
#include "shell/sql_batches.h"
#include "shell/sql_output.h"

namespace salerpt::shell {
namespace {

std::vector<std::string> Batches(std::string_view script) {
  std::vector<std::string> texts;
  for (const SqlBatch& batch : SplitBatches(script)) {
    texts.push_back(std::to_string(batch.first_line) + ":" + std::string(batch.text));
  }
  return texts;
}

TEST(SplitBatches, TakesAScriptWithoutGoWhole) {
  EXPECT_THAT(Batches("select 1\nselect 2"), ::testing::ElementsAre("1:select 1\nselect 2"));
}

TEST(SplitBatches, CutsAtALineThatHoldsNothingButGo) {
  EXPECT_THAT(Batches("select 1\r\n go \r\nselect 2\nGO\nselect 3\n"),
              ::testing::ElementsAre("1:select 1\r\n", "3:select 2\n", "5:select 3\n"));
}

TEST(SplitBatches, LeavesOutEmptyBatches) {
  EXPECT_THAT(Batches("GO\n\nGO\n"), ::testing::IsEmpty());
}

TEST(SplitBatches, DoesNotCutAtALineThatHoldsMore) {
  EXPECT_THAT(Batches("select 'x'\ngo on\n"), ::testing::ElementsAre("1:select 'x'\ngo on\n"));
}

// Two row sets: a number with a scale, a text and a null; then one without rows.
std::string Output(std::string_view format) {
  std::ostringstream out;
  const auto sink = MakeSqlOutput(format, out);
  const std::vector<tsql::Column> columns = {{"FName", tsql::TextType(20)}, {"FQty", tsql::IntegerType()}};
  sink->BeginRows(columns);
  const std::vector<tsql::Value> first = {tsql::Value(std::string_view("茶\"杯, 大")),
                                          tsql::Value(std::int64_t{12})};
  const std::vector<tsql::Value> second = {tsql::Value(), tsql::Value(std::int64_t{-3})};
  sink->Row(first);
  sink->Row(second);
  sink->EndRows();
  const std::vector<tsql::Column> nameless = {{"", tsql::IntegerType()}};
  sink->BeginRows(nameless);
  sink->EndRows();
  return out.str();
}

TEST(SqlOutput, LinesUpATable) {
  EXPECT_EQ(Output("table"),
            "FName     | FQty\n"
            "----------+-----\n"
            "茶\"杯, 大 |   12\n"
            "NULL      |   -3\n"
            "\n\n\n");
}

TEST(SqlOutput, WritesCsvWithEmptyNulls) {
  EXPECT_EQ(Output("csv"), "FName,FQty\n\"茶\"\"杯, 大\",12\n,-3\n\n\n");
}

TEST(SqlOutput, WritesOneJsonObjectALineForEachSelect) {
  EXPECT_EQ(Output("json"),
            "{\"columns\": [{\"name\": \"FName\", \"type\": \"varchar(20)\"}, {\"name\": \"FQty\", \"type\": "
            "\"int\"}], "
            "\"rows\": [[\"茶\\\"杯, 大\", 12], [null, -3]]}\n"
            "{\"columns\": [{\"name\": \"\", \"type\": \"int\"}], \"rows\": []}\n");
}

TEST(SqlOutput, RefusesAFormatThatItDoesNotHave) {
  std::ostringstream out;
  EXPECT_THROW(MakeSqlOutput("xlsx", out), RuntimeError);
}

}  // namespace
}  // namespace salerpt::shell
