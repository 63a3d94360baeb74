// From a row of the order execution summary to the detail report of that row.
#include <gtest/gtest.h>

#include <algorithm>

#include "runtime/error.h"
#include "tests/reports/rpt138_world.h"

namespace salerpt::testing {
namespace {

using Filter = std::map<std::string, Variant>;

class Rpt138Drill : public Rpt138World {
 protected:
  Rpt138Drill() {
    FillRows({"FNumber", "FShortNumber", "FCustName", "FProp02"});
    child_ = std::make_shared<FakeObject>("ORVSaleRpt.Rpt137");
    runtime_.Register("ORVSaleRpt.Rpt137", [this]() -> ObjectRef {
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
    // The read of a customer's code, wherever the report asks for it.
    classes_ = RegisterFake(runtime_, "ORVMClass.ClassInfo");
    AnswerCustomer(OneValue("FNumber", "02.01"));
  }
  // A detail row, another one, a subtotal and the total.
  void FillRows(std::initializer_list<const char*> fields) {
    rows_ = MakeRecordset();
    for (const char* field : fields) rows_->AppendField(field, FieldType::kVarChar, 355);
    rows_->AppendField("FSumSort", FieldType::kSmallInt, 0);
    rows_->Open();
    AddRow(fields, {"01.01", "1", "O'Neil", "O'Neil"}, 0);
    AddRow(fields, {"01.02", "2", "Miller", "Miller"}, 0);
    AddRow(fields, {"01.02", "2", "Miller(小计)", "Miller(小计)"}, 107);
    AddRow(fields, {"", "", "合计", "合计"}, 101);
  }
  void AddRow(std::initializer_list<const char*> fields, std::initializer_list<Variant> values,
              std::int16_t sum_sort) {
    rows_->AddNew();
    for (std::size_t i = 0; i < fields.size(); ++i) rows_->SetValue(static_cast<int>(i), values.begin()[i]);
    rows_->SetValue(static_cast<int>(fields.size()), sum_sort);
    rows_->Update();
  }
  void AnswerCustomer(const RecordsetRef& rows) {
    classes_->Gives("GetData", rows);
    sales_->Gives("GetData", rows);
    currency_->On("GetData", [this, rows](Arguments arguments) -> Variant {
      if (Contains(arguments[1].ToText(), "t_Item")) return rows;
      return OneValue("FScale", "2");
    });
  }
  // The texts that asked for a customer's code.
  std::vector<std::string> CustomerReads() {
    std::vector<std::string> reads;
    for (const FakeRef& object : {classes_, sales_, currency_}) {
      for (const RecordedCall& call : object->Calls()) {
        if (call.member == "GetData" && Contains(call.arguments[1].ToText(), "t_Item"))
          reads.push_back(call.arguments[1].ToText());
      }
    }
    return reads;
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

  FakeRef child_, classes_;
  DictionaryRef child_filter_;
  int children_ = 0;
};

TEST_F(Rpt138Drill, GivesTheDetailReportTheConditionsOfTheRowAndOfTheSummary) {
  Filter filter = DetailFilter(0, {{"BItemNumber", "01"},
                                   {"EItemNumber", "09"},
                                   {"BCustNumber", "02"},
                                   {"ECustNumber", "03"},
                                   {"BBillNo", "SE1"},
                                   {"EBillNo", "SE9"},
                                   {"BEmp", "51"},
                                   {"EEmp", "59"},
                                   {"DisplayType", std::int32_t{1}},
                                   {"SaleType", std::int32_t{201}},
                                   {"SaleTypeName", "赊销"},
                                   {"CheckState", std::int32_t{1}},
                                   {"CloseState", std::int32_t{2}},
                                   {"CommodityType", std::int32_t{1}}});
  EXPECT_EQ(filter["BDate"], Variant(Date::FromYmd(2003, 1, 1)));
  EXPECT_EQ(filter["EDate"], Variant(Date::FromYmd(2003, 3, 31)));
  EXPECT_EQ(filter["BCustNumber"], Variant("02"));
  EXPECT_EQ(filter["ECustNumber"], Variant("03"));
  EXPECT_EQ(filter["BBillNo"], Variant("SE1"));
  EXPECT_EQ(filter["EBillNo"], Variant("SE9"));
  EXPECT_EQ(filter["BEmp"], Variant("51"));
  EXPECT_EQ(filter["EEmp"], Variant("59"));
  EXPECT_EQ(filter["DisplayType"].ToInt32(), 1);
  EXPECT_EQ(filter["SaleType"].ToInt32(), 201);
  EXPECT_EQ(filter["SaleTypeName"], Variant("赊销"));
  EXPECT_EQ(filter["CheckState"].ToInt32(), 1);
  EXPECT_EQ(filter["CloseState"].ToInt32(), 2);
  EXPECT_EQ(filter["CommodityType"].ToInt32(), 1);
  EXPECT_EQ(filter["BItemNumber"], Variant("01.01"));
  EXPECT_EQ(filter["EItemNumber"], Variant("01.01"));
}

TEST_F(Rpt138Drill, TakesTheCodeOfTheRowThatIsInUse) {
  Filter filter = DetailFilter(1);
  EXPECT_EQ(filter["BItemNumber"], Variant("01.02"));
  report_ = nullptr;
  UseShortCode();
  filter = DetailFilter(1);
  EXPECT_EQ(filter["BItemNumber"], Variant("2"));
  EXPECT_EQ(filter["EItemNumber"], Variant("2"));
}

TEST_F(Rpt138Drill, DrivesTheDetailReportUnderItsOwnNumber) {
  DetailFilter(0);
  EXPECT_EQ(children_, 1);
  const std::vector<std::string> members = child_->CalledMembers();
  ASSERT_GE(members.size(), 5U);
  EXPECT_EQ(members[3], "GetReportData");
  EXPECT_EQ(members[4], "Result");
  std::vector<std::string> settings(members.begin(), members.begin() + 3);
  std::sort(settings.begin(), settings.end());
  EXPECT_EQ(settings, (std::vector<std::string>{"ExtFirter", "Filter", "RptID"}));
  for (const RecordedCall& call : child_->Calls()) {
    if (call.member == "RptID" || call.member == "ExtFirter") {
      EXPECT_EQ(call.arguments[0].ToText(), "137") << call.member;
    }
  }
}

TEST_F(Rpt138Drill, GivesNothingForATotalRow) {
  Fetch();
  EXPECT_EQ(Call(Report(), "GetDetailReport", std::int32_t{2}).ToObject(), nullptr);
  EXPECT_EQ(Call(Report(), "GetDetailReport", std::int32_t{3}).ToObject(), nullptr);
  EXPECT_EQ(children_, 0);
}

TEST_F(Rpt138Drill, LeavesTheConditionsOfTheSummaryAsTheyAre) {
  DetailFilter(0, {{"BItemNumber", "01"}});
  const auto filter = As<Dictionary>(GetMember(Report(), "Filter"));
  EXPECT_NE(filter, child_filter_);
  EXPECT_EQ(filter->Get("BItemNumber"), Variant("01"));
  EXPECT_FALSE(filter->Lookup("CustName"));
}

TEST_F(Rpt138Drill, NamesTheCustomerOfARowThatHasItBeforeItemClasses) {
  Filter filter = DetailFilter(0, {{"GroupBy", std::int32_t{1}},
                                   {"SumMode", std::int32_t{4}},
                                   {"BLevel", std::int32_t{1}},
                                   {"ELevel", std::int32_t{1}}});
  EXPECT_EQ(filter["CustName"], Variant("O'Neil"));
}

TEST_F(Rpt138Drill, NamesTheCustomerOfARowByCustomerClassesWhereTheRowHasOne) {
  Filter filter = DetailFilter(1, {{"GroupBy", std::int32_t{1}},
                                   {"SumMode", std::int32_t{2}},
                                   {"BLevel", std::int32_t{1}},
                                   {"ELevel", std::int32_t{1}}});
  EXPECT_EQ(filter["CustName"], Variant("Miller"));
}

// The batch by customer classes gives no customer column at all.
TEST_F(Rpt138Drill, OpensTheDetailOfARowByCustomerClassesThatHasNoCustomer) {
  FillRows({"FNumber", "FShortNumber"});
  Filter filter = DetailFilter(1, {{"GroupBy", std::int32_t{1}},
                                   {"SumMode", std::int32_t{2}},
                                   {"BLevel", std::int32_t{1}},
                                   {"ELevel", std::int32_t{1}}});
  EXPECT_EQ(filter["BItemNumber"], Variant("01.02"));
}

TEST_F(Rpt138Drill, TakesTheCodeOfTheCustomerBehindItemClasses) {
  Filter filter = DetailFilter(0, {{"GroupBy", std::int32_t{1}},
                                   {"SumMode", std::int32_t{3}},
                                   {"BLevel", std::int32_t{1}},
                                   {"ELevel", std::int32_t{1}},
                                   {"CustName", "O'Neil"},
                                   {"FProp02", "O'Neil"}});
  EXPECT_EQ(filter["BCustNumber"], Variant("02.01"));
  EXPECT_EQ(filter["ECustNumber"], Variant("02.01"));
  EXPECT_EQ(CustomerReads(),
            std::vector<std::string>{"select FNumber from t_Item where FItemClassId=1 and FName ='O''Neil'"});
}

TEST_F(Rpt138Drill, ReadsNoCustomerWhereNothingIsGrouped) {
  Filter filter = DetailFilter(0, {{"SumMode", std::int32_t{3}}, {"BCustNumber", "02"}, {"FProp02", "x"}});
  EXPECT_EQ(filter["BCustNumber"], Variant("02"));
  EXPECT_TRUE(CustomerReads().empty());
}

TEST_F(Rpt138Drill, ShowsTheErrorOfTheDetailReportInABox) {
  AnswerChild(false, "the detail rows cannot be read");
  Fetch();
  EXPECT_NO_THROW(Call(Report(), "GetDetailReport", std::int32_t{0}));
  ASSERT_EQ(toolkit_->boxes.size(), 1U);
  EXPECT_EQ(toolkit_->boxes[0].text, "the detail rows cannot be read");
  EXPECT_EQ(toolkit_->boxes[0].title, "青岚提示");
  EXPECT_TRUE(Ok());
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt138Drill, ShowsNoBoxWhereTheDetailReportIsGood) {
  DetailFilter(0);
  EXPECT_TRUE(toolkit_->boxes.empty());
}

}  // namespace
}  // namespace salerpt::testing
