// Columns and title lines of the consignment and instalment lists as the host gets them.
#include <gtest/gtest.h>

#include "tests/reports/rpt303_world.h"

namespace salerpt::testing {
namespace {

using Lines = std::vector<std::string>;
using TitleList = std::vector<std::pair<std::string, int>>;

class Rpt303Header : public Rpt303World {
 protected:
  // Behind the columns of the groups, with every right.
  static Lines CommonColumns() {
    return {"物料代码$||1|FNumber|1|0",
            "物料名称$||1|FName|1|0",
            "规格型号$||1|FModel|1|0",
            "单位(基本)$||1|FUnitName|1|0",
            "单位(常用)$||1|FCUUnitName|1|0",
            "未结算余额+|+|+|+||数量(基本)|2|FBegQty|1|0",
            " |单价(基本)|4|FBegPrice|1|0",
            " |数量(常用)|2|FCUBegQty|1|0",
            " |单价(常用)|4|FCUBegPrice|1|0",
            " |金额|40|FBegAmount|1|0",
            "发出+|+|+|+||数量(基本)|2|FSendQty|1|0",
            " |单价(基本)|4|FSendPrice|1|0",
            " |数量(常用)|2|FCUSendQty|1|0",
            " |单价(常用)|4|FCUSendPrice|1|0",
            " |金额|40|FSendAmount|1|0",
            "结算+|+|+|+||数量(基本)|2|FVerifQty|1|0",
            " |单价(基本)|4|FVerifPrice|1|0",
            " |数量(常用)|2|FCUVerifQty|1|0",
            " |单价(常用)|4|FCUVerifPrice|1|0",
            " |金额|40|FVerifAmount|1|0",
            "结存+|+|+|+||数量(基本)|2|FEndQty|1|0",
            " |单价(基本)|4|FEndPrice|1|0",
            " |数量(常用)|2|FCUEndQty|1|0",
            " |单价(常用)|4|FCUEndPrice|1|0",
            " |金额|40|FEndAmount|1|0"};
  }
  static constexpr std::size_t kFirstSettled = 15;

  void ExpectColumns(const Lines& groups, const Lines& common = CommonColumns()) {
    Lines all = groups;
    all.insert(all.end(), common.begin(), common.end());
    EXPECT_EQ(HeaderLines(), all);
  }
};

class Rpt303Title : public Rpt303World {
 protected:
  void ExpectGroupingLine(const std::string& caption) {
    EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                       {"截止日期：2003-03-31", 1},
                                       {"物料代码范围：所有物料", 2},
                                       {"客户代码范围：所有客户", 3},
                                       {"部门代码范围：所有部门", 4},
                                       {"业务员代码范围：所有业务员", 5},
                                       {caption, 6}}));
  }
};

TEST_F(Rpt303Header, IsNotThereBeforeTheFirstFetch) {
  EXPECT_EQ(GetMember(Report(), "Header").ToObject(), nullptr);
}

TEST_F(Rpt303Header, GivesFourBlocksOfFiveColumns) {
  Fetch();
  ExpectColumns({});
}

TEST_F(Rpt303Header, CallsWhatIsSettledSoldInTheInstalmentList) {
  LetMember(Report(), "ExtFirter", "304");
  Fetch();
  Lines common = CommonColumns();
  common[kFirstSettled] = "销售+|+|+|+||数量(基本)|2|FVerifQty|1|0";
  ExpectColumns({}, common);
}

TEST_F(Rpt303Header, ShowsTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  Fetch();
  Lines common = CommonColumns();
  common[0] = "物料代码$||1|FShortNumber|1|0";
  ExpectColumns({}, common);
}

TEST_F(Rpt303Header, PutsTheColumnsOfTheGroupsFirst) {
  FetchLevels(1, 1, 2);
  ExpectColumns({"1级物料类别$||1|FName1|1|0", "2级物料类别$||1|FName2|1|0"});
  FetchLevels(2, 2, 2);
  ExpectColumns({"2级客户类别$||1|FName2|1|0"});
  FetchLevels(3, 1, 1);
  ExpectColumns({"1级物料类别$||1|FName1|1|0", "客户$||1|FCustName|1|0"});
  FetchLevels(4, 1, 1);
  ExpectColumns({"客户$||1|FCustName|1|0", "1级物料类别$||1|FName1|1|0"});
}

