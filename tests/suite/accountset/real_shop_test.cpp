// The invoice lines of a real shop, where they are at hand: the well-known totals come out.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "suite/accountset/accountset.h"
#include "support.h"
#include "test_places.h"

namespace salerpt::accountset {
namespace {

class RealShopTest : public FolderTest {};

TEST_F(RealShopTest, KeepsEveryLineQuantityAndAmount) {
  const std::filesystem::path csv = std::filesystem::path(tests::kSharedData) / "online_retail.csv.gz";
  if (!std::filesystem::exists(csv)) GTEST_SKIP() << csv << " is not at hand";
  const auto db = Path("shop.db");
  std::ostringstream rejects;
  const ImportReport report = Import(db, csv, rejects);
  EXPECT_EQ(report.lines, 541909);
  EXPECT_EQ(report.rejected, 0);
  EXPECT_EQ(report.bills, 25900);
  EXPECT_EQ(report.red_bills, 3836);
  EXPECT_EQ(report.items, 3958);
  EXPECT_EQ(report.customers, 4373);
  EXPECT_EQ(rejects.str(), "");
  const char* totals = "SELECT count(*)||' '||sum(FQty)||' '||printf('%.3f',sum(FAmount)) FROM ";
  EXPECT_EQ(Cell(db, std::string(totals) + "ICSaleEntry"), "541909 5176450 9747747.934");
  EXPECT_EQ(Cell(db, std::string(totals) + "ICStockBillEntry"), "541909 5176450 9747747.934");
  // Of the 38 countries one has only lines without a customer.
  EXPECT_EQ(Number(db, "SELECT count(*) FROM t_Item WHERE FItemClassID=1 AND FDetail=0"), 37);
}

}  // namespace
}  // namespace salerpt::accountset
