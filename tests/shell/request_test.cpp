// A report driven as a host drives it, on a recorded suite.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "runtime/mmts.h"
#include "runtime/mrpt.h"
#include "runtime/report.h"
#include "runtime/report_interfaces.h"
#include "shell/recorded/json_value.h"
#include "shell/recorded/request.h"
#include "test_places.h"

namespace salerpt::shell {
namespace {

constexpr const char* kData = "ORVMSaleRpt.Data";

// A report that sends its filter and takes the rows.
class Parent : public Report {
 public:
  explicit Parent(std::string_view class_name = "Rpt128") : Report(class_name) {}
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf(Class().name); }
  ObjectRef GetDetailReport(std::int32_t row) override {
    if (row == 9) throw RuntimeError(-1, "Rpt129", "没有明细");
    Call(CreateObject("ORVMClass.ClassInfo"), "LookUp", GetPropsString(), row);
    if (row == 8) return nullptr;
    const ObjectRef child = CreateObject("ORVSaleRpt.Rpt129");
    auto filter = std::make_shared<Dictionary>();
    filter->Set("Row", row);
    SetMember(child, "Filter", filter);
    Call(child, "GetReportData");
    return child;
  }

 protected:
  void BuildTitle() override { title_ = std::make_shared<Vector>(); }
  void FetchData() override {
    WriteLog("Key", 3, "text");
    Variant filter = Filter();
    rs_ = As<Recordset>(Call(CreateObject(kData), "GetRows", GetPropsString(), filter));
    Conditions().Set("RptID", RptID());
    Conditions().Set("Family", ext_filter_);
  }
};

// Its detail report, which has no read of its filter.
class Child final : public Parent {
 public:
  Child() : Parent("Rpt129") {}
};

struct World {
  World() {
    runtime.Register("ORVSaleRpt.Rpt128", [] { return MakeReport<Parent>(); });
    runtime.Register("ORVSaleRpt.Rpt129", [] { return MakeReport<Child>(); });
  }
  Json Run(const char* text, std::string_view class_name = "Rpt128") {
    return RunRequest(runtime, class_name, ReadRequestCase(Json::parse(text)));
  }
  Runtime runtime;
};

std::string CaseError(const char* text) {
  try {
    ReadRequestCase(Json::parse(text));
  } catch (const RuntimeError& failure) {
    return failure.Description();
  }
  return {};
}

TEST(Request, ShowsEveryKeyInOrder) {
  World world;
  const Json answer = world.Run("{}");
  std::vector<std::string> keys;
  for (const auto& [key, value] : answer.items()) keys.push_back(key);
  EXPECT_EQ(keys, (std::vector<std::string>{"Result", "Property", "Title", "Header", "calls", "progress",
                                            "boxes", "log", "Rs", "Filter", "detail"}));
}

TEST(Request, ShowsWhatTheHostReads) {
  World world;
  const Json answer = world.Run(R"({"Filter": {"GroupBy": 1},
    "answers": {"GetRows": {"fields": [["FNumber", 200, 80], ["FSumSort", 3, 0]], "rows": [["01", 0]]}}})");
  EXPECT_EQ(answer["Result"].dump(), R"({"OK":true,"Error":""})");
  EXPECT_EQ(answer["Property"].dump(), R"({"Name":"销售出库汇总表","RptProperty":2,"DetailRptID":128})");
  EXPECT_EQ(answer["Title"].dump(), "[]");
  EXPECT_TRUE(answer["Header"].is_null());
  EXPECT_EQ(answer["progress"].dump(), R"(["正在连接服务器"])");
  EXPECT_EQ(answer["log"].dump(), R"([["Key",3,"text"]])");
  EXPECT_EQ(answer["Rs"].dump(), R"({"fields":[["FNumber",200,80],["FSumSort",3,0]],"rows":[["01",0]]})");
  EXPECT_TRUE(answer["detail"].is_null());
  EXPECT_FALSE(IsFailure(answer));
}