TEST_F(Rpt303Header, NamesThePropertyGroupedByAndItsColumn) {
  FetchBy(SumField("客户", 1, 0));
  ExpectColumns({"客户$||1|FProp01|1|0"});
  FetchBy(SumField("部门", 2, 0));
  ExpectColumns({"部门$||1|FProp02|1|0"});
  FetchBy(SumFieldWithTable("物料来源", 4, 5, "FSource"));
  ExpectColumns({"物料来源$||1|FProp54|1|0"});
}

TEST_F(Rpt303Header, PutsTheBatchBeforeTheItem) {
  FetchBatches();
  ExpectColumns({"批号$||1|FBatchNo|1|0"});
}

TEST_F(Rpt303Header, PutsTheBatchBeforeTheLongCodeWhateverCodeIsInUse) {
  UseShortCode();
  FetchBatches();
  ExpectColumns({"批号$||1|FBatchNo|1|0"});
}

TEST_F(Rpt303Header, HidesWhatDescribesAnItemWhereAGroupingShowsTotalsOnly) {
  FetchLevels(1, 1, 1, {{"OnlyShowSum", std::int32_t{1}}});
  Lines common = CommonColumns();
  common[0] = "物料代码$||1|FNumber|0|0";
  common[1] = "物料名称$||1|FName|0|0";
  common[2] = "规格型号$||1|FModel|0|0";
  common[3] = "单位(基本)$||1|FUnitName|0|0";
  common[4] = "单位(常用)$||1|FCUUnitName|0|0";
  ExpectColumns({"1级物料类别$||1|FName1|1|0"}, common);
}

TEST_F(Rpt303Header, HidesNothingItemByItemWhereTotalsOnlyAreAsked) {
  Fetch({{"OnlyShowSum", std::int32_t{1}}});
  ExpectColumns({});
}

TEST_F(Rpt303Header, HidesPricesAndAmountsByForceWithoutTheirRight) {
  ledger_->Gives("AccessCheck", false);
  Fetch();
  Lines common = CommonColumns();
  for (std::string& line : common) {
    if (line.find("|4|") != std::string::npos || line.find("|40|") != std::string::npos) line.back() = '1';
  }
  ExpectColumns({}, common);
}

TEST_F(Rpt303Header, AsksForTheFieldRightOfItsList) {
  for (const auto& [family, number] : {std::pair("303", 21), std::pair("304", 22)}) {
    report_ = nullptr;
    LetMember(Report(), "ExtFirter", family);
    const std::size_t earlier = ledger_->Calls().size();
    Fetch();
    int asked = 0;
    for (std::size_t i = earlier; i < ledger_->Calls().size(); ++i) {
      const RecordedCall& call = ledger_->Calls()[i];
      if (!EqualNames(call.member, "AccessCheck")) continue;
      ++asked;
      ASSERT_EQ(call.arguments.size(), 3U);
      EXPECT_EQ(call.arguments[0].ToInt32(), 1008);
      EXPECT_EQ(call.arguments[1].ToInt32(), number) << family;
      EXPECT_EQ(call.arguments[2].ToInt32(), 4);
    }
    EXPECT_GE(asked, 1);
  }
}

TEST_F(Rpt303Header, WritesTheKeysOfARowInTheirOrderAndTypes) {
  Fetch();
  std::vector<std::string> keys;
  const auto row = As<Dictionary>(As<Vector>(GetMember(Report(), "Header"))->Item(6));
  for (const auto& entry : row->Entries()) keys.push_back(entry.key);
  EXPECT_EQ(keys, (std::vector<std::string>{"FColCaption", "FHeadSecond", "FColType", "FColName", "FVisible",
                                            "FForceHide"}));
  EXPECT_EQ(row->Get("FColType").GetKind(), Variant::Kind::kText);
  EXPECT_EQ(row->Get("FVisible").GetKind(), Variant::Kind::kInt16);
  EXPECT_EQ(row->Get("FForceHide").GetKind(), Variant::Kind::kInt16);
}

