// The columns of the outbound summary as the host gets them.
#include <gtest/gtest.h>

#include <ostream>

#include "tests/reports/rpt128_world.h"

namespace salerpt::testing {
namespace {

struct Column {
  std::string caption;
  std::string type;
  std::string name;
  int visible;
  int force_hide;
  bool operator==(const Column&) const = default;
};
using Columns = std::vector<Column>;

void PrintTo(const Column& column, std::ostream* out) {
  *out << column.caption << " | " << column.type << " | " << column.name << " | " << column.visible << " | "
       << column.force_hide;
}

// The columns behind those of the groups, with every right.
Columns CommonColumns() {
  return {{"产品代码$", "1", "FNumber", 1, 0},
          {"产品名称$", "1", "FName", 1, 0},
          {"规格型号$", "1", "FModel", 1, 0},
          {"单位(基本)$", "1", "FUnitName", 1, 0},
          {"出库数量(基本)$", "2", "FOutQty", 1, 0},
          {"出库金额$", "40", "FOutAmount", 1, 0},
          {"开票数量(基本)$", "2", "FCommitQty", 1, 0},
          {"开票金额$", "40", "FCommitAmount", 1, 0},
          {"销售金额$", "40", "FConsignAmount", 1, 0},
          {"未开票数量(基本)$", "2", "FNotCommitQty", 1, 0},
          {"单位(常用)$", "1", "FCUUnitName", 1, 0},
          {"出库数量(常用)$", "2", "FCUUnitOutQty", 1, 0},
          {"开票数量(常用)$", "2", "FCUUnitCommitQty", 1, 0},
          {"未开票数量(常用)$", "2", "FCUUnitNotCommitQty", 1, 0}};
}

class Rpt128Header : public Rpt128World {
 protected:
  VectorRef Header() { return As<Vector>(GetMember(Report(), "Header")); }
  Columns Shown() {
    Columns columns;
    const VectorRef header = Header();
    for (std::int32_t i = 1; i <= header->Size(); ++i) {
      const auto row = As<Dictionary>(header->Item(i));
      EXPECT_EQ(row->Get("FHeadSecond"), Variant(""));
      columns.push_back({row->Get("FColCaption").ToText(), row->Get("FColType").ToText(),
                         row->Get("FColName").ToText(), row->Get("FVisible").ToInt16(),
                         row->Get("FForceHide").ToInt16()});
    }
    return columns;
  }
  static DictionaryRef SumField(const char* name, const char* id, const char* item_class) {
    return std::make_shared<Dictionary>(Entries{{"FName", name},
                                                {"FPropID", id},
                                                {"FItemClassID", item_class},
                                                {"FSrcTable", ""},
                                                {"FSQLColumnName", "FName"}});
  }
  // The columns of a grouping: these, then the common ones.
  void ExpectGroupColumns(std::int32_t mode, const Columns& expected, std::int32_t from = 1,
                          std::int32_t to = 2) {
    Fetch({{"GroupBy", std::int32_t{1}},
           {"SumMode", mode},
           {"BLevel", from},
           {"ELevel", to},
           {"SumField", SumField("销售方式", "29", "1")}});
    Columns all = expected;
    for (const Column& column : CommonColumns()) all.push_back(column);
    EXPECT_EQ(Shown(), all) << "mode " << mode;
  }
  void RefuseRight(std::int32_t right) {
    ledger_->On("AccessCheck",
                [right](Arguments arguments) -> Variant { return arguments[2].ToInt32() != right; });
  }
  void UseSecondUnit(const Variant& value) {
    connection_->On("Execute", [value](Arguments) -> Variant { return OneValue("FValue", value); });
  }
};

TEST_F(Rpt128Header, IsNotThereBeforeTheFirstFetch) {
  EXPECT_EQ(GetMember(Report(), "Header").ToObject(), nullptr);
}

TEST_F(Rpt128Header, GivesTheCommonColumnsItemByItem) {
  Fetch();
  EXPECT_EQ(Shown(), CommonColumns());
}

TEST_F(Rpt128Header, WritesTheKeysOfARowInTheirOrderAndTypes) {
  Fetch();
  std::vector<std::string> keys;
  const auto row = As<Dictionary>(Header()->Item(1));
  for (const auto& entry : row->Entries()) keys.push_back(entry.key);
  EXPECT_EQ(keys, (std::vector<std::string>{"FColCaption", "FHeadSecond", "FColType", "FColName", "FVisible",
                                            "FForceHide"}));
  EXPECT_EQ(row->Get("FColCaption").GetKind(), Variant::Kind::kText);
  EXPECT_EQ(row->Get("FHeadSecond").GetKind(), Variant::Kind::kText);
  EXPECT_EQ(row->Get("FColType").GetKind(), Variant::Kind::kText);
  EXPECT_EQ(row->Get("FColName").GetKind(), Variant::Kind::kText);
  EXPECT_EQ(row->Get("FVisible").GetKind(), Variant::Kind::kInt16);
  EXPECT_EQ(row->Get("FForceHide").GetKind(), Variant::Kind::kInt16);
}

TEST_F(Rpt128Header, ShowsTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  Fetch();
  EXPECT_EQ(Shown()[0], (Column{"产品代码$", "1", "FShortNumber", 1, 0}));
}

TEST_F(Rpt128Header, HidesWhatDescribesAnItemWhereAGroupingShowsTotalsOnly) {
  Fetch({{"GroupBy", std::int32_t{1}},
         {"SumMode", std::int32_t{1}},
         {"BLevel", std::int32_t{1}},
         {"ELevel", std::int32_t{1}},
         {"OnlyShowSum", std::int32_t{1}}});
  std::vector<std::string> hidden;
  for (const Column& column : Shown()) {
    if (column.visible == 0) hidden.push_back(column.name);
  }
  EXPECT_EQ(hidden, (std::vector<std::string>{"FNumber", "FName", "FModel", "FUnitName", "FCUUnitName"}));
}

TEST_F(Rpt128Header, HidesNothingItemByItemWhereTotalsOnlyAreAsked) {
  Fetch({{"OnlyShowSum", std::int32_t{1}}});
  EXPECT_EQ(Shown(), CommonColumns());
}

TEST_F(Rpt128Header, HidesOutboundAmountsByForceWithoutTheirRight) {
  RefuseRight(4);
  Fetch();
  Columns expected = CommonColumns();
  expected[5].force_hide = 1;
  EXPECT_EQ(Shown(), expected);
}

TEST_F(Rpt128Header, HidesInvoiceAndSalesAmountsByForceWithoutTheirRight) {
  RefuseRight(16);
  Fetch();
  Columns expected = CommonColumns();
  expected[7].force_hide = 1;
  expected[8].force_hide = 1;
  EXPECT_EQ(Shown(), expected);
}

TEST_F(Rpt128Header, AsksForTheTwoFieldRights) {
  Fetch();
  std::vector<std::vector<int>> asked;
  for (const RecordedCall& call : ledger_->Calls()) {
    if (!EqualNames(call.member, "AccessCheck")) continue;
    std::vector<int> numbers;
    for (const Variant& argument : call.arguments) numbers.push_back(argument.ToInt32());
    asked.push_back(numbers);
  }
  EXPECT_EQ(asked, (std::vector<std::vector<int>>{{1008, 2, 4}, {1008, 2, 16}}));
}

TEST_F(Rpt128Header, AddsTheAuxiliaryUnitWhereTheSystemHasIt) {
  UseSecondUnit("1");
  Fetch();
  Columns expected = CommonColumns();
  expected.push_back({"单位(辅助)$", "1", "FSecUnitName", 1, 0});
  expected.push_back({"出库数量(辅助)$", "2", "FSecQty", 1, 0});
  expected.push_back({"开票数量(辅助)$", "2", "FSecInvoiceQty", 1, 0});
  expected.push_back({"未开票数量(辅助)$", "2", "FSecNInvoiceQty", 1, 0});
  EXPECT_EQ(Shown(), expected);
}

TEST_F(Rpt128Header, HidesTheNameOfTheAuxiliaryUnitWhereAGroupingShowsTotalsOnly) {
  UseSecondUnit("1");
  Fetch({{"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{9}}, {"OnlyShowSum", std::int32_t{1}}});
  const Columns columns = Shown();
  ASSERT_EQ(columns.size(), 19U);
  EXPECT_EQ(columns[15], (Column{"单位(辅助)$", "1", "FSecUnitName", 0, 0}));
  EXPECT_EQ(columns[16], (Column{"出库数量(辅助)$", "2", "FSecQty", 1, 0}));
}

TEST_F(Rpt128Header, LeavesTheAuxiliaryUnitOutOtherwise) {
  for (const Variant& value : {Variant("0"), Variant(""), Variant(Null()), Variant("2")}) {
    UseSecondUnit(value);
    Fetch();
    EXPECT_EQ(Shown(), CommonColumns());
  }
}

TEST_F(Rpt128Header, ReadsTheAuxiliaryUnitFromTheSystemProfile) {
  Fetch();
  ASSERT_EQ(connection_->CalledMembers(), std::vector<std::string>{"Execute"});
  EXPECT_EQ(connection_->Calls()[0].arguments[0].ToText(),
            "select * from t_systemprofile where FCategory='IC' and fkey ='SecUnit'");
}

TEST_F(Rpt128Header, PutsItemClassesFirst) {
  ExpectGroupColumns(1, {{"1级物料类别$", "1", "FName1", 1, 0}, {"2级物料类别$", "1", "FName2", 1, 0}});
  ExpectGroupColumns(1, {{"3级物料类别$", "1", "FName3", 1, 0}}, 3, 3);
}

TEST_F(Rpt128Header, PutsCustomerClassesFirst) {
  ExpectGroupColumns(2, {{"1级客户类别$", "1", "FName1", 1, 0}, {"2级客户类别$", "1", "FName2", 1, 0}});
}

TEST_F(Rpt128Header, PutsTheCustomerBehindTheClasses) {
  ExpectGroupColumns(3, {{"1级物料类别$", "1", "FName1", 1, 0},
                         {"2级物料类别$", "1", "FName2", 1, 0},
                         {"客户$", "1", "FCustName", 1, 0}});
  ExpectGroupColumns(8, {{"1级客户类别$", "1", "FName1", 1, 0},
                         {"2级客户类别$", "1", "FName2", 1, 0},
                         {"客户$", "1", "FCustName", 1, 0}});
}

TEST_F(Rpt128Header, PutsTheCustomerBeforeTheClasses) {
  ExpectGroupColumns(4,
                     {{"客户$", "1", "FCustName", 1, 0},
                      {"2级物料类别$", "1", "FName2", 1, 0},
                      {"3级物料类别$", "1", "FName3", 1, 0}},
                     2, 3);
}

TEST_F(Rpt128Header, PutsEmployeeAndCustomerBeforeTheClasses) {
  ExpectGroupColumns(12, {{"业务员$", "1", "FEmpName", 1, 0},
                          {"客户$", "1", "FCustName", 1, 0},
                          {"1级物料类别$", "1", "FName1", 1, 0},
                          {"2级物料类别$", "1", "FName2", 1, 0}});
}

TEST_F(Rpt128Header, NamesThePropertyGroupedByAndItsColumn) {
  for (const std::int32_t mode : {5, 6, 7, 99}) {
    ExpectGroupColumns(mode, {{"销售方式$", "1", "FProp291", 1, 0}});
  }
}

TEST_F(Rpt128Header, PutsTheDepartmentFirst) {
  ExpectGroupColumns(9, {{"部门$", "1", "FProp01", 1, 0}});
}

TEST_F(Rpt128Header, PutsTheEmployeeBehindDepartmentOrCustomer) {
  for (const std::int32_t mode : {10, 11}) {
    ExpectGroupColumns(mode, {{"销售方式$", "1", "FProp01", 1, 0}, {"业务员$", "1", "FEmpName", 1, 0}});
  }
}

TEST_F(Rpt128Header, ShowsGroupColumnsWhereTotalsOnlyAreAsked) {
  Fetch({{"GroupBy", std::int32_t{1}},
         {"SumMode", std::int32_t{5}},
         {"SumField", SumField("客户", "0", "1")},
         {"OnlyShowSum", std::int32_t{1}}});
  EXPECT_EQ(Shown()[0], (Column{"客户$", "1", "FProp01", 1, 0}));
}

TEST_F(Rpt128Header, IsMadeAnewByEachFetch) {
  Fetch();
  const VectorRef first = Header();
  Fetch();
  EXPECT_NE(Header(), first);
  EXPECT_EQ(Shown(), CommonColumns());
}

}  // namespace
}  // namespace salerpt::testing
