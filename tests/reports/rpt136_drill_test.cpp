// From a row of the order statistics to the outbound detail of that row.
#include <gtest/gtest.h>

#include <optional>

#include "runtime/error.h"
#include "tests/reports/rpt136_world.h"

namespace salerpt::testing {
namespace {

using Filter = std::map<std::string, Variant>;

class Rpt136Drill : public Rpt136World {
 protected:
  Rpt136Drill() {
    FillRows();
    child_ = std::make_shared<FakeObject>("ORVSaleRpt.Rpt129");
    runtime_.Register("ORVSaleRpt.Rpt129", [this]() -> ObjectRef {
      ++children_;
      return child_;
    });
    child_->OnAssign("RptID", [](Arguments) { return Variant(); })
        .OnAssign("Filter", [this](Arguments arguments) {
          child_filter_ = As<Dictionary>(arguments[0]);
          return Variant();
        });
    child_->Gives("GetReportData", Variant());
    AnswerChild(true, "");
  }
  // Two detail rows, their subtotal, the total.
  void FillRows() {
    rows_ = MakeRecordset();
    rows_->AppendField("FNumber", FieldType::kVarChar, 355);
    rows_->AppendField("FShortNumber", FieldType::kVarChar, 355);
    rows_->AppendField("FSumSort", FieldType::kSmallInt, 0);
    rows_->Open();
    AddRow("01.01", "1", 0);
    AddRow("01.02", "2", 0);
    AddRow("", "", 106);
    AddRow("合计", "", 101);
  }
  void AddRow(const char* number, const char* short_number, std::int16_t sum_sort) {
    rows_->AddNew();
    rows_->SetValue(0, number);
    rows_->SetValue(1, short_number);
    rows_->SetValue(2, sum_sort);
    rows_->Update();
  }
  void AnswerChild(bool ok, const char* error) {
    child_->Gives("Result", std::make_shared<Dictionary>(Entries{{"OK", ok}, {"Error", error}}));
  }
  Filter DetailFilter(std::int32_t row, Entries conditions = {}) {
    Fetch(conditions);
    EXPECT_EQ(Call(Report(), "GetDetailReport", row).ToObject(), child_);
    Filter filter;
    if (!child_filter_) return filter;
    for (const auto& entry : child_filter_->Entries()) filter[entry.key] = entry.value;
    return filter;
  }
  std::optional<RuntimeError> DetailError(std::int32_t row) {
    try {
      Call(Report(), "GetDetailReport", row);
    } catch (const RuntimeError& error) {
      return error;
    }
    return std::nullopt;
  }