TEST_F(Rpt303Header, IsMadeAnewByEachFetch) {
  FetchLevels(1, 1, 1);
  const ObjectRef first = GetMember(Report(), "Header").ToObject();
  Fetch();
  EXPECT_NE(GetMember(Report(), "Header").ToObject(), first);
  ExpectColumns({});
}

TEST_F(Rpt303Title, TellsOpenRangesAsAll) {
  Fetch();
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"物料代码范围：所有物料", 2},
                                     {"客户代码范围：所有客户", 3},
                                     {"部门代码范围：所有部门", 4},
                                     {"业务员代码范围：所有业务员", 5}}));
}

TEST_F(Rpt303Title, TellsBothEndsOfARange) {
  Fetch({{"BItemNumber", "11"},
         {"EItemNumber", "12"},
         {"BCustNumber", "O'Neil"},
         {"ECustNumber", "22"},
         {"BDptNumber", "31"},
         {"EDptNumber", "32"},
         {"BEmpNumber", "41"},
         {"EEmpNumber", "42"}});
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"物料代码范围：11  --  12", 2},
                                     {"客户代码范围：O'Neil  --  22", 3},
                                     {"部门代码范围：31  --  32", 4},
                                     {"业务员代码范围：41  --  42", 5}}));
}

TEST_F(Rpt303Title, LeavesTheOpenEndOfARangeEmpty) {
  Fetch({{"BItemNumber", "11"}, {"ECustNumber", "22"}, {"BDptNumber", "31"}, {"EEmpNumber", "42"}});
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"物料代码范围：11  --  ", 2},
                                     {"客户代码范围：  --  22", 3},
                                     {"部门代码范围：31  --  ", 4},
                                     {"业务员代码范围：  --  42", 5}}));
}

TEST_F(Rpt303Title, TellsWhatIsGroupedBy) {
  FetchLevels(1, 2, 3);
  ExpectGroupingLine("汇总依据：2--3级物料类别");
  FetchLevels(2, 2, 3);
  ExpectGroupingLine("汇总依据：2--3级客户类别");
  FetchLevels(3, 2, 3);
  ExpectGroupingLine("汇总依据：2--3级物料类别+客户");
  FetchBy(SumField("部门", 2, 0));
  ExpectGroupingLine("汇总依据：部门");
  FetchBy(SumField("业务员", 3, 0));
  ExpectGroupingLine("汇总依据：业务员");
  FetchBy(SumField("客户", 1, 0));
  ExpectGroupingLine("汇总依据：客户");
  FetchBatches();
  ExpectGroupingLine("汇总依据：批号");
}

TEST_F(Rpt303Title, TellsTheCustomerBeforeTheSpanOfClassesAndNotWhatClassesTheyAre) {
  FetchLevels(4, 2, 3);
  ExpectGroupingLine("汇总依据：客户+2--3");
}

TEST_F(Rpt303Title, HasNoGroupingLineItemByItem) {
  Fetch({{"GroupBy", std::int32_t{0}}, {"SumMode", std::int32_t{1}}});
  EXPECT_EQ(TitleLines().size(), 6U);
}

TEST_F(Rpt303Title, IsMadeAnewByAFetchButNotByRefresh) {
  Fetch();
  As<Dictionary>(GetMember(Report(), "Filter"))->Set("BItemNumber", "05");
  Call(Report(), "Refresh");
  EXPECT_EQ(TitleLines()[2].first, "物料代码范围：所有物料");
  Call(Report(), "GetReportData");
  EXPECT_EQ(TitleLines()[2].first, "物料代码范围：05  --  ");
}

}  // namespace
}  // namespace salerpt::testing
