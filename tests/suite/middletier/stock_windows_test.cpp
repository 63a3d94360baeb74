// The stock windows, their list on the small company, and the state of the system.
#include <gtest/gtest.h>

#include <optional>

#include "tests/suite/middletier/generated_set.h"
#include "tests/suite/middletier/order_company.h"

namespace salerpt::middletier {
namespace {

// 101 in the first stock: 20 and 5 received, 2 of these given back, 8 out, 1 back, 3 out though not audited,
// 4 issued; in the second one only an issue. Not counted: a bill that is not audited, a cancelled one.
constexpr const char* kStocks = R"sql(
INSERT INTO t_Stock(FItemID,FNumber,FShortNumber,FName,FTypeID,FRightUserID)
  VALUES (601,'S.01','9','主仓',500,'16394'),(602,'S.02','8','待检仓',501,'16395');
INSERT INTO ICStockBill(FInterID,FTranType,FBillNo,FDate,FROB,FStatus,FUpStockWhenSave,FCancelLation)
  VALUES (1,1,'W1','2024-03-01 00:00:00',1,1,0,0),(2,2,'C1','2024-03-02 00:00:00',1,1,0,0),
         (3,1,'W2','2024-03-03 00:00:00',-1,1,0,0),(4,21,'X1','2024-03-04 00:00:00',1,1,0,0),
         (5,21,'X2','2024-03-05 00:00:00',-1,1,0,0),(6,21,'X3','2024-03-06 00:00:00',1,0,1,0),
         (7,24,'L1','2024-03-07 00:00:00',1,1,0,0),(8,1,'W3','2024-03-08 00:00:00',1,0,0,0),
         (9,1,'W4','2024-03-09 00:00:00',1,1,0,1),(10,29,'Q1','2024-03-09 00:00:00',1,1,0,0);
INSERT INTO ICStockBillEntry(FInterID,FEntryID,FItemID,FUnitID,FQty,FAuxQty,FSCStockID,FDCStockID)
  VALUES (1,1,101,1,20,20,0,601),(2,1,101,1,5,5,0,601),(3,1,101,1,-2,-2,0,601),(4,1,101,1,8,8,0,601),
         (5,1,101,1,-1,-1,0,601),(6,1,101,1,3,3,0,601),(7,1,101,1,4,4,601,0),(7,2,101,1,6,6,602,0),
         (8,1,101,1,7,7,0,601),(9,1,101,1,7,7,0,601),(10,1,101,1,7,7,601,601),(1,2,103,3,1.5,1.5,0,602);
)sql";

class StockWindowsTest : public CompanyTest {
 protected:
  StockWindowsTest() {
    Sql(kStocks);
    RegisterMiddleTier(runtime_, account_set_, Login{},
                       [this](const ShownList& list) { shown_.push_back(list); });
  }

  // The list that the window shows.
  ShownList Open(std::string_view prog_id) {
    shown_.clear();
    Call(CreateObject(prog_id), "Show");
    EXPECT_EQ(shown_.size(), 1U);
    return shown_.empty() ? ShownList{} : shown_.front();
  }
  // Its columns, parted by blanks, and its rows.
  static std::string Captions(const ShownList& list) {
    std::string captions;
    for (const auto& column : list.columns) captions += (captions.empty() ? "" : " ") + column.caption;
    return captions;
  }
  static std::vector<std::string> Rows(const ShownList& list) {
    std::vector<std::string> rows;
    for (list.rows->MoveFirst(); !list.rows->Eof(); list.rows->MoveNext()) {
      std::string row;
      for (const auto& column : list.columns)
        row += (row.empty() ? "" : "|") + list.rows->Value(column.field).TextOrEmpty();
      rows.push_back(row);
    }
    return rows;
  }