  FakeRef child_;
  DictionaryRef child_filter_;
  int children_ = 0;
};

TEST_F(Rpt136Drill, GivesTheDetailReportTheConditionsOfTheRowAndOfTheStatistics) {
  Filter filter = DetailFilter(0, {{"BItemNumber", "01"},
                                   {"EItemNumber", "09"},
                                   {"BCustNumber", "02"},
                                   {"ECustNumber", "03"},
                                   {"CheckState", std::int32_t{1}},
                                   {"SaleType", std::int32_t{201}},
                                   {"BDepartNumber", "31"},
                                   {"GroupBy", kYes},
                                   {"SumMode", std::int32_t{4}},
                                   {"BLevel", kYes},
                                   {"ELevel", kYes},
                                   {"OnlyShowSum", kYes}});
  EXPECT_EQ(filter["BDate"], Variant(Date::FromYmd(2003, 1, 1)));
  EXPECT_EQ(filter["EDate"], Variant(Date::FromYmd(2003, 3, 31)));
  EXPECT_EQ(filter["CheckState"].ToInt32(), 1);
  EXPECT_EQ(filter["BCustNumber"], Variant("02"));
  EXPECT_EQ(filter["ECustNumber"], Variant("03"));
  EXPECT_EQ(filter["BItemNumber"], Variant("01.01"));
  EXPECT_EQ(filter["EItemNumber"], Variant("01.01"));
  for (const char* key : {"GroupBy", "OnlyShowSum"}) {
    ASSERT_TRUE(filter[key].IsNumber()) << key;
    EXPECT_EQ(filter[key].ToInt32(), 0) << key;
  }
  EXPECT_EQ(filter.size(), 9U);
}

TEST_F(Rpt136Drill, CountsRowsFromTheFirst) {
  EXPECT_EQ(DetailFilter(1)["BItemNumber"], Variant("01.02"));
  EXPECT_EQ(DetailFilter(0)["EItemNumber"], Variant("01.01"));
}

TEST_F(Rpt136Drill, TakesTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  Filter filter = DetailFilter(1);
  EXPECT_EQ(filter["BItemNumber"], Variant("2"));
  EXPECT_EQ(filter["EItemNumber"], Variant("2"));
}

TEST_F(Rpt136Drill, DrivesTheDetailReportWithoutAnExtendedFilter) {
  DetailFilter(0);
  EXPECT_EQ(children_, 1);
  const std::vector<std::string> members = child_->CalledMembers();
  ASSERT_GE(members.size(), 4U);
  EXPECT_EQ(std::vector<std::string>(members.begin(), members.begin() + 4),
            (std::vector<std::string>{"RptID", "Filter", "GetReportData", "Result"}));
  EXPECT_EQ(child_->Calls()[0].arguments[0].ToInt32(), 128);
}

TEST_F(Rpt136Drill, LeavesTheConditionsOfTheStatisticsAsTheyAre) {
  DetailFilter(0, {{"BItemNumber", "01"}, {"OnlyShowSum", kYes}});
  const auto filter = As<Dictionary>(GetMember(Report(), "Filter"));
  EXPECT_NE(filter, child_filter_);
  EXPECT_EQ(filter->Get("BItemNumber"), Variant("01"));
  EXPECT_EQ(filter->Get("OnlyShowSum").ToInt32(), 1);
}

TEST_F(Rpt136Drill, GivesNothingForATotalRow) {
  Fetch();
  EXPECT_EQ(Call(Report(), "GetDetailReport", std::int32_t{2}).ToObject(), nullptr);
  EXPECT_EQ(Call(Report(), "GetDetailReport", std::int32_t{3}).ToObject(), nullptr);
  EXPECT_EQ(children_, 0);
}

TEST_F(Rpt136Drill, RaisesTheErrorOfTheDetailReport) {
  AnswerChild(false, "the detail rows cannot be read");
  Fetch();
  const auto error = DetailError(0);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Description(), "the detail rows cannot be read");
  EXPECT_TRUE(Ok());
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt136Drill, RaisesTheErrorOfTheObjectMakerWhereThereIsNoDetailReport) {
  runtime_.Register("ORVSaleRpt.Rpt129", []() -> ObjectRef {
    throw RuntimeError(error_number::kObjectMaker, "", "no class is registered as ORVSaleRpt.Rpt129");
  });
  Fetch();
  const auto error = DetailError(0);
  ASSERT_TRUE(error);
  EXPECT_NE(error->Description().find("ORVSaleRpt.Rpt129"), std::string::npos);
}

TEST_F(Rpt136Drill, IsAnsweredByTheDetailReportItself) {
  runtime_.Register("ORVSaleRpt.Rpt129", nullptr);
  RegisterReports(runtime_);
  sales_->On("GetSaleDetailData", [this](Arguments) -> Variant {
    ++children_;
    return MakeRecordset();
  });
  Fetch();
  const ObjectRef detail = Call(Report(), "GetDetailReport", std::int32_t{0}).ToObject();
  ASSERT_NE(detail, nullptr);
  EXPECT_EQ(children_, 1);
  EXPECT_TRUE(As<Dictionary>(GetMember(detail, "Result"))->Get("OK").ToBoolean());
}

}  // namespace
}  // namespace salerpt::testing
