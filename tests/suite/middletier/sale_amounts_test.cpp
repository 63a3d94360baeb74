// The unit cost of the gross profit, the outbound detail, and what the dialogs offer for choice.
#include "runtime/vector.h"
#include "tests/runtime/error_check.h"
#include "tests/suite/middletier/company.h"

namespace salerpt::middletier {
namespace {

using testing::ElementsAre;

// --- The unit cost

// Sent and what it cost, by item; nothing was sent of the second.
DictionaryRef CostRequest() {
  auto request = std::make_shared<Dictionary>();
  request->Set(
      "Select",
      "Create Table #Data(FNumber VarChar(355) Null,FName VarChar(355) Null,FQtySend decimal(23,10),"
      "FCostSale decimal(23,10),FUnitCost decimal(23,10),FSumSort SmallInt Not Null Default 0,FID Int "
      "IDENTITY)\r\n"
      "Insert Into #Data Select '01.01','',3,10,0,0\r\n"
      "Insert Into #Data Select '01.02','',0,7,0,0\r\n"
      "Insert Into #Data Select '01.03','',-4,-10,0,0\r\n"
      "Insert Into #Data Select '合计','',-1,7,0,101\r\n");
  request->Set("EndSel", "Select * From #Data Order By FID Drop Table #Data");
  return request;
}

RecordsetRef Answer(std::string_view member, const DictionaryRef& request) {
  Variant sent = request;
  return As<Recordset>(Call(CreateObject("ORVMSaleRpt.Data"), member, "", sent));
}

class SaleAmountsTest : public CompanyTest {};

TEST_F(SaleAmountsTest, TheUnitCostIsCostByQuantitySentAndATotalOfSeveralItemsHasNone) {
  const DictionaryRef request = CostRequest();
  request->Set("UnitCost", 1);
  const RecordsetRef rows = Answer("GetSaleAmountData", request);
  EXPECT_THAT(Cells(rows, "FUnitCost"), ElementsAre("3.3333333333", "0", "2.5", "null"));
  rows->MoveFirst();
  EXPECT_THAT(Cells(rows, "FName"), ElementsAre("螺栓", "螺母", "O'Ring", ""));
}

TEST_F(SaleAmountsTest, TheUnitCostIsFilledOnlyWhereItIsAskedFor) {
  const DictionaryRef request = CostRequest();
  EXPECT_THAT(Cells(Answer("GetSaleAmountData", request), "FUnitCost"), ElementsAre("0", "0", "0", "0"));
  request->Set("UnitCost", 0);
  EXPECT_THAT(Cells(Answer("GetSaleAmountData", request), "FUnitCost"), ElementsAre("0", "0", "0", "0"));
}

TEST_F(SaleAmountsTest, TheLabelsOfTheEndSeeTheUnitCost) {
  const DictionaryRef request = CostRequest();
  request->Set("UnitCost", "1");
  request->Set("EndSel", "Select LTrim(Str(FUnitCost*2)) FTwice From #Data Where FNumber='01.03'");
  EXPECT_THAT(Cells(Answer("GetSaleAmountData", request), "FTwice"), ElementsAre("5"));
}

TEST_F(SaleAmountsTest, AUnitCostThatIsNoNumberIsRefused) {
  const DictionaryRef request = CostRequest();
  request->Set("UnitCost", "yes");
  EXPECT_EQ(NumberRaisedBy([&] { Answer("GetSaleAmountData", request); }), error_number::kTypeMismatch);
}

// --- The outbound detail

DictionaryRef DetailRequest() {
  auto request = std::make_shared<Dictionary>();
  request->Set(
      "Select",
      "Create Table #DATA(FNumber varchar(355) null,FName varchar(355) null,FUnitName varchar(355) null,"
      "FCUUnitName varchar(355) null,FQtyDecimal smallint null,FQty decimal(23,10) null,FSumSort smallint "
      "not null Default(0))\r\n"
      "Insert Into #DATA Select t1.FNumber,'','','',4,Sum(v2.FQty),0 From ICSaleEntry v2 Join t_ICItem "
      "t1 On v2.FItemID=t1.FItemID ");
  request->Set("GROUPBY", "Group by t1.FNumber");
  request->Set("Append", "");
  request->Set("EndSel", "Select * From #DATA Order By FNumber DROP TABLE #DATA");
  return request;
}

TEST_F(SaleAmountsTest, AGroupedDetailHasItsItemColumnsFilled) {
  const RecordsetRef rows = Answer("GetSaleDetailData", DetailRequest());
  EXPECT_THAT(Cells(rows, "FName"), ElementsAre("螺栓", "螺母", "O'Ring"));
  rows->MoveFirst();
  EXPECT_THAT(Cells(rows, "FUnitName"), ElementsAre("件", "件", "千克"));
  rows->MoveFirst();
  EXPECT_THAT(Cells(rows, "FCUUnitName"), ElementsAre("箱", "件", "千克"));
  rows->MoveFirst();
  EXPECT_THAT(Cells(rows, "FQtyDecimal"), ElementsAre("0", "3", "1"));
}

TEST_F(SaleAmountsTest, AListOfLinesNamesItsItemsItself) {
  const DictionaryRef request = DetailRequest();
  request->Set("Select", Replace(request->Get("Select").ToText(), "Sum(v2.FQty)", "v2.FQty"));
  request->Set("GROUPBY", "");
  request->Set("Append", "Update #DATA Set FName='own name' Where FName=''");
  const RecordsetRef rows = Answer("GetSaleDetailData", request);
  EXPECT_EQ(rows->RecordCount(), 8);
  EXPECT_THAT(Cells(rows, "FName"), testing::Each("own name"));
}

TEST_F(SaleAmountsTest, AFailingDetailIsRaisedUnderItsOwnName) {
  const DictionaryRef request = DetailRequest();
  request->Set("Append", "Update t_NoSuch Set FName=1");
  const auto error = RaisedBy([&] { Answer("GetSaleDetailData", request); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Source(), "ORVMSaleRpt.Data:GetSaleDetailData");
  EXPECT_EQ(error->Description(), "Invalid object name 't_NoSuch'.");
  ExpectNoTable("#DATA");
}

TEST_F(SaleAmountsTest, ADetailRequestThatIsNothingIsRefused) {
  EXPECT_EQ(NumberRaisedBy([] { Answer("GetSaleDetailData", nullptr); }), error_number::kInvalidCall);
}

// --- What the dialogs offer

TEST_F(SaleAmountsTest, TheSaleStylesInUseComeByNumber) {
  Sql("INSERT INTO t_SubMessage(FInterID,FTypeID,FID,FName,FDeleted) VALUES "
      "(103,101,'3','委托代销',0),(101,101,'1','赊销',0),(104,101,'4','旧方式',1),(20301,997,'1','购销',0)");
  const auto styles = As<Recordset>(Call(CreateObject("ORVMSaleRpt.Data"), "GetSaleType", kProps));
  EXPECT_THAT(Cells(styles, "FInterID"), ElementsAre("101", "103"));
  styles->MoveFirst();
  EXPECT_THAT(Cells(styles, "FName"), ElementsAre("赊销", "委托代销"));
}

VectorRef Descriptions(std::string_view condition) {
  return As<Vector>(Call(CreateObject("ORVMSaleRpt.Data"), "GetItemPropDesc", "", condition));
}

class PropertyDescriptionsTest : public CompanyTest {
 protected:
  PropertyDescriptionsTest() {
    Sql("INSERT INTO t_ItemPropDesc(FItemClassID,FPropID,FName,FSQLColumnName,FSrcTable,FSrcField,"
        "FDisplayField) VALUES (4,105,'规格型号','FModel','','',''),"
        "(1,101,'区域','FRegionID','t_SubMessage','FInterID','FName'),(8,101,'行业','FTrade','','','')");
  }
};

TEST_F(PropertyDescriptionsTest, APropertyTellsWhereItsValueIsFound) {
  const VectorRef properties = Descriptions(" FItemClassID IN (4,1) ");
  ASSERT_EQ(properties->Size(), 2);
  const auto region = As<Dictionary>(properties->Item(1));
  EXPECT_EQ(region->Get("FName"), Variant("区域"));
  EXPECT_EQ(region->Get("FPropID"), Variant(101));
  EXPECT_EQ(region->Get("FSQLColumnName"), Variant("FRegionID"));
  EXPECT_EQ(region->Get("FSrcTable"), Variant("t_SubMessage"));
  EXPECT_EQ(region->Get("FSrcField"), Variant("FInterID"));
  EXPECT_EQ(region->Get("FDisplayField"), Variant("FName"));
  EXPECT_EQ(region->Get("FItemClassID"), Variant(1));
  EXPECT_EQ(As<Dictionary>(properties->Item(2))->Get("FName"), Variant("规格型号"));
}

TEST_F(PropertyDescriptionsTest, WithoutAConditionAllPropertiesCome) {
  EXPECT_EQ(Descriptions("")->Size(), 3);
  EXPECT_EQ(Descriptions(" FItemClassID=99 ")->Size(), 0);
}

TEST_F(PropertyDescriptionsTest, AConditionThatFailsIsRaisedWithTheServersWords) {
  EXPECT_EQ(DescriptionRaisedBy([] { Descriptions("FNoSuch=1"); }), "Invalid column name 'FNoSuch'.");
}

// --- The drill into a sale style

TEST_F(SaleAmountsTest, ASaleStyleIsFoundByItsNameThroughTheClassObject) {
  Sql("INSERT INTO t_SubMessage(FInterID,FTypeID,FID,FName) VALUES "
      "(101,101,'FXF02','赊销'),(5,26,'1','赊销')");
  const auto rows = As<Recordset>(
      Call(CreateObject("ORVMClass.ClassInfo"), "GetData", kProps,
           "Select FInterID,FTypeID,FID,FName from t_Submessage where FName='赊销' and FTypeID=101"));
  EXPECT_EQ(rows->RecordCount(), 1);
  EXPECT_EQ(rows->Value("FInterID").ToText(), "101");
}

}  // namespace
}  // namespace salerpt::middletier