  std::vector<ShownList> shown_;
};

TEST_F(StockWindowsTest, ShowsWhatIsLeft) {
  const ShownList list = Open("ORVStockQuery.StockQueryFace");
  EXPECT_EQ(list.title, "库存查询");
  EXPECT_EQ(Captions(list), "物料代码 物料名称 规格型号 仓库代码 仓库名称 单位(基本) 库存数量");
  EXPECT_EQ(Rows(list),
            (std::vector<std::string>{"01.01|螺栓|M8|S.01|主仓|件|9", "01.01|螺栓|M8|S.02|待检仓|件|-6",
                                      "01.03|O'Ring|R-5|S.02|待检仓|千克|1.5"}));
}

TEST_F(StockWindowsTest, ShowsWhatCameAndWent) {
  const ShownList list = Open("ORVStockStatus.SSFace");
  EXPECT_EQ(list.title, "库存状况");
  EXPECT_EQ(Captions(list),
            "物料代码 物料名称 规格型号 仓库代码 仓库名称 单位(基本) 收入数量 发出数量 库存数量");
  EXPECT_EQ(Rows(list), (std::vector<std::string>{"01.01|螺栓|M8|S.01|主仓|件|23|14|9",
                                                  "01.01|螺栓|M8|S.02|待检仓|件|0|6|-6",
                                                  "01.03|O'Ring|R-5|S.02|待检仓|千克|1.5|0|1.5"}));
}

TEST_F(StockWindowsTest, ShowsTheCodesInUse) {
  Sql("UPDATE t_SystemProfile SET FValue='1' WHERE FKey='UseShortNumber'");
  EXPECT_EQ(Rows(Open("ORVStockQuery.StockQueryFace")).front(), "9|螺栓|M8|9|主仓|件|9");
}

TEST_F(StockWindowsTest, ShowsNoStockThatTheUserMayNotSee) {
  Sql("INSERT INTO t_DataRight(FUserID,FKind,FUsed) VALUES (16394,4,1)");
  EXPECT_EQ(Rows(Open("ORVStockQuery.StockQueryFace")),
            (std::vector<std::string>{"01.01|螺栓|M8|S.01|主仓|件|9"}));
}

TEST_F(StockWindowsTest, ShowsAnEmptyListWhereNothingMoved) {
  Sql("DELETE FROM ICStockBillEntry");
  EXPECT_TRUE(Rows(Open("ORVStockQuery.StockQueryFace")).empty());
}

TEST_F(StockWindowsTest, OpensUnseenWithoutAScreen) {
  RegisterMiddleTier(runtime_, account_set_, Login{});
  Call(CreateObject("ORVStockQuery.StockQueryFace"), "Show");
  EXPECT_TRUE(shown_.empty());
}

TEST_F(StockWindowsTest, LeavesNoTemporaryTable) {
  Open("ORVStockQuery.StockQueryFace");
  ExpectNoTable("#Moved");
  ExpectNoTable("#Balance");
}

// --- The state of the system

class SystemTest : public CompanyTest {
 protected:
  static bool Started() { return Call(CreateObject("ORVMSystem.System"), "ISStarted", kProps).ToBoolean(); }
};

TEST_F(SystemTest, IsStartedAsTheParameterSays) {
  EXPECT_FALSE(Started());
  Sql("INSERT INTO t_SystemProfile(FCategory,FKey,FValue) VALUES ('IC','SystemStarted','1')");
  EXPECT_TRUE(Started());
  Sql("UPDATE t_SystemProfile SET FValue='0' WHERE FKey='SystemStarted'");
  EXPECT_FALSE(Started());
  Sql("UPDATE t_SystemProfile SET FValue=NULL WHERE FKey='SystemStarted'");
  EXPECT_FALSE(Started());
}

TEST(GeneratedSystem, IsStartedAndClosedInNoModule) {
  const GeneratedSet set(5, 100);
  Runtime runtime;
  RegisterMiddleTier(runtime, set.Get(), Login{});
  EXPECT_TRUE(Call(CreateObject("ORVMSystem.System"), "ISStarted", "").ToBoolean());
  EXPECT_EQ(set.Numbers("SELECT FValue FROM t_SystemProfile WHERE FCategory='IC' AND FKey='CloseInModule'"),
            std::vector<double>{0});
}

TEST(GeneratedStock, AgreesWithTheBills) {
  const GeneratedSet set(5, 2000);
  Runtime runtime;
  std::optional<ShownList> shown;
  RegisterMiddleTier(runtime, set.Get(), Login{}, [&](const ShownList& list) { shown = list; });
  Call(CreateObject("ORVStockStatus.SSFace"), "Show");
  ASSERT_TRUE(shown);
  double in = 0;
  double out = 0;
  for (shown->rows->MoveFirst(); !shown->rows->Eof(); shown->rows->MoveNext()) {
    in += shown->rows->Value("FInQty").ToDouble();
    out += shown->rows->Value("FOutQty").ToDouble();
    EXPECT_NEAR(shown->rows->Value("FQty").ToDouble(),
                shown->rows->Value("FInQty").ToDouble() - shown->rows->Value("FOutQty").ToDouble(), 1e-6);
  }
  const auto moved = [&set](const std::string& types) {
    return set
        .Numbers(
            "SELECT sum(e.FQty) FROM ICStockBill h JOIN ICStockBillEntry e USING(FInterID) WHERE h.FTranType "
            "IN "
            "(" +
            types + ") AND (h.FStatus>0 OR h.FUpStockWhenSave) AND NOT h.FCancelLation")
        .front();
  };
  EXPECT_NEAR(in, moved("1,2"), 1e-4);
  EXPECT_NEAR(out, moved("21,24"), 1e-4);
}

}  // namespace
}  // namespace salerpt::middletier
