// From a row of the fee invoice summary to the fee invoices of that row.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "runtime/error.h"
#include "tests/reports/rpt301_world.h"

namespace salerpt::testing {
namespace {

class Rpt301Drill : public Rpt301World {
 protected:
  Rpt301Drill() {
    FillRows();
    child_ = std::make_shared<FakeObject>("ORVSaleRpt.Rpt302");
    runtime_.Register("ORVSaleRpt.Rpt302", [this]() -> ObjectRef {
      ++children_;
      return child_;
    });
    child_->OnAssign("RptID", [](Arguments) { return Variant(); })
        .OnAssign("ExtFirter", [](Arguments) { return Variant(); })
        .OnAssign("Filter", [this](Arguments arguments) {
          child_filter_ = As<Dictionary>(arguments[0]);
          return Variant();
        });
    child_->Gives("GetReportData", Variant());
    AnswerChild(true, "");
  }
  void FillRows() {
    rows_ = MakeRecordset();
    for (const char* field : {"FNumber", "FShortNumber"}) rows_->AppendField(field, FieldType::kVarChar, 355);
    rows_->AppendField("FSumSort", FieldType::kSmallInt, 0);
    rows_->Open();
    AddRow("01.01", "1", 0);
    AddRow("01.02", "2", 0);
    AddRow("01.02", "2", 107);
    AddRow("合计", "", 101);
  }
  void AddRow(const char* number, const char* short_number, std::int16_t code) {
    rows_->AddNew();
    rows_->SetValue(0, number);
    rows_->SetValue(1, short_number);
    rows_->SetValue(2, code);
    rows_->Update();
  }
  void AnswerChild(bool ok, const char* error) {
    child_->Gives("Result", std::make_shared<Dictionary>(Entries{{"OK", ok}, {"Error", error}}));
  }
  std::optional<RuntimeError> DetailError() {
    try {
      Call(Report(), "GetDetailReport", std::int32_t{0});
    } catch (const RuntimeError& error) {
      return error;
    }
    return std::nullopt;
  }

  FakeRef child_;
  DictionaryRef child_filter_;
  int children_ = 0;
};

TEST_F(Rpt301Drill, GivesTheListTheConditionsOfTheSummaryAndTheFeeOfTheRow) {
  FetchInvoices({{"BFeeNumber", "01"},
                 {"EFeeNumber", "09"},
                 {"BCust", "21"},
                 {"ECust", "22"},
                 {"BSupply", "31"},
                 {"ESupply", "32"},
                 {"CheckState", std::int32_t{1}},
                 {"HookStatus", std::int32_t{1}},
                 {"InvoiceStyle", std::int32_t{1}},
                 {"OnlyShowSum", std::int32_t{0}}});
  EXPECT_EQ(Call(Report(), "GetDetailReport", std::int32_t{1}).ToObject(), child_);
  ASSERT_NE(child_filter_, nullptr);
  EXPECT_EQ(child_filter_->Get("BDate"), Variant(Date::FromYmd(2003, 1, 1)));
  EXPECT_EQ(child_filter_->Get("EDate"), Variant(Date::FromYmd(2003, 3, 31)));
  EXPECT_EQ(child_filter_->Get("BCust"), Variant("21"));
  EXPECT_EQ(child_filter_->Get("ECust"), Variant("22"));
  EXPECT_EQ(child_filter_->Get("BSupply"), Variant("31"));
  EXPECT_EQ(child_filter_->Get("ESupply"), Variant("32"));
  EXPECT_EQ(child_filter_->Get("CheckState").ToInt32(), 1);
  EXPECT_EQ(child_filter_->Get("HookStatus").ToInt32(), 1);
  EXPECT_EQ(child_filter_->Get("InvoiceStyle").ToInt32(), 1);
  EXPECT_EQ(child_filter_->Get("BFeeNumber"), Variant("01.02"));
  EXPECT_EQ(child_filter_->Get("EFeeNumber"), Variant("01.02"));
  EXPECT_EQ(child_filter_->Entries().size(), 11U);
}

TEST_F(Rpt301Drill, TakesTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  FetchInvoices();
  Call(Report(), "GetDetailReport", std::int32_t{1});
  ASSERT_NE(child_filter_, nullptr);
  EXPECT_EQ(child_filter_->Get("BFeeNumber"), Variant("2"));
  EXPECT_EQ(child_filter_->Get("EFeeNumber"), Variant("2"));
}

TEST_F(Rpt301Drill, DrivesTheListInTheOrderOfAHost) {
  FetchInvoices();
  Call(Report(), "GetDetailReport", std::int32_t{0});
  EXPECT_EQ(children_, 1);
  const std::vector<std::string> members = child_->CalledMembers();
  ASSERT_GE(members.size(), 5U);
  EXPECT_EQ(members[0], "RptID");
  EXPECT_EQ(child_->Calls()[0].arguments[0].ToInt32(), 302);
  const auto family = std::find(members.begin(), members.end(), "ExtFirter");
  ASSERT_LT(family - members.begin(), 3);
  EXPECT_EQ(child_->Calls()[static_cast<std::size_t>(family - members.begin())].arguments[0].ToText(), "302");
  EXPECT_LT(std::find(members.begin(), members.end(), "Filter") - members.begin(), 3);
  EXPECT_EQ(members[3], "GetReportData");
  EXPECT_EQ(members[4], "Result");
}

TEST_F(Rpt301Drill, LeavesTheConditionsOfTheSummaryAsTheyAre) {
  FetchInvoices({{"BFeeNumber", "01"}});
  Call(Report(), "GetDetailReport", std::int32_t{0});
  const auto filter = As<Dictionary>(GetMember(Report(), "Filter"));
  EXPECT_NE(filter, child_filter_);
  EXPECT_EQ(filter->Get("BFeeNumber"), Variant("01"));
}

TEST_F(Rpt301Drill, GivesNothingForATotalRow) {
  FetchInvoices();
  EXPECT_EQ(Call(Report(), "GetDetailReport", std::int32_t{2}).ToObject(), nullptr);
  EXPECT_EQ(Call(Report(), "GetDetailReport", std::int32_t{3}).ToObject(), nullptr);
  EXPECT_EQ(children_, 0);
}

TEST_F(Rpt301Drill, RaisesTheErrorOfTheList) {
  AnswerChild(false, "the invoices cannot be read");
  FetchInvoices();
  const auto error = DetailError();
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), -1);
  EXPECT_EQ(error->Description(), "the invoices cannot be read");
  EXPECT_TRUE(Ok());
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt301Drill, GivesNothingWhereTheListFailsWithoutAWord) {
  AnswerChild(false, "");
  FetchInvoices();
  EXPECT_EQ(Call(Report(), "GetDetailReport", std::int32_t{0}).ToObject(), nullptr);
  EXPECT_EQ(children_, 1);
}

}  // namespace
}  // namespace salerpt::testing
