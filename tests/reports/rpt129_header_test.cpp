// The columns of the outbound detail as the host gets them.
#include <gtest/gtest.h>

#include "tests/reports/rpt129_world.h"

namespace salerpt::testing {
namespace {

using Lines = std::vector<std::string>;

// Caption, second line, kind, field, visible, hidden by force.
Lines CommonColumns() {
  return {"日期$||0|FDate|1|0",
          "单据号码$||1|FBillNo|1|0",
          "客户代码$||1|FCustNumber|1|0",
          "客户名称$||1|FCustName|1|0",
          "产品代码$||1|FNumber|1|0",
          "产品名称$||1|FName|1|0",
          "规格型号$||1|FModel|1|0",
          "发货仓库$||1|FDStock|1|0",
          "批号$||1|FBatchNo|1|0",
          "单位$||1|FAuxUnitName|1|0",
          "单位(基本)$||1|FUnitName|1|0",
          "出库数量$||2|FAuxOutQty|1|0",
          "出库数量(基本)$||2|FOutQty|1|0",
          "出库金额(本位币)$||40|FOutAmount|1|0",
          "开票数量$||2|FAuxCommitQty|1|0",
          "开票数量(基本)$||2|FCommitQty|1|0",
          "单位(常用)$||1|FCUUnitName|1|0",
          "出库数量(常用)$||2|FCUUnitOutQty|1|0",
          "开票数量(常用)$||2|FCUUnitCommitQty|1|0",
          "币别$||1|FCurrencyName|1|0",
          "销售单价$||4|FSaleUnitPrice|1|0",
          "销售金额(本位币)$||40|FConsignAmount|1|0",
          "开票金额$||6|FCommitAmount|1|0",
          "开票金额(本位币)$||40|FGlCommitAmount|1|0"};
}

class Rpt129Header : public Rpt129World {
 protected:
  static DictionaryRef SumField() {
    return std::make_shared<Dictionary>(Entries{{"FName", "客户"},
                                                {"FPropID", "0"},
                                                {"FItemClassID", "1"},
                                                {"FSrcTable", ""},
                                                {"FSQLColumnName", "FName"}});
  }
  // Without subtotals.
  void FetchPlain(Entries more = {}) {
    const DictionaryRef filter =
        Conditions({{"chkShowItemSum", std::int32_t{0}}, {"chkShowDateSum", std::int32_t{0}}});
    for (const Dictionary::Entry& entry : more) filter->Set(entry.key, entry.value);
    SetMember(Report(), "Filter", filter);
    Call(Report(), "GetReportData");
    EXPECT_TRUE(Ok()) << Error();
  }
  void ExpectGroupColumns(std::int32_t mode, const Lines& expected, std::int32_t from = 1,
                          std::int32_t to = 2) {
    FetchPlain({{"GroupBy", std::int32_t{1}},
                {"SumMode", mode},
                {"BLevel", from},
                {"ELevel", to},
                {"SumField", SumField()}});
    Lines all = expected;
    for (const std::string& column : CommonColumns()) all.push_back(column);
    EXPECT_EQ(HeaderLines(), all) << "mode " << mode;
  }
  // The fields of the columns that end so.
  Lines FieldsOf(std::string_view tail) {
    Lines fields;
    for (const std::string& line : HeaderLines()) {
      if (!line.ends_with(tail)) continue;
      const std::string head = line.substr(0, line.size() - tail.size());
      fields.push_back(head.substr(head.rfind('|') + 1));
    }
    return fields;
  }
  void RefuseRight(std::int32_t right) {
    ledger_->On("AccessCheck",
                [right](Arguments arguments) -> Variant { return arguments[2].ToInt32() != right; });
  }
  void UseSecondUnit(const Variant& value) {
    connection_->On("Execute", [value](Arguments) -> Variant { return OneValue("FValue", value); });
  }
};

TEST_F(Rpt129Header, IsNotThereBeforeTheFirstFetch) {
  EXPECT_EQ(GetMember(Report(), "Header").ToObject(), nullptr);
}

TEST_F(Rpt129Header, GivesTheColumnsOfALine) {
  FetchPlain();
  EXPECT_EQ(HeaderLines(), CommonColumns());
}

TEST_F(Rpt129Header, TakesTheDateForATextWhereDatesHaveSubtotals) {
  Fetch({{"chkShowItemSum", std::int32_t{0}}, {"chkShowDateSum", std::int32_t{1}}});
  Lines expected = CommonColumns();
  expected[0] = "日期$||1|FDate|1|0";
  EXPECT_EQ(HeaderLines(), expected);
  Fetch();
  EXPECT_EQ(HeaderLines(), expected) << "nothing is said about subtotals";
}

TEST_F(Rpt129Header, ShowsShortCodesWhereTheyAreInUse) {
  UseShortCode();
  FetchPlain();
  Lines expected = CommonColumns();
  expected[2] = "客户代码$||1|FCustShortNumber|1|0";
  expected[4] = "产品代码$||1|FShortNumber|1|0";
  EXPECT_EQ(HeaderLines(), expected);
}

TEST_F(Rpt129Header, ShowsTheAuxiliaryPropertyWhereItIsAsked) {
  FetchPlain({{"AuxProp", std::int32_t{1}}});
  Lines expected = CommonColumns();
  expected.insert(expected.begin() + 8, "辅助属性$||1|FAuxPropName|1|0");
  EXPECT_EQ(HeaderLines(), expected);
  FetchPlain({{"AuxProp", std::int32_t{0}}});
  EXPECT_EQ(HeaderLines(), CommonColumns());
}

TEST_F(Rpt129Header, AddsTheAuxiliaryUnitWhereTheSystemHasIt) {
  UseSecondUnit("1");
  FetchPlain();
  Lines expected = CommonColumns();
  const Lines unit = {"单位(辅助)$||1|FSecUnitName|1|0", "出库数量(辅助)$||2|FSecQty|1|0",
                      "开票数量(辅助)$||2|FSecInvoiceQty|1|0"};
  expected.insert(expected.begin() + 19, unit.begin(), unit.end());
  EXPECT_EQ(HeaderLines(), expected);
}

TEST_F(Rpt129Header, LeavesTheAuxiliaryUnitOutOtherwise) {
  for (const Variant& value : {Variant("0"), Variant(""), Variant(Null()), Variant("2")}) {
    UseSecondUnit(value);
    FetchPlain();
    EXPECT_EQ(HeaderLines(), CommonColumns());
  }
}

TEST_F(Rpt129Header, HidesOutboundAmountsByForceWithoutTheirRight) {
  RefuseRight(4);
  FetchPlain();
  EXPECT_EQ(FieldsOf("|1|1"), (Lines{"FOutAmount"}));
}

TEST_F(Rpt129Header, HidesSalesAndInvoiceAmountsByForceWithoutTheirRight) {
  RefuseRight(16);
  FetchPlain();
  EXPECT_EQ(FieldsOf("|1|1"), (Lines{"FConsignAmount", "FCommitAmount", "FGlCommitAmount"}));
}

TEST_F(Rpt129Header, AsksForTheTwoFieldRights) {
  FetchPlain();
  std::vector<std::vector<int>> asked;
  for (const RecordedCall& call : ledger_->Calls()) {
    if (!EqualNames(call.member, "AccessCheck")) continue;
    std::vector<int> numbers;
    for (const Variant& argument : call.arguments) numbers.push_back(argument.ToInt32());
    asked.push_back(numbers);
  }
  EXPECT_EQ(asked, (std::vector<std::vector<int>>{{1008, 2, 4}, {1008, 2, 16}}));
}

TEST_F(Rpt129Header, HidesWhatDescribesAnItemWhereAGroupingShowsTotalsOnly) {
  UseSecondUnit("1");
  FetchPlain({{"GroupBy", std::int32_t{1}},
              {"SumMode", std::int32_t{1}},
              {"BLevel", std::int32_t{1}},
              {"ELevel", std::int32_t{1}},
              {"AuxProp", std::int32_t{1}},
              {"OnlyShowSum", std::int32_t{1}}});
  EXPECT_EQ(FieldsOf("|0|0"), (Lines{"FNumber", "FName", "FModel", "FAuxUnitName", "FUnitName", "FCUUnitName",
                                     "FSecUnitName"}));
}

TEST_F(Rpt129Header, HidesNothingLineByLineWhereTotalsOnlyAreAsked) {
  FetchPlain({{"OnlyShowSum", std::int32_t{1}}});
  EXPECT_EQ(HeaderLines(), CommonColumns());
}

TEST_F(Rpt129Header, PutsItemClassesFirst) {
  ExpectGroupColumns(1, {"1级物料类别$||1|FName1|1|0", "2级物料类别$||1|FName2|1|0"});
  ExpectGroupColumns(1, {"3级物料类别$||1|FName3|1|0"}, 3, 3);
}

TEST_F(Rpt129Header, PutsCustomerClassesFirst) {
  ExpectGroupColumns(2, {"1级客户类别$||1|FName1|1|0", "2级客户类别$||1|FName2|1|0"});
}

TEST_F(Rpt129Header, PutsTheCustomerBehindTheClasses) {
  ExpectGroupColumns(3,
                     {"1级物料类别$||1|FName1|1|0", "2级物料类别$||1|FName2|1|0", "客户$||1|FCustName|1|0"});
}

TEST_F(Rpt129Header, PutsTheCustomerBeforeTheClasses) {
  ExpectGroupColumns(
      4, {"客户$||1|FCustName|1|0", "2级物料类别$||1|FName2|1|0", "3级物料类别$||1|FName3|1|0"}, 2, 3);
}

TEST_F(Rpt129Header, NamesThePropertyGroupedByAndItsColumn) {
  for (const std::int32_t mode : {5, 0, 7}) ExpectGroupColumns(mode, {"客户$||1|FProp01|1|0"});
}

TEST_F(Rpt129Header, WritesTheKeysOfARowInTheirOrder) {
  FetchPlain();
  std::vector<std::string> keys;
  const auto row = As<Dictionary>(As<Vector>(GetMember(Report(), "Header"))->Item(1));
  for (const auto& entry : row->Entries()) keys.push_back(entry.key);
  EXPECT_EQ(keys, (std::vector<std::string>{"FColCaption", "FHeadSecond", "FColType", "FColName", "FVisible",
                                            "FForceHide"}));
}

TEST_F(Rpt129Header, IsMadeAnewByEachFetch) {
  FetchPlain();
  const auto first = GetMember(Report(), "Header").ToObject();
  FetchPlain();
  EXPECT_NE(GetMember(Report(), "Header").ToObject(), first);
  EXPECT_EQ(HeaderLines(), CommonColumns());
}

}  // namespace
}  // namespace salerpt::testing
