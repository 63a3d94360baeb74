// What holds from batch to batch on one session.
#include <gmock/gmock.h>

#include "tests/suite/tsql/memory_world.h"

namespace salerpt::tsql::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST(Session, KeepsTemporaryTablesFromBatchToBatch) {
  MemoryWorld world;
  world.Rows("CREATE TABLE #t (a int) INSERT INTO #t VALUES (1)");
  world.Rows("INSERT INTO #t VALUES (2)");
  EXPECT_THAT(world.Rows("SELECT a FROM #t"), ElementsAre("1", "2"));
}

TEST(Session, DropsWhatABatchLeftBehind) {
  MemoryWorld world;
  world.Rows("CREATE TABLE #t (a int) CREATE TABLE #u (a int)");
  world.GetSession().DropTemporaryTables();
  EXPECT_EQ(world.Failure("SELECT * FROM #t"), "208@1 Invalid object name '#t'.");
  EXPECT_EQ(world.Failure("CREATE TABLE #u (b int)"), "");
}

TEST(Session, ForgetsVariablesAtTheEndOfABatch) {
  MemoryWorld world;
  world.Rows("DECLARE @a int SET @a = 1");
  EXPECT_EQ(world.Failure("SELECT @a"), "137@1 Must declare the scalar variable \"@a\".");
}

TEST(Session, EndsTableVariablesWithTheBatch) {
  MemoryWorld world;
  EXPECT_THAT(world.Rows("DECLARE @t TABLE (a int) INSERT INTO @t VALUES (7) SELECT a FROM @t"),
              ElementsAre("7"));
  EXPECT_THAT(world.Rows("DECLARE @t TABLE (a int) SELECT a FROM @t"), IsEmpty());
}

TEST(Session, RunsNothingOfABatchThatDoesNotParse) {
  MemoryWorld world;
  world.Rows("CREATE TABLE #t (a int)");
  EXPECT_EQ(world.Failure("INSERT INTO #t VALUES (1)\nSELECT FROM #t"),
            "156@2 Incorrect syntax near the keyword 'FROM'.");
  EXPECT_THAT(world.Rows("SELECT * FROM #t"), IsEmpty());
}

TEST(Session, RunsNothingWhenAVariableIsNotDeclared) {
  MemoryWorld world;
  world.Rows("CREATE TABLE #t (a int)");
  EXPECT_EQ(world.Failure("INSERT INTO #t VALUES (1)\n\nSET @x = 1"),
            "137@3 Must declare the scalar variable \"@x\".");
  EXPECT_THAT(world.Rows("SELECT * FROM #t"), IsEmpty());
}

TEST(Session, KeepsWhatStatementsBeforeTheFailingOneDid) {
  MemoryWorld world;
  EXPECT_EQ(world.Failure(
                "CREATE TABLE #t (a int)\nINSERT INTO #t VALUES (1)\nSELECT 1/0\nINSERT INTO #t VALUES (2)"),
            "8134@3 Divide by zero error encountered.");
  EXPECT_THAT(world.Rows("SELECT * FROM #t"), ElementsAre("1"));
}

TEST(Session, TakesBackAStatementThatFailsHalfway) {
  MemoryWorld world;
  world.Rows(
      "CREATE TABLE #t (a int) CREATE TABLE #v (v varchar(5)) INSERT INTO #v VALUES ('1'),('2'),('x')");
  EXPECT_THAT(world.Failure("INSERT INTO #t SELECT v FROM #v"), StartsWith("245@1"));
  EXPECT_THAT(world.Rows("SELECT * FROM #t"), IsEmpty());
  EXPECT_THAT(world.Failure("SELECT cast(v as int) i INTO #w FROM #v"), StartsWith("245@1"));
  EXPECT_EQ(world.Failure("SELECT * FROM #w"), "208@1 Invalid object name '#w'.");
}

TEST(Session, LeavesNoTransactionOpen) {
  MemoryWorld world;
  world.Rows("SELECT 1");
  EXPECT_NE(sqlite3_get_autocommit(world.Connection()), 0);
  world.Failure("SELECT 1/0");
  EXPECT_NE(sqlite3_get_autocommit(world.Connection()), 0);
}