TEST(Request, ShowsTheFilterInCallsAsItWasAndAfterwardsAsItIs) {
  World world;
  const Json answer = world.Run(R"({"RptID": 5, "ExtFirter": "77", "Filter": {"GroupBy": 1}})");
  EXPECT_EQ(answer["calls"].dump(),
            R"([{"object":"ORVMSaleRpt.Data","member":"GetRows","args":["<props>",{"GroupBy":1}]}])");
  EXPECT_EQ(answer["Filter"].dump(), R"({"GroupBy":1,"RptID":5,"Family":"77"})");
}

TEST(Request, TakesTheClassWithoutRegardToCase) {
  World world;
  EXPECT_EQ(world.Run("{}", "rpt128")["Property"]["Name"], "销售出库汇总表");
}

TEST(Request, TakesAFilterOfNullAsNothing) {
  World world;
  const Json answer = world.Run(R"({"Filter": null})");
  EXPECT_EQ(answer["Result"].dump(), R"({"OK":false,"Error":"请选择过滤条件！"})");
  EXPECT_EQ(answer["calls"].dump(), "[]");
  EXPECT_TRUE(answer["Filter"].is_null());
  EXPECT_TRUE(IsFailure(answer));
}

TEST(Request, ShowsTheFilterOfAClassWithoutARead) {
  World world;
  const Json answer = world.Run(R"({"Filter": {"A": 1}})", "Rpt129");
  EXPECT_EQ(answer["Filter"]["A"], 1);
}

TEST(Request, RefreshesAsOftenAsAsked) {
  World world;
  const Json answer = world.Run(R"({"repeat": 2, "answers": {"GetRows": [
    {"fields": [["A", 3, 0]], "rows": [[1]]}, {"fields": [["A", 3, 0]], "rows": [[2]]}]}})");
  EXPECT_EQ(answer["calls"].size(), 3U);
  EXPECT_EQ(answer["progress"].size(), 3U);
  EXPECT_EQ(answer["Rs"].dump(), R"({"fields":[],"rows":[]})");
}

TEST(Request, AnswersAFailureOfACallInResult) {
  World world;
  const Json answer = world.Run(
      R"({"faults": {"GetRows": {"number": -1, "source": "Srv", "description": "服务器忙"}}, "drill": 0})");
  EXPECT_EQ(answer["Result"].dump(), R"({"OK":false,"Error":"服务器忙","ErrorSource":"Srv"})");
  EXPECT_EQ(answer["calls"].size(), 1U);
  EXPECT_TRUE(answer["Rs"].is_null());
  EXPECT_TRUE(answer["detail"].is_null());
  EXPECT_TRUE(IsFailure(answer));
}

TEST(Request, KeepsWhatTheDrillCallsAndShowsInDetail) {
  World world;
  const Json answer = world.Run(R"({"drill": 3, "answers": {"GetRows": [
    {"fields": [["A", 3, 0]], "rows": [[1]]}, {"fields": [["B", 3, 0]], "rows": [[2]]}]}})");
  // What the report itself calls before it makes the detail report is its own.
  ASSERT_EQ(answer["calls"].size(), 2U);
  EXPECT_EQ(answer["calls"][1].dump(),
            R"({"object":"ORVMClass.ClassInfo","member":"LookUp","args":["<props>",3]})");
  EXPECT_EQ(answer["progress"].size(), 1U);
  EXPECT_EQ(answer["log"].size(), 1U);
  const Json& detail = answer["detail"];
  EXPECT_EQ(detail.begin().key(), "class");
  EXPECT_EQ(detail["class"], "Rpt129");
  EXPECT_EQ(detail["Result"]["OK"], true);
  EXPECT_EQ(detail["calls"].dump(),
            R"([{"object":"ORVMSaleRpt.Data","member":"GetRows","args":["<props>",{"Row":3}]}])");
  EXPECT_EQ(detail["progress"].size(), 1U);
  EXPECT_EQ(detail["Rs"]["rows"].dump(), "[[2]]");
  EXPECT_EQ(detail["Filter"]["Row"], 3);
  EXPECT_TRUE(detail["detail"].is_null());
  EXPECT_FALSE(IsFailure(answer));
}

TEST(Request, ShowsTheErrorThatADrillRaises) {
  World world;
  const Json answer = world.Run(R"({"drill": 9})");
  EXPECT_EQ(answer["detail"]["error"].dump(), R"({"number":-1,"source":"Rpt129","description":"没有明细"})");
  EXPECT_EQ(answer["detail"]["calls"].dump(), "[]");
  EXPECT_EQ(answer["Result"]["OK"], true);
  EXPECT_TRUE(IsFailure(answer));
}

