// The gross profit item by item: the whole request, and what cost goes by.
#include <gtest/gtest.h>

#include "tests/reports/rpt176_world.h"

namespace salerpt::testing {
namespace {

class Rpt176ByItem : public Rpt176World {
 protected:
  void ExpectBatch(const Request& request, const Pieces& more = {}) {
    ExpectKeys(request, {"Filter"});
    ExpectFill(request, more);
    ExpectValues(request);
    EXPECT_TRUE(
        SameSql(request.at("SELECT"),
                Text("Set NoCount On {FILL} Create Table #Data({COLUMNS} Insert Into #Data Select Case "
                     "When Grouping(t1.FNumber)=1 Then '合计' Else t1.FNumber End, {VALUES} Case When "
                     "Grouping(t1.FNumber)=1 Then 101 Else 0 End {FROM} Where 1=1 ",
                     more)));
    EXPECT_TRUE(SameSql(request.at("GROUPBY"), "Group By t1.FNumber With RollUp"));
    EXPECT_TRUE(HasText(request.at("GROUPBY"), "Group By t1.FNumber With RollUp "));
    EXPECT_EQ(request.at("ITEMFILTER"), " FItemID In (Select Distinct ##ITEMID## From #Data2 )");
  }
  // One basis of cost; MATCHED is the field of the quantity.
  void ExpectCost(Entries conditions, const Pieces& costs) {
    for (const std::int32_t state : {0, 1, 2, 3}) {
      SCOPED_TRACE(state);
      Pieces more = costs;
      more["MATCHED"] = state == 0 ? "v2.FAllHookQTY" : "v2.FQty";
      if (state != 0) {
        more["QTY"] = "Qty";
        more["COSTQTY"] = "Qty";
        more["INCOME"] =
            "     Round(Case v1.FTranType When 80 Then v2.FAmount * "
            "(IsNull(v1.FExchangeRate,1)+0.0000000001) "
            "Else      (v2.FAmount - v2.FTaxAmount)* (IsNull(v1.FExchangeRate,1)+0.0000000001)  End,2)";
        more["STATE"] = more["STOCK"] =
            state == 1 ? " And v1.FStatus=0 And v1.FCancelLation=0 " : " And v1.FCancelLation=0 ";
      }
      const DictionaryRef filter = Conditions({{"CheckState", state}});
      for (const Dictionary::Entry& entry : conditions) filter->Set(entry.key, entry.value);
      SetMember(Report(), "Filter", filter);
      Call(Report(), "GetReportData");
      ASSERT_TRUE(Ok()) << Error();
      ExpectFill(request_, more);
      ExpectKeys(request_, {"Filter"});
    }
  }
};

TEST_F(Rpt176ByItem, SendsTheWholeBatch) {
  const Request& request = Fetch();
  ExpectBatch(request);
  EXPECT_EQ(request.at("Filter"), "");
  EXPECT_TRUE(SameSql(request.at("EndSel"), Text("{RATE} Order By FID Drop Table #Data  ")));
  EXPECT_TRUE(HasText(request.at("EndSel"), Text("{RATE}")));
  EXPECT_TRUE(HasText(request.at("EndSel"), " Order By FID "));
  EXPECT_TRUE(HasText(request.at("EndSel"), "Drop Table #Data  "));
}

TEST_F(Rpt176ByItem, WritesTheHeadOfTheInsertToTheLetter) {
  const std::string& select = Fetch().at("SELECT");
  EXPECT_TRUE(HasText(select, "Create Table #Data("));
  EXPECT_TRUE(HasText(select, "  Insert Into #Data  Select Case   When Grouping(t1.FNumber)=1 Then '合计' "));
  EXPECT_TRUE(HasText(select, " Else t1.FNumber End, "));
  EXPECT_TRUE(HasText(select, " Case  When Grouping(t1.FNumber)=1 Then 101 "));
  EXPECT_TRUE(HasText(select, " Else 0 End "));
  EXPECT_TRUE(HasText(select, Text("{FROM}")));
  EXPECT_TRUE(HasText(select, " Where 1=1 "));
}

TEST_F(Rpt176ByItem, GivesEachColumnOneValue) {
  auto selected = SelectedByColumn(Fetch().at("SELECT"), "#Data");
  EXPECT_EQ(selected["funitcost"], "0");
  EXPECT_EQ(selected["fprofit"], "sum ( v1.fincomesale ) - sum ( v1.fcostsale )");
  EXPECT_EQ(selected["fsumsort"], "case when grouping ( t1.fnumber ) = 1 then 101 else 0 end");
}

TEST_F(Rpt176ByItem, TakesAnyGroupByButOneForItemByItem) {
  const Request plain = Fetch();
  for (const std::int32_t group_by : {0, 2}) {
    EXPECT_EQ(Fetch({{"GroupBy", group_by}, {"SumMode", std::int32_t{3}}}), plain);
  }
}

TEST_F(Rpt176ByItem, ShowsTotalsOnlyByTheFinalSelect) {
  const Request& request = Fetch({{"OnlyShowSum", std::int32_t{1}}});
  ExpectBatch(request);
  EXPECT_TRUE(SameSql(request.at("EndSel"), Text("{RATE} Where FSumSort>100 Order By FID Drop Table #Data")));
  EXPECT_TRUE(HasText(request.at("EndSel"), Text("{RATE}Where FSumSort>100")));
}

TEST_F(Rpt176ByItem, KnowsNoOrderOfBlocks) {
  const Request plain = Fetch();
  EXPECT_EQ(Fetch({{"OrderBy", "FQtySale DESC"}}), plain);
}

TEST_F(Rpt176ByItem, RestrictsAllThreeFillsByTheDataRight) {
  RestrictCustomers();
  ExpectBatch(Fetch(), {{"TAIL", " And  CharIndex('16394',T2.FRightUserID)>0 "}});
}

TEST_F(Rpt176ByItem, AsksForTheUnitCostByANumber) {
  Variant unit_cost;
  on_fetch_ = [&](Arguments arguments) { unit_cost = As<Dictionary>(arguments[1])->Get("UnitCost"); };
  Fetch();
  EXPECT_TRUE(unit_cost.IsNumber());
  EXPECT_EQ(unit_cost.ToInt32(), 1);
}

TEST_F(Rpt176ByItem, AsksTheMiddleTierOnceWithTheLoginAndTakesItsRows) {
  Fetch();
  ASSERT_EQ(sales_->CalledMembers(), std::vector<std::string>{"GetSaleAmountData"});
  EXPECT_EQ(sales_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(sales_->Calls()[0].arguments.size(), 2U);
  EXPECT_EQ(GetMember(Report(), "Rs").ToObject(), rows_);
  EXPECT_EQ(Error(), "");
}

TEST_F(Rpt176ByItem, TakesTheActualCost) {
  ExpectCost({{"Cost", std::int32_t{0}}}, {});
}

TEST_F(Rpt176ByItem, TakesTheActualCostWhereNothingIsSaid) {
  ExpectCost({}, {});
}

TEST_F(Rpt176ByItem, TakesNoTaxOutOfTheActualCost) {
  ExpectCost({{"Cost", std::int32_t{0}}, {"IncludeTax", std::int32_t{1}}, {"TaxSource", std::int32_t{1}}},
             {});
}

TEST_F(Rpt176ByItem, TakesTheReferencePurchasePrice) {
  ExpectCost({{"Cost", std::int32_t{1}}, {"IncludeTax", std::int32_t{0}}, {"TaxSource", std::int32_t{1}}},
             {{"STOCKCOST", "{MATCHED}*IsNull(t1.FStockPrice,0)"},
              {"PURCHASECOST", "{MATCHED}*IsNull(t1.FStockPrice,0)"}});
}

TEST_F(Rpt176ByItem, TakesTheItemsTaxOutOfTheReferencePurchasePrice) {
  for (const std::int32_t include : {1, -1}) {
    ExpectCost({{"Cost", std::int32_t{1}}, {"IncludeTax", include}, {"TaxSource", std::int32_t{0}}},
               {{"STOCKCOST", "{MATCHED}*IsNull(t1.FStockPrice,0)/(1+IsNull(t1.FTaxRate,0)/100.0)"},
                {"PURCHASECOST", "{MATCHED}*IsNull(t1.FStockPrice,0)/(1+IsNull(t1.FTaxRate,0)/100.0)"}});
  }
}

TEST_F(Rpt176ByItem, TakesTheSuppliersTaxOutOfTheReferencePurchasePrice) {
  ExpectCost({{"Cost", std::int32_t{1}}, {"IncludeTax", std::int32_t{1}}, {"TaxSource", std::int32_t{1}}},
             {{"STOCKCOST", "{MATCHED}*IsNull(t1.FStockPrice,0)/(1+IsNull(t3.FValueAddRate,0)/100.0)"},
              {"SUPPLIER", "Left Join t_Supplier t3 On v1.FSupplyID=t3.FItemID"},
              {"PURCHASECOST", "{MATCHED}*IsNull(t1.FStockPrice,0)/(1+IsNull(t2.FValueAddRate,0)/100.0)"}});
}

TEST_F(Rpt176ByItem, TakesTheLatestInboundPrice) {
  ExpectCost(
      {{"Cost", std::int32_t{2}}, {"IncludeTax", std::int32_t{1}}, {"TaxSource", std::int32_t{1}}},
      {{"STOCKCOST",
        "{MATCHED}*IsNull((Select Top 1 FPrice From ICStockBill t,ICStockBillEntry te Where "
        "t.FInterID=te.FInterID And t.FTranType In(1,2) And t.FROB=1 And te.FItemID=v2.FItemID Order By "
        "t.FInterID Desc),0)"},
       {"PURCHASECOST",
        "{MATCHED}*IsNull((Select Top 1 FPrice From ICPurchase t,ICPurchaseEntry te Where "
        "t.FInterID=te.FInterID And t.FROB=1 And te.FItemID=v2.FItemID Order By t.FInterID Desc),0)"}});
}

}  // namespace
}  // namespace salerpt::testing
