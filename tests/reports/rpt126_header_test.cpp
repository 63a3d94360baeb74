// The columns of the income statistics as the host gets them.
#include <gtest/gtest.h>

#include "tests/reports/rpt126_world.h"

namespace salerpt::testing {
namespace {

using Lines = std::vector<std::string>;

class Rpt126Header : public Rpt126World {
 protected:
  // Behind the columns of the groups, with every right.
  static Lines CommonColumns() {
    return {"产品代码$||1|FNumber|1|0",       "产品名称$||1|FName|1|0",        "规格型号$||1|FModel|1|0",
            "单位(基本)$||1|FUnitName|1|0",   "数量(基本)$||2|FQty|1|0",       "单价(基本)$||4|FPrice|1|0",
            "单位(常用)$||1|FCUUnitName|1|0", "数量(常用)$||2|FCUUnitQty|1|0", "销售收入$||40|FAmount|1|0",
            "税率(%)$||8|FTaxRate|1|0",       "销项税额$||40|FTaxAmount|1|0",  "合计$||40|FCountAmount|1|0"};
  }
  void ExpectColumns(const Lines& groups, const Lines& common = CommonColumns()) {
    Lines all = groups;
    all.insert(all.end(), common.begin(), common.end());
    EXPECT_EQ(HeaderLines(), all);
  }
};

TEST_F(Rpt126Header, IsNotThereBeforeTheFirstFetch) {
  EXPECT_EQ(GetMember(Report(), "Header").ToObject(), nullptr);
}

TEST_F(Rpt126Header, GivesTheCommonColumnsItemByItem) {
  FetchInvoices();
  ExpectColumns({});
}

TEST_F(Rpt126Header, ShowsTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  Lines common = CommonColumns();
  common[0] = "产品代码$||1|FShortNumber|1|0";
  FetchInvoices();
  ExpectColumns({}, common);
}

TEST_F(Rpt126Header, PutsTheAuxiliaryPropertyBehindTheModel) {
  Lines common = CommonColumns();
  common.insert(common.begin() + 3, "辅助属性$||1|FAuxPropName|1|0");
  FetchInvoices({{"AuxProp", std::int32_t{1}}});
  ExpectColumns({}, common);
}

TEST_F(Rpt126Header, PutsTheCurrencyBeforeTheAmounts) {
  Lines common = CommonColumns();
  common.insert(common.begin() + 8, "币别$||1|FCurrencyName|1|0");
  FetchInvoices({{"CurrencyShow", std::int32_t{1}}});
  ExpectColumns({}, common);
}

TEST_F(Rpt126Header, PutsItemClassesFirst) {
  FetchLevels(1, 1, 2);
  ExpectColumns({"1级物料类别代码$||1|FNumber1|1|0", "1级物料类别$||1|FName1|1|0",
                 "2级物料类别代码$||1|FNumber2|1|0", "2级物料类别$||1|FName2|1|0"});
}

TEST_F(Rpt126Header, PutsCustomerClassesFirst) {
  FetchLevels(2, 2, 2);
  ExpectColumns({"2级客户类别代码$||1|FNumber2|1|0", "2级客户类别$||1|FName2|1|0"});
}

TEST_F(Rpt126Header, PutsTheCustomerBeforeItemClasses) {
  FetchLevels(4, 1, 1);
  ExpectColumns({"客户代码$||1|FCustNumber|1|0", "客户$||1|FCustName|1|0", "1级物料类别代码$||1|FNumber1|1|0",
                 "1级物料类别$||1|FName1|1|0"});
}

TEST_F(Rpt126Header, PutsTheCustomerBehindItemClasses) {
  FetchLevels(3, 1, 1);
  ExpectColumns({"1级物料类别代码$||1|FNumber1|1|0", "1级物料类别$||1|FName1|1|0",
                 "客户代码$||1|FCustNumber|1|0", "客户$||1|FCustName|1|0"});
}

TEST_F(Rpt126Header, ShowsTheShortCodeOfTheCustomerWhereThatIsInUse) {
  UseShortCode();
  Lines common = CommonColumns();
  common[0] = "产品代码$||1|FShortNumber|1|0";
  FetchLevels(4, 1, 1);
  ExpectColumns({"客户代码$||1|FShortCustNumber|1|0", "客户$||1|FCustName|1|0",
                 "1级物料类别代码$||1|FNumber1|1|0", "1级物料类别$||1|FName1|1|0"},
                common);
}

TEST_F(Rpt126Header, GivesCodeAndNameOfCustomerDepartmentOrEmployee) {
  FetchBy(SumField("客户", 1, 0));
  ExpectColumns({"客户代码$||1|FCustNumber|1|0", "客户名称$||1|FCustName|1|0"});
  FetchBy(SumField("部门", 2, 0));
  ExpectColumns({"部门代码$||1|FDeptNumber|1|0", "部门名称$||1|FDeptName|1|0"});
  FetchBy(SumField("业务员", 3, 0));
  ExpectColumns({"业务员代码$||1|FEmpNumber|1|0", "业务员名称$||1|FEmpName|1|0"});
}

TEST_F(Rpt126Header, GivesTheirShortCodesWhereThoseAreInUse) {
  UseShortCode();
  FetchBy(SumField("客户", 1, 0));
  EXPECT_EQ(HeaderLines()[0], "客户代码$||1|FShortCustNumber|1|0");
  FetchBy(SumField("部门", 2, 0));
  EXPECT_EQ(HeaderLines()[0], "部门代码$||1|FShortDeptNumber|1|0");
  FetchBy(SumField("业务员", 3, 0));
  EXPECT_EQ(HeaderLines()[0], "业务员代码$||1|FShortEmpNumber|1|0");
}

TEST_F(Rpt126Header, GivesOneColumnOfAnyOtherProperty) {
  FetchBy(SumField("规格", 4, 3));
  ExpectColumns({"规格$||1|FProp34|1|0"});
  FetchBy(SumFieldWithTable("区域", 1, 12));
  ExpectColumns({"区域$||1|FProp121|1|0"});
}

TEST_F(Rpt126Header, HidesWhatDescribesAnItemWhereAGroupingShowsTotalsOnly) {
  FetchLevels(1, 1, 1, {{"OnlyShowSum", std::int32_t{1}}});
  Lines common = CommonColumns();
  common[0] = "产品代码$||1|FNumber|0|0";
  common[1] = "产品名称$||1|FName|0|0";
  common[2] = "规格型号$||1|FModel|0|0";
  common[3] = "单位(基本)$||1|FUnitName|0|0";
  common[6] = "单位(常用)$||1|FCUUnitName|0|0";
  ExpectColumns({"1级物料类别代码$||1|FNumber1|1|0", "1级物料类别$||1|FName1|1|0"}, common);
}

TEST_F(Rpt126Header, HidesNothingItemByItemWhereTotalsOnlyAreAsked) {
  FetchInvoices({{"OnlyShowSum", std::int32_t{1}}});
  ExpectColumns({});
}

TEST_F(Rpt126Header, HidesPriceAndAmountsByForceWithoutTheirRight) {
  ledger_->Gives("AccessCheck", false);
  Lines common = CommonColumns();
  common[5] = "单价(基本)$||4|FPrice|1|1";
  common[8] = "销售收入$||40|FAmount|1|1";
  common[10] = "销项税额$||40|FTaxAmount|1|1";
  common[11] = "合计$||40|FCountAmount|1|1";
  FetchInvoices();
  ExpectColumns({}, common);
}

TEST_F(Rpt126Header, AsksForOneFieldRight) {
  FetchInvoices();
  ASSERT_EQ(ledger_->CalledMembers(), std::vector<std::string>{"AccessCheck"});
  std::vector<int> numbers;
  for (const Variant& argument : ledger_->Calls()[0].arguments) numbers.push_back(argument.ToInt32());
  EXPECT_EQ(numbers, (std::vector<int>{1008, 2, 4}));
}

TEST_F(Rpt126Header, IsMadeAnewByEachFetch) {
  FetchLevels(1, 1, 1);
  const ObjectRef first = GetMember(Report(), "Header").ToObject();
  FetchInvoices();
  EXPECT_NE(GetMember(Report(), "Header").ToObject(), first);
  ExpectColumns({});
}

}  // namespace
}  // namespace salerpt::testing
