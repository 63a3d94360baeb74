// `salerpt info`, run as a person runs it.
#include <gmock/gmock.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "suite/accountset/accountset.h"
#include "tests/shell/program_run.h"

namespace salerpt::shell {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class Info : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = fs::temp_directory_path() / ("salerpt-info-" + std::to_string(::getpid()));
    fs::create_directory(folder_);
    accountset::Create(folder_ / "made.db", {.seed = 7, .lines = 1000});
  }
  static void TearDownTestSuite() { fs::remove_all(folder_); }
  void SetUp() override {
    fs::copy_file(folder_ / "made.db", folder_ / "t.db", fs::copy_options::overwrite_existing);
  }

  static Outcome Run(const std::string& words) { return RunProgramIn(folder_, words); }
  static void Write(const std::string& name, const std::string& text) {
    std::ofstream(folder_ / name) << text;
  }
  static void Sql(const std::string& sql) {
    Write("change.sql", sql);
    EXPECT_EQ(Run("sql change.sql").status, 0);
  }
  // The object printed for a request.
  static Json Answer(const std::string& request) {
    Write("request.json", request);
    const Outcome outcome = Run("info request.json");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
    return Json::parse(outcome.out);
  }
  static void ExpectUnusable(const std::string& words, const std::string& message) {
    const Outcome outcome = Run(words);
    EXPECT_EQ(outcome.status, 2) << words;
    EXPECT_EQ(outcome.out, "") << words;
    EXPECT_THAT(outcome.err, StartsWith("salerpt: " + message)) << words;
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
  }

 private:
  static fs::path folder_;
};
fs::path Info::folder_;

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// --- Refresh

TEST_F(Info, PrintsTheRequestAsItWasLeftAndTheAnswer) {
  const Json shown = Answer(R"({"FRefreshType": 3, "FSubFuncID": 620118})");
  EXPECT_EQ(
      shown.dump(),
      R"({"request":{"FRefreshType":3,"FSubFuncID":620118,"DelAll":false},"answer":[)"
      R"({"FDetailFuncID":"62011801","FVisible":false},{"FDetailFuncID":"62011802","FVisible":true}]})");
}

TEST_F(Info, FollowsTheStateOfTheSystem) {
  Sql("Update t_SystemProfile Set FValue='0' Where FKey='SystemStarted'\n"
      "Update t_SystemProfile Set FValue='101' Where FKey='CloseInModule'");
  EXPECT_EQ(
      Answer(R"({"FRefreshType": 3, "FSubFuncID": 620118})")["answer"].dump(),
      R"([{"FDetailFuncID":"62011801","FVisible":true},{"FDetailFuncID":"62011802","FVisible":false}])");
  EXPECT_EQ(Answer(R"({"FRefreshType": 2, "FSubSysID": 21})")["answer"].dump(),
            R"([{"FSubFuncID":"2180","FVisible":true}])");
  EXPECT_EQ(Answer(R"({"FRefreshType": 2, "FSubSysID": 20})")["answer"].dump(),
            R"([{"FSubFuncID":"2080","FVisible":false}])");
}

TEST_F(Info, PrintsAnEmptyAnswerToAnyOtherRequest) {
  EXPECT_EQ(Answer("{}").dump(), R"({"request":{"DelAll":false},"answer":[]})");
  EXPECT_EQ(Answer(R"({"FRefreshType": 2, "FSubSysID": 22})")["answer"].dump(), "[]");
}

TEST_F(Info, RefusesARequestThatIsNone) {
  Write("b.json", R"({"FSubSysID": "20"})");
  ExpectUnusable("info b.json", "b.json: /FSubSysID: \"20\": a whole number was expected");
  Write("b.json", R"({"FSubSysID": 2.5})");
  ExpectUnusable("info b.json", "b.json: /FSubSysID: 2.5: a whole number was expected");
  Write("b.json", R"({"FSubSys": 20})");
  ExpectUnusable("info b.json", "b.json: /FSubSys: 20: unknown key; did you mean FSubSysID?");
  Write("b.json", "[]");
  ExpectUnusable("info b.json", "b.json: []: an object of keys and values was expected");
  Write("b.json", "{\"FSubSysID\" 1}");
  ExpectUnusable("info b.json", "b.json: line 1, column 14: this is no JSON");
  ExpectUnusable("info none.json", "none.json: cannot be read");
}

