// `salerpt log` and `salerpt plans`, as they are used.
#include <gmock/gmock.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "tests/shell/program_run.h"

namespace salerpt::shell {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::StartsWith;

// A folder with a small account set in which a user has worked; gone at the end.
class LogAndPlans : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = fs::temp_directory_path() / ("salerpt-log-" + std::to_string(::getpid()));
    fs::create_directory(folder_);
    ASSERT_EQ(Run("init t.db --seed 7 --lines 200").status, 0);
    std::ofstream(folder_ / "work.sql") << R"sql(
Insert Into t_Log(FDate,FUserID,FKey,FKind,FDescription)
Values ('2024-03-05 08:30:00',16394,'SysRptLog0017',3,'销售出库汇总表查询')
Insert Into t_Log(FDate,FUserID,FKey,FKind,FDescription) Values ('2024-03-05 08:31:00',77,'C001C029',0,'排序, 1')
Insert Into t_RptPlan(FUserID,FRptID,FPlan,FStatus,FNextChoose) Values (16394,166,'月报',1,1)
Insert Into t_RptPlan(FUserID,FRptID,FPlan,FStatus,FNextChoose) Values (16394,166,'默认方案',0,0)
Insert Into t_RptPlan(FUserID,FRptID,FPlan,FStatus,FNextChoose) Values (16394,167,'A',0,0)
Insert Into t_RptPlan(FUserID,FRptID,FPlan,FStatus,FNextChoose) Values (16395,166,'B',0,0)
Insert Into t_RptPlanValue(FUserID,FRptID,FPlan,FIndex,FKey,FValue) Values (16394,166,'月报',1,'EDate','2024-03-31')
Insert Into t_RptPlanValue(FUserID,FRptID,FPlan,FIndex,FKey,FValue) Values (16394,166,'月报',2,'BDate','2024-03-01')
)sql";
    ASSERT_EQ(Run("sql work.sql").status, 0);
  }
  static void TearDownTestSuite() { fs::remove_all(folder_); }

  static Outcome Run(const std::string& words) { return RunProgramIn(folder_, words); }

 private:
  static fs::path folder_;
};
fs::path LogAndPlans::folder_;

TEST_F(LogAndPlans, TheLogIsATable) {
  const Outcome outcome = Run("log");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out,
            "date                | user          | key           | kind | text\n"
            "--------------------+---------------+---------------+------+-------------------\n"
            "2024-03-05 08:30:00 | Administrator | SysRptLog0017 |    3 | 销售出库汇总表查询\n"
            "2024-03-05 08:31:00 | 77            | C001C029      |    0 | 排序, 1\n");
}

TEST_F(LogAndPlans, TheLogIsWrittenForMachinesToo) {
  EXPECT_THAT(Run("log --format csv").out,
              HasSubstr("date,user,key,kind,text\n2024-03-05 08:30:00,Administrator,SysRptLog0017,3,"));
  EXPECT_THAT(Run("log --format csv").out, HasSubstr(",77,C001C029,0,\"排序, 1\"\n"));
  EXPECT_THAT(Run("log --format json").out, StartsWith("{\"columns\": [{\"name\": \"date\""));
}

TEST_F(LogAndPlans, PlansStandWithTheirMarksAndTheirValuesInSavingOrder) {
  const Outcome outcome = Run("plans 166 --format csv");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out,
            "plan,chosen,next,key,value\n"
            "月报,1,1,EDate,2024-03-31\n"
            "月报,1,1,BDate,2024-03-01\n"
            "默认方案,0,0,,\n");
}

TEST_F(LogAndPlans, AClassOfReportNamesItsFamily) {
  EXPECT_EQ(Run("plans Rpt128").out, Run("plans 166").out);
  EXPECT_THAT(Run("plans 166").out, HasSubstr("月报"));
}

TEST_F(LogAndPlans, AFamilyWithoutPlansIsAnEmptyTable) {
  const Outcome outcome = Run("plans 999 --format csv");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "plan,chosen,next,key,value\n");
}

TEST_F(LogAndPlans, WrongUsageIsTold) {
  for (const char* words : {"plans x166", "plans 166x", "plans 99999999999", "plans 166 --format xml",
                            "log --format xlsx", "log --db none.db", "plans 166 --db none.db", "plans"}) {
    const Outcome outcome = Run(words);
    EXPECT_EQ(outcome.status, 2) << words;
    EXPECT_EQ(outcome.out, "") << words;
    EXPECT_THAT(outcome.err, StartsWith("salerpt: ")) << words;
  }
}

}  // namespace
}  // namespace salerpt::shell