TEST(Session, WorksInsideATransactionOfItsOwner) {
  MemoryWorld world;
  sqlite3_exec(world.Connection(), "BEGIN", nullptr, nullptr, nullptr);
  EXPECT_THAT(world.Rows("SELECT 1"), ElementsAre("1"));
  EXPECT_EQ(sqlite3_get_autocommit(world.Connection()), 0);
}

TEST(Session, StopsALoopAtTheStatementLimit) {
  MemoryWorld world;
  world.GetSession().SetStatementLimit(50);
  EXPECT_EQ(world.Failure("WHILE 1 = 1\nBEGIN\nSELECT 1\nEND"),
            "50000@2 The batch has run the 50 statements that it may run.");
  EXPECT_EQ(world.Failure("SELECT 1"), "");
}

TEST(Session, TellsEverySelectToTheSinkInOrder) {
  MemoryWorld world;
  KeptRows sink;
  world.GetSession().Execute("SELECT 1 a SELECT 'x' b WHERE 1 = 0 SELECT 3 c", sink);
  EXPECT_EQ(sink.selects, 3);
  EXPECT_EQ(sink.ended, 3);
  EXPECT_THAT(sink.rows, ElementsAre("1", "3"));
}

TEST(Session, DescribesColumnsAsTheServerWould) {
  MemoryWorld world(
      "CREATE TABLE T(a INT, b SMALLINT, c BIT, d FLOAT, e MONEY, f DECIMAL(23,10), g VARCHAR(80) COLLATE "
      "NOCASE,"
      " h DATETIME)");
  KeptRows sink;
  world.GetSession().Execute("SELECT *, a + 1, g + 'x' AS k FROM T", sink);
  std::vector<int> numbers;
  for (const Column& column : sink.columns) numbers.push_back(column.type.AdoType());
  EXPECT_THAT(numbers, ElementsAre(3, 2, 11, 5, 6, 131, 200, 135, 3, 200));
  EXPECT_EQ(sink.columns[5].type.precision, 23);
  EXPECT_EQ(sink.columns[5].type.scale, 10);
  EXPECT_EQ(sink.columns[6].type.size, 80);
  EXPECT_EQ(sink.columns[8].name, "");
  EXPECT_EQ(sink.columns[9].name, "k");
  EXPECT_EQ(sink.columns[9].type.size, 81);
}

TEST(Session, GivesCellsOfTheKindOfTheirColumn) {
  class Kinds final : public RowSink {
   public:
    void BeginRows(std::span<const Column> /*columns*/) override {}
    void Row(std::span<const Value> cells) override {
      for (const Value& cell : cells) kinds.push_back(cell.GetKind());
    }
    void EndRows() override {}
    std::vector<Value::Kind> kinds;
  };
  // A whole decimal lies in the file as an integer and comes out as a number with digits all the same.
  MemoryWorld world(
      "CREATE TABLE T(a DECIMAL(23,10), b INT, c DATETIME); INSERT INTO T VALUES(5, 5, '2024-01-01 "
      "00:00:00')");
  Kinds sink;
  world.GetSession().Execute("SELECT a, b, c, NULL FROM T", sink);
  EXPECT_THAT(sink.kinds, ElementsAre(Value::Kind::kDouble, Value::Kind::kInteger, Value::Kind::kText,
                                      Value::Kind::kNull));
}

TEST(Session, CountsTheRowsAStatementTouched) {
  MemoryWorld world;
  world.Rows("CREATE TABLE #t (a int) INSERT INTO #t VALUES (1),(2),(3)");
  EXPECT_EQ(world.GetSession().RowsAffected(), 3);
  world.Rows("UPDATE #t SET a = 0 WHERE a > 1");
  EXPECT_EQ(world.GetSession().RowsAffected(), 2);
}