TEST_F(Info, RefusesWrongUsage) {
  Write("r.json", "{}");
  ExpectUnusable("info", "REQUEST.json or --key was expected");
  ExpectUnusable("info r.json --key 123", "REQUEST.json excludes --key");
  ExpectUnusable("info --shift 1", "--shift requires --key");
  ExpectUnusable("info r.json --shift 1", "--shift requires --key");
  ExpectUnusable("info --key F12", "--key: ");
  ExpectUnusable("info --key 99999", "--key: Value 99999 not in range 0 to 32767");
  ExpectUnusable("info r.json --db none.db", "none.db: no such account set");
}

// --- Keys

TEST_F(Info, PrintsTheStockQueryForF12) {
  const Outcome outcome = Run("info --key 123");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  const std::vector<std::string> lines = Lines(outcome.out);
  ASSERT_GT(lines.size(), 10U);
  EXPECT_EQ(lines[0], "库存查询");
  EXPECT_THAT(lines[1], StartsWith("物料代码"));
  EXPECT_THAT(lines[1], HasSubstr("库存数量"));
  EXPECT_THAT(lines[2], StartsWith("-----"));
  EXPECT_THAT(lines[3], StartsWith("01."));
}

TEST_F(Info, PrintsTheStockStatusForShiftF12) {
  const Outcome outcome = Run("info --key 123 --shift 1");
  EXPECT_EQ(outcome.status, 0);
  const std::vector<std::string> lines = Lines(outcome.out);
  ASSERT_GT(lines.size(), 10U);
  EXPECT_EQ(lines[0], "库存状况");
  EXPECT_THAT(lines[1], HasSubstr("收入数量"));
  EXPECT_THAT(lines[1], HasSubstr("发出数量"));
}

TEST_F(Info, ShowsQuantitiesWithTheDecimalsOfTheItem) {
  Sql("Delete From ICStockBillEntry\nDelete From ICStockBill\n"
      "Update t_ICItem Set FQtyDecimal=2,FName='样品' Where FItemID=(Select Min(FItemID) From t_ICItem)\n"
      "Insert Into ICStockBill(FInterID,FTranType,FBillNo,FDate,FStatus) Values (1,1,'W1','2024-01-01',1)\n"
      "Insert Into ICStockBillEntry(FInterID,FEntryID,FItemID,FUnitID,FQty,FAuxQty,FDCStockID)\n"
      "Select 1,1,(Select Min(FItemID) From t_ICItem),101,12.5,12.5,(Select Min(FItemID) From t_Stock)");
  const std::vector<std::string> lines = Lines(Run("info --key 123").out);
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_THAT(lines[3], HasSubstr("样品"));
  EXPECT_TRUE(lines[3].ends_with("12.50")) << lines[3];
}

TEST_F(Info, PrintsNothingForAnyOtherKey) {
  for (const char* words : {"info --key 123 --shift 2", "info --key 122", "info --key 0"}) {
    const Outcome outcome = Run(words);
    EXPECT_EQ(outcome.status, 0) << words;
    EXPECT_EQ(outcome.out + outcome.err, "") << words;
  }
}

TEST_F(Info, TellsWhyNoListOpens) {
  Sql("Update t_SystemProfile Set FValue='0' Where FKey='SystemStarted'");
  Outcome outcome = Run("info --key 123");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "salerpt: 青岚提示 该功能必须在系统启用后才能使用\n");
  Sql("Update t_SystemProfile Set FValue='1' Where FKey='SystemStarted'\n"
      "Insert Into t_FieldRight(FUserID,FSubSysID,FObjectID,FRight,FAllowed) Values "
      "(16394,1099,15,2097152,0)");
  outcome = Run("info --key 123 --shift 1");
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "salerpt: 青岚提示 您没有库存查询权限。\n");
}

TEST_F(Info, TellsItsUseInTheHelp) {
  const Outcome help = Run("info --help");
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.out, HasSubstr("REQUEST.json"));
  EXPECT_THAT(help.out, HasSubstr("--shift"));
  EXPECT_THAT(Run("--help").out, HasSubstr("info"));
}

}  // namespace
}  // namespace salerpt::shell