TEST(Request, KeepsTheCallsOfADrillThatGivesNothing) {
  World world;
  const Json answer = world.Run(R"({"drill": 8})");
  EXPECT_TRUE(answer["detail"].is_null());
  ASSERT_EQ(answer["calls"].size(), 2U);
  EXPECT_EQ(answer["calls"][1]["member"], "LookUp");
  EXPECT_FALSE(IsFailure(answer));
}

TEST(Request, GivesNoDetailForAClassWithoutOne) {
  World world;
  EXPECT_TRUE(world.Run(R"({"drill": 0})", "Rpt129")["detail"].is_null());
}

TEST(Request, NamesAnUnknownClass) {
  World world;
  try {
    world.Run("{}", "Rpt12");
    FAIL() << "no error was raised";
  } catch (const RuntimeError& failure) {
    EXPECT_TRUE(failure.Description().starts_with("\"Rpt12\" is no report class")) << failure.Description();
  }
}

TEST(RequestCase, NamesThePlaceOfAWrongValue) {
  EXPECT_EQ(CaseError("[]"), "the document: [] is not an object");
  EXPECT_TRUE(CaseError(R"({"filter": {}})").starts_with("/filter: unknown key; did you mean Filter?"));
  EXPECT_EQ(CaseError(R"({"Filter": "x"})"), "/Filter: \"x\" is not an object");
  EXPECT_EQ(CaseError(R"({"RptID": "128"})"),
            "/RptID: \"128\" is not a whole number from -2147483648 to 2147483647");
  EXPECT_EQ(CaseError(R"({"ExtFirter": true})"),
            "/ExtFirter: true is not a whole number from -2147483648 to 2147483647");
  EXPECT_EQ(CaseError(R"({"drill": -1})"), "/drill: -1 is not a whole number from 0 to 2147483647");
  EXPECT_EQ(CaseError(R"({"repeat": 1.5})"), "/repeat: 1.5 is not a whole number from 0 to 2147483647");
}

// --- The reports themselves

TEST(Request, DrivesThePeriodReportPeriodByPeriod) {
  const Json answer = RunRequest("Rpt147", Json::parse(R"({"dataRight": {"1": true},
    "Filter": {"BYear": 2002, "BPeriod": 12, "EYear": 2003, "EPeriod": 1}})"));
  ASSERT_EQ(answer["calls"].size(), 2U);
  EXPECT_EQ(answer["calls"][0]["object"], "ORVMCaculateRpt.Data");
  EXPECT_EQ(answer["calls"][0]["member"], "GetSaleData");
  EXPECT_EQ(answer["calls"][1]["args"].dump(),
            R"(["<props>",2003,1,{"BYear":2002,"BPeriod":12,"EYear":2003,"EPeriod":1,"DataRightFrom":"",)"
            R"("DataRightWhere":" CharIndex('16394',T4.FRightUserID)>0 ","bLongNumber":true},0])");
  EXPECT_EQ(
      answer["progress"].dump(),
      R"(["正在连接中间层...","正在从服务器读取2002年第12期数据...","正在从服务器读取2003年第1期数据..."])");
  EXPECT_EQ(answer["Result"].dump(), R"({"OK":true,"Error":""})");
  EXPECT_EQ(answer["Rs"]["rows"].dump(), "[]");
}

TEST(Request, LeavesThePeriodReportAloneWithoutPeriods) {
  const Json answer = RunRequest("Rpt147", Json::parse(R"({"faults": {"GetProfile": {"description": "x"}},
    "Filter": {"BYear": 2003, "BPeriod": 1, "EYear": 2003, "EPeriod": 1}})"));
  EXPECT_EQ(answer["calls"].dump(), "[]");
  EXPECT_EQ(answer["Result"]["OK"], true);
  EXPECT_TRUE(answer["Rs"].is_null());
}