TEST(Session, RefusesNestingThatWouldExhaustTheStack) {
  MemoryWorld world;
  const std::string opening(100000, '(');
  EXPECT_THAT(world.Failure("SELECT " + opening + "1"),
              StartsWith("191@1 Some part of your SQL statement is nested"));
  std::string sum = "SELECT 1";
  for (int i = 0; i < 100000; ++i) sum += "+1";
  EXPECT_THAT(world.Failure(sum), StartsWith("191@1"));
  std::string cases;
  for (int i = 0; i < 5000; ++i) cases += "CASE WHEN 1=1 THEN ";
  EXPECT_THAT(world.Failure("SELECT " + cases), StartsWith("191@1"));
  std::string blocks;
  for (int i = 0; i < 5000; ++i) blocks += "IF 1=1 BEGIN ";
  EXPECT_THAT(world.Failure(blocks), StartsWith("191@1"));
}

// Each of these once stood twice in its translation, which then doubled with every level.
TEST(Session, TranslatesNestedCallsInTimeThatGrowsWithTheirText) {
  MemoryWorld world;
  const auto nested = [](const std::string& head, const std::string& tail, std::string inner,
                         int levels = 22) {
    for (int i = 0; i < levels; ++i) inner = head + inner + tail;
    return "SELECT " + inner;
  };
  EXPECT_THAT(world.Rows(nested("substring(", ",1,9)", "'abc'")), ElementsAre("abc"));
  EXPECT_THAT(world.Rows(nested("nullif(", ",5)", "1")), ElementsAre("1"));
  EXPECT_THAT(world.Rows(nested("nullif(", ",'5')", "1", 8)), ElementsAre("1"));
  EXPECT_THAT(world.Rows(nested("(", " ^ 0)", "6")), ElementsAre("6"));
  EXPECT_THAT(world.Rows(nested("CASE WHEN ", " BETWEEN 0 AND 9 THEN 3 ELSE 4 END", "3", 12)),
              ElementsAre("3"));
  EXPECT_THAT(world.Rows(nested("CASE ", " WHEN 1 THEN 2 WHEN 2 THEN 1 END", "1", 12)), ElementsAre("1"));
  EXPECT_THAT(world.Rows(nested("reverse(", ")", "'abc'")), ElementsAre("abc"));
}

TEST(Session, TakesNestedCommentsOfAnyDepth) {
  MemoryWorld world;
  std::string comment;
  for (int i = 0; i < 50000; ++i) comment += "/*";
  for (int i = 0; i < 50000; ++i) comment += "*/";
  EXPECT_THAT(world.Rows("SELECT " + comment + " 1"), ElementsAre("1"));
  EXPECT_EQ(world.Failure("SELECT 1 /* /* */"), "113@1 Missing end comment mark '*/'.");
}

TEST(Session, SurvivesBytesThatAreNoText) {
  MemoryWorld world;
  EXPECT_THAT(world.Failure(std::string("SELECT 1 \x01", 10)), HasSubstr("102@1"));
  EXPECT_THAT(world.Rows("SELECT len('\xff\xfe')"), testing::SizeIs(1));
  EXPECT_THAT(world.Rows(std::string("SELECT datalength('a\0b')", 24)), ElementsAre("3"));
}

TEST(Session, ReadsLongInLists) {
  MemoryWorld world;
  std::string list = "SELECT CASE WHEN 7777 IN (0";
  for (int i = 1; i < 10000; ++i) list += "," + std::to_string(i);
  EXPECT_THAT(world.Rows(list + ") THEN 1 ELSE 0 END"), ElementsAre("1"));
}

TEST(Session, FoldsADayRangeSoThatAnIndexServesIt) {
  MemoryWorld world(
      "CREATE TABLE T(d DATETIME, n INT); CREATE INDEX T_d ON T(d);"
      "INSERT INTO T VALUES('2024-01-31 23:59:59',1),('2024-02-01 00:00:00',2),('2024-02-29 23:00:00',3)");
  EXPECT_THAT(
      world.Rows("SELECT n FROM T v1 WHERE convert(datetime,convert(varchar(30),v1.d,111)) >='2024/02/01'\r\n"
                 " AND convert(datetime,convert(varchar(30),v1.d,111)) <='2024/02/29' ORDER BY n"),
      ElementsAre("2", "3"));
}

}  // namespace
}  // namespace salerpt::tsql::test
