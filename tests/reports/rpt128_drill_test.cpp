// From a row of the outbound summary to the detail report of that row.
#include <gtest/gtest.h>

#include <optional>

#include "runtime/error.h"
#include "tests/reports/rpt128_world.h"

namespace salerpt::testing {
namespace {

using Filter = std::map<std::string, Variant>;

class Rpt128Drill : public Rpt128World {
 protected:
  Rpt128Drill() {
    FillRows();
    child_ = std::make_shared<FakeObject>("ORVSaleRpt.Rpt129");
    runtime_.Register("ORVSaleRpt.Rpt129", [this]() -> ObjectRef {
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
    styles_ = RegisterFake(runtime_, "ORVMClass.ClassInfo");
    styles_->Gives("GetData", OneValue("FInterID", "10143"));
  }
  // A detail row, another one, a subtotal of the two.
  void FillRows() {
    rows_ = MakeRecordset();
    for (const char* field : {"FNumber", "FShortNumber", "FPropNumber", "FProp291", "FCustNumber"}) {
      rows_->AppendField(field, FieldType::kVarChar, 355);
    }
    rows_->AppendField("FSumSort", FieldType::kSmallInt, 0);
    rows_->Open();
    AddRow({"01.01", "1", "02.01", " 现销 ", "07.01", std::int16_t{0}});
    AddRow({"01.02", "2", "02.02", "  ", "07.02", std::int16_t{0}});
    AddRow({"01.02", "2", "02.02", "赊销", "07.02", std::int16_t{102}});
    AddRow({"合计", "", "", "", "", std::int16_t{101}});
  }
  void AddRow(std::initializer_list<Variant> values) {
    rows_->AddNew();
    int field = 0;
    for (const Variant& value : values) rows_->SetValue(field++, value);
    rows_->Update();
  }
  void AnswerChild(bool ok, const char* error) {
    child_->Gives("Result", std::make_shared<Dictionary>(Entries{{"OK", ok}, {"Error", error}}));
  }
  // Fetches, then asks for the row's detail; what the child got as its filter.
  Filter DetailFilter(std::int32_t row, Entries conditions = {}) {
    Fetch(conditions);
    EXPECT_EQ(Call(Report(), "GetDetailReport", row).ToObject(), child_);
    Filter filter;
    if (!child_filter_) return filter;
    for (const auto& entry : child_filter_->Entries()) filter[entry.key] = entry.value;
    return filter;
  }
  static DictionaryRef SumField(const char* name) {
    return std::make_shared<Dictionary>(Entries{{"FName", name},
                                                {"FPropID", "29"},
                                                {"FItemClassID", "1"},
                                                {"FSrcTable", ""},
                                                {"FSQLColumnName", "FName"}});
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
  FakeRef styles_;
  DictionaryRef child_filter_;
  int children_ = 0;
};

TEST_F(Rpt128Drill, GivesTheDetailReportTheConditionsOfTheRowAndOfTheSummary) {
  Filter filter = DetailFilter(0, {{"BItemNumber", "01"},
                                   {"EItemNumber", "09"},
                                   {"BCustNumber", "02"},
                                   {"ECustNumber", "03"},
                                   {"CheckState", std::int32_t{1}},
                                   {"FROB", std::int32_t{2}},
                                   {"SaleType", std::int32_t{10144}},
                                   {"SaleTypeName", "赊销"},
                                   {"CommodityType", std::int32_t{1}},
                                   {"GroupBy", std::int32_t{0}},
                                   {"OrderBy", "FOutQty"}});
  EXPECT_EQ(filter["BDate"], Variant(Date::FromYmd(2003, 1, 1)));
  EXPECT_EQ(filter["EDate"], Variant(Date::FromYmd(2003, 3, 31)));
  EXPECT_EQ(filter["BCustNumber"], Variant("02"));
  EXPECT_EQ(filter["ECustNumber"], Variant("03"));
  EXPECT_EQ(filter["CheckState"].ToInt32(), 1);
  EXPECT_EQ(filter["SaleType"].ToInt32(), 10144);
  EXPECT_EQ(filter["SaleTypeName"], Variant("赊销"));
  EXPECT_EQ(filter["FROB"].ToInt32(), 2);
  EXPECT_EQ(filter["BItemNumber"], Variant("01.01"));
  EXPECT_EQ(filter["EItemNumber"], Variant("01.01"));
  for (const char* key : {"GroupBy", "OnlyShowSum", "chkShowDateSum", "AuxProp"}) {
    ASSERT_TRUE(filter[key].IsNumber()) << key;
    EXPECT_EQ(filter[key].ToInt32(), 0) << key;
  }
  ASSERT_TRUE(filter["chkShowItemSum"].IsNumber());
  EXPECT_EQ(filter["chkShowItemSum"].ToInt32(), 1);
  EXPECT_EQ(filter.size(), 15U);
}

TEST_F(Rpt128Drill, CountsRowsFromTheFirst) {
  Filter filter = DetailFilter(1);
  EXPECT_EQ(filter["BItemNumber"], Variant("01.02"));
  EXPECT_EQ(filter["EItemNumber"], Variant("01.02"));
  filter = DetailFilter(0);
  EXPECT_EQ(filter["BItemNumber"], Variant("01.01"));
}

TEST_F(Rpt128Drill, TakesTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  Filter filter = DetailFilter(1);
  EXPECT_EQ(filter["BItemNumber"], Variant("2"));
  EXPECT_EQ(filter["EItemNumber"], Variant("2"));
}

TEST_F(Rpt128Drill, DrivesTheDetailReportInTheOrderOfAHost) {
  DetailFilter(0);
  EXPECT_EQ(children_, 1);
  ASSERT_GE(child_->Calls().size(), 5U);
  EXPECT_EQ(child_->Calls()[0].member, "RptID");
  EXPECT_EQ(child_->Calls()[0].arguments[0].ToInt32(), 128);
  EXPECT_EQ(child_->Calls()[1].member, "Filter");
  EXPECT_EQ(child_->Calls()[2].member, "ExtFirter");
  EXPECT_EQ(child_->Calls()[2].arguments[0].ToText(), "129");
  EXPECT_EQ(child_->Calls()[3].member, "GetReportData");
  EXPECT_EQ(child_->Calls()[4].member, "Result");
}

TEST_F(Rpt128Drill, LeavesTheConditionsOfTheSummaryAsTheyAre) {
  DetailFilter(0, {{"BItemNumber", "01"}, {"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{9}}});
  const auto filter = As<Dictionary>(GetMember(Report(), "Filter"));
  EXPECT_NE(filter, child_filter_);
  EXPECT_EQ(filter->Get("BItemNumber"), Variant("01"));
  EXPECT_EQ(filter->Get("GroupBy").ToInt32(), 1);
}

TEST_F(Rpt128Drill, GivesNothingForATotalRow) {
  Fetch();
  EXPECT_EQ(Call(Report(), "GetDetailReport", std::int32_t{2}).ToObject(), nullptr);
  EXPECT_EQ(Call(Report(), "GetDetailReport", std::int32_t{3}).ToObject(), nullptr);
  EXPECT_EQ(children_, 0);
}

TEST_F(Rpt128Drill, TakesTheCustomerOfARowGroupedByCustomer) {
  Filter filter = DetailFilter(0, {{"GroupBy", std::int32_t{1}},
                                   {"SumMode", std::int32_t{5}},
                                   {"SumField", SumField("客户")},
                                   {"BCustNumber", "02"},
                                   {"ECustNumber", "03"}});
  EXPECT_EQ(filter["BCustNumber"], Variant("02.01"));
  EXPECT_EQ(filter["ECustNumber"], Variant("02.01"));
  EXPECT_EQ(filter["GroupBy"].ToInt32(), 0);
}

TEST_F(Rpt128Drill, TakesTheSaleStyleOfARowGroupedByIt) {
  Filter filter = DetailFilter(0, {{"GroupBy", std::int32_t{1}},
                                   {"SumMode", std::int32_t{7}},
                                   {"SumField", SumField("销售方式")},
                                   {"BCustNumber", "02"}});
  EXPECT_EQ(filter["SaleType"].ToText(), "10143");
  EXPECT_EQ(filter["SaleTypeName"], Variant("现销"));
  EXPECT_EQ(filter["BCustNumber"], Variant("02"));
  ASSERT_EQ(styles_->CalledMembers(), std::vector<std::string>{"GetData"});
  EXPECT_EQ(styles_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(styles_->Calls()[0].arguments[1].ToText(),
            "Select FInterID,FTypeID,FID,FName from t_Submessage where FName='现销' and FTypeID=101");
}

TEST_F(Rpt128Drill, QuotesTheNameOfASaleStyle) {
  AddRow({"01.03", "3", "", "O'Neil", "", std::int16_t{0}});
  DetailFilter(
      4, {{"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{7}}, {"SumField", SumField("销售方式")}});
  ASSERT_EQ(styles_->Calls().size(), 1U);
  EXPECT_EQ(styles_->Calls()[0].arguments[1].ToText(),
            "Select FInterID,FTypeID,FID,FName from t_Submessage where FName='O''Neil' and FTypeID=101");
}

TEST_F(Rpt128Drill, TakesNoSaleStyleWhereTheRowHasNone) {
  Filter filter = DetailFilter(1, {{"GroupBy", std::int32_t{1}},
                                   {"SumMode", std::int32_t{7}},
                                   {"SumField", SumField("销售方式")},
                                   {"SaleType", std::int32_t{201}}});
  EXPECT_EQ(filter["SaleType"].ToText(), "0");
  EXPECT_EQ(filter["SaleTypeName"], Variant(""));
  EXPECT_TRUE(styles_->Calls().empty());
}

TEST_F(Rpt128Drill, TakesNoSaleStyleWhereItsNameIsUnknown) {
  styles_->Gives("GetData", OneField("FInterID"));
  Filter filter = DetailFilter(
      0, {{"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{7}}, {"SumField", SumField("销售方式")}});
  EXPECT_EQ(filter["SaleType"].ToText(), "0");
  EXPECT_EQ(filter["SaleTypeName"], Variant("现销"));
}

TEST_F(Rpt128Drill, KeepsTheConditionsWhereAnotherPropertyIsGroupedBy) {
  Filter filter = DetailFilter(0, {{"GroupBy", std::int32_t{1}},
                                   {"SumMode", std::int32_t{5}},
                                   {"SumField", SumField("区域")},
                                   {"BCustNumber", "02"},
                                   {"SaleType", std::int32_t{201}}});
  EXPECT_EQ(filter["BCustNumber"], Variant("02"));
  EXPECT_EQ(filter["SaleType"].ToInt32(), 201);
}

TEST_F(Rpt128Drill, KeepsTheConditionsOfAPropertyWhereNothingIsGrouped) {
  Filter filter = DetailFilter(0, {{"GroupBy", std::int32_t{0}},
                                   {"SumMode", std::int32_t{4}},
                                   {"SumField", SumField("客户")},
                                   {"BCustNumber", "02"}});
  EXPECT_EQ(filter["BCustNumber"], Variant("02"));
}

TEST_F(Rpt128Drill, TakesTheCustomerOfARowThatHasItBeforeItemClasses) {
  for (const std::int32_t mode : {4, 12}) {
    Filter filter = DetailFilter(0, {{"GroupBy", std::int32_t{1}},
                                     {"SumMode", mode},
                                     {"BLevel", std::int32_t{1}},
                                     {"ELevel", std::int32_t{1}},
                                     {"BCustNumber", "02"}});
    EXPECT_EQ(filter["BCustNumber"], Variant("07.01")) << mode;
    EXPECT_EQ(filter["ECustNumber"], Variant("07.01")) << mode;
  }
}

TEST_F(Rpt128Drill, TakesThatCustomerLastWhereAPropertyIsNamedToo) {
  Filter filter = DetailFilter(0, {{"GroupBy", std::int32_t{1}},
                                   {"SumMode", std::int32_t{4}},
                                   {"BLevel", std::int32_t{1}},
                                   {"ELevel", std::int32_t{1}},
                                   {"SumField", SumField("客户")}});
  EXPECT_EQ(filter["BCustNumber"], Variant("07.01"));
  EXPECT_EQ(filter["ECustNumber"], Variant("07.01"));
}

TEST_F(Rpt128Drill, KeepsTheCustomersWhereTheyStandBehindTheClasses) {
  for (const std::int32_t mode : {3, 8}) {
    Filter filter = DetailFilter(0, {{"GroupBy", std::int32_t{1}},
                                     {"SumMode", mode},
                                     {"BLevel", std::int32_t{1}},
                                     {"ELevel", std::int32_t{1}},
                                     {"BCustNumber", "02"}});
    EXPECT_EQ(filter["BCustNumber"], Variant("02")) << mode;
  }
}

TEST_F(Rpt128Drill, RaisesTheErrorOfTheDetailReport) {
  AnswerChild(false, "the detail rows cannot be read");
  Fetch();
  const auto error = DetailError(0);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), -1);
  EXPECT_EQ(error->Description(), "the detail rows cannot be read");
}

TEST_F(Rpt128Drill, LeavesItsOwnResultWhereTheDetailReportFails) {
  AnswerChild(false, "the detail rows cannot be read");
  Fetch();
  DetailError(0);
  EXPECT_TRUE(Ok());
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt128Drill, GivesNothingWhereTheDetailReportFailsWithoutAWord) {
  AnswerChild(false, "");
  Fetch();
  EXPECT_EQ(Call(Report(), "GetDetailReport", std::int32_t{0}).ToObject(), nullptr);
  EXPECT_EQ(children_, 1);
}

TEST_F(Rpt128Drill, PutsTheMousePointerBackWhereTheDetailReportFailsWithoutAWord) {
  class PointerToolkit : public ProgressToolkit {
   public:
    void ResetMousePointer() override { ++resets; }
    int resets = 0;
  };
  const auto toolkit = std::make_shared<PointerToolkit>();
  runtime_.SetToolkit(toolkit);
  AnswerChild(false, "");
  Fetch();
  Call(Report(), "GetDetailReport", std::int32_t{0});
  EXPECT_EQ(toolkit->resets, 1);
}

TEST_F(Rpt128Drill, RaisesTheErrorOfTheObjectMakerWhereThereIsNoDetailReport) {
  runtime_.Register("ORVSaleRpt.Rpt129", []() -> ObjectRef {
    throw RuntimeError(error_number::kObjectMaker, "", "no class is registered as ORVSaleRpt.Rpt129");
  });
  Fetch();
  const auto error = DetailError(0);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), 429);
  EXPECT_NE(error->Description().find("ORVSaleRpt.Rpt129"), std::string::npos);
}

TEST_F(Rpt128Drill, RaisesTheErrorOfTheReadOfTheSaleStyle) {
  styles_->Raises("GetData", RuntimeError(-2147467259, "Server", "the server is not there"));
  Fetch({{"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{7}}, {"SumField", SumField("销售方式")}});
  const auto error = DetailError(0);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Description(), "the server is not there");
  EXPECT_EQ(children_, 0);
}

}  // namespace
}  // namespace salerpt::testing