TEST(Request, DrivesTheOutboundSummaryInOneCall) {
  const Json answer =
      RunRequest("Rpt128", Json::parse(R"({"Filter": {"BDate": "2003-01-01", "EDate": "2003-01-31"}})"));
  ASSERT_EQ(answer["calls"].size(), 1U);
  EXPECT_EQ(answer["calls"][0]["member"], "GetSaleAmountData");
  const Json& request = answer["calls"][0]["args"][1];
  EXPECT_TRUE(request.contains("SElECT"));
  EXPECT_FALSE(request.contains("SELECT"));
  EXPECT_EQ(request["RptID"], "Rpt128");
}

// --- The command

struct Ran {
  int status;
  std::string out;
};

// Runs the program with arguments; standard error comes in `out` too.
Ran RunProgram(const std::string& arguments) {
  std::FILE* pipe = popen((std::string(tests::Program()) + " " + arguments + " 2>&1").c_str(), "r");
  Ran ran{-1, {}};
  if (pipe == nullptr) return ran;
  std::array<char, 4096> block{};
  while (const std::size_t size = std::fread(block.data(), 1, block.size(), pipe))
    ran.out.append(block.data(), size);
  const int status = pclose(pipe);
  if (WIFEXITED(status)) ran.status = WEXITSTATUS(status);
  return ran;
}

class RequestCommand : public testing::Test {
 protected:
  void SetUp() override { std::filesystem::create_directories(folder_); }
  void TearDown() override { std::filesystem::remove_all(folder_); }
  std::string CaseFile(std::string_view text) {
    const std::filesystem::path file = folder_ / "case.json";
    std::ofstream(file) << text;
    return file.string();
  }
  std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() /
      (std::string("request_") + testing::UnitTest::GetInstance()->current_test_info()->name());
};

TEST_F(RequestCommand, PrintsOneObjectAndEndsWell) {
  const Ran ran =
      RunProgram("request Rpt147 " +
                 CaseFile(R"({"Filter": {"BYear": 2003, "BPeriod": 1, "EYear": 2003, "EPeriod": 1}})"));
  EXPECT_EQ(ran.status, 0);
  EXPECT_EQ(Json::parse(ran.out)["Result"]["OK"], true);
}

TEST_F(RequestCommand, PrintsTheObjectOfAFailureToo) {
  const Ran ran = RunProgram("request Rpt147 " + CaseFile(R"({"Filter": null})"));
  EXPECT_EQ(ran.status, 1);
  EXPECT_EQ(Json::parse(ran.out)["Result"]["Error"], "请选择过滤条件！");
}

TEST_F(RequestCommand, EndsInOneLineForABadCase) {
  const std::string file = CaseFile("{\"drill\": \"x\"}");
  const Ran ran = RunProgram("request Rpt147 " + file);
  EXPECT_EQ(ran.status, 2);
  EXPECT_EQ(ran.out, "salerpt: " + file + ": /drill: \"x\" is not a whole number from 0 to 2147483647\n");
}

TEST_F(RequestCommand, EndsInOneLineForWhatIsNoJson) {
  const std::string file = CaseFile("{\n\"drill\" 1}");
  const Ran ran = RunProgram("request Rpt147 " + file);
  EXPECT_EQ(ran.status, 2);
  EXPECT_TRUE(ran.out.starts_with("salerpt: " + file + ": line 2, column 9: ")) << ran.out;
  EXPECT_EQ(ran.out.find('\n'), ran.out.size() - 1);
}

TEST_F(RequestCommand, EndsInOneLineForAnUnknownClass) {
  const Ran ran = RunProgram("request Rpt999 " + CaseFile("{}"));
  EXPECT_EQ(ran.status, 2);
  EXPECT_TRUE(ran.out.starts_with("salerpt: \"Rpt999\" is no report class")) << ran.out;
  EXPECT_EQ(ran.out.find('\n'), ran.out.size() - 1);
}

TEST_F(RequestCommand, EndsInOneLineForAFileThatIsNotThere) {
  const Ran ran = RunProgram("request Rpt147 " + (folder_ / "none.json").string());
  EXPECT_EQ(ran.status, 2);
  EXPECT_NE(ran.out.find("none.json"), std::string::npos);
  EXPECT_EQ(ran.out.find('\n'), ran.out.size() - 1);
}

}  // namespace
}  // namespace salerpt::shell
