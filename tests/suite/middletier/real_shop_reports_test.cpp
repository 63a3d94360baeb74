// Reports on the invoice lines of a real shop, where they are at hand: their figures are those of the shop's
// file.
#include <zlib.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>

#include "suite/accountset/accountset.h"
#include "test_places.h"
#include "tests/suite/middletier/report_rows.h"

namespace salerpt::middletier {
namespace {

// Quantity and amount of an item, all invoices together and the returns alone.
struct Sums {
  double lines = 0;
  double qty = 0;
  double amount = 0;
  double red_qty = 0;
  double red_amount = 0;
};

// The shop writes one code now with capitals and now without.
std::string Capitals(std::string code) {
  std::ranges::transform(code, code.begin(), [](char c) { return c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c; });
  return code;
}

// One record of the file: a field in quotes may hold commas and doubled quotes, and in this file no line end.
std::vector<std::string> FieldsOf(const std::string& line) {
  std::vector<std::string> fields(1);
  bool quoted = false;
  for (const char c : line) {
    if (c == '"') {
      quoted = !quoted;
    } else if (c == ',' && !quoted) {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

// The sums by item, and all of them under "", straight from the file: InvoiceNo, StockCode, Description,
// Quantity, InvoiceDate, UnitPrice, CustomerID, Country. An invoice number that begins with C is a return.
// Amounts are counted in thousandths, in which the shop's prices are whole.
std::map<std::string, Sums> SumsOf(const std::filesystem::path& csv) {
  std::map<std::string, Sums> sums;
  gzFile file = gzopen(csv.c_str(), "rb");
  char line[4096];
  gzgets(file, line, sizeof line);
  while (gzgets(file, line, sizeof line) != nullptr) {
    const std::vector<std::string> fields = FieldsOf(line);
    const double qty = std::stod(fields.at(3));
    const double thousandths = std::round(std::stod(fields.at(5)) * 1000) * qty;
    const bool red = fields[0].starts_with('C');
    const std::string code = Capitals(fields[1]);
    for (Sums* sum : {&sums[code], &sums[""]}) {
      ++sum->lines;
      sum->qty += qty;
      sum->amount += thousandths;
      if (!red) continue;
      sum->red_qty += qty;
      sum->red_amount += thousandths;
    }
  }
  gzclose(file);
  for (auto& [code, sum] : sums) {
    sum.amount /= 1000;
    sum.red_amount /= 1000;
  }
  return sums;
}

// Items that stand for what is special about the shop.
struct Item {
  const char* code;
  const char* why;
};
constexpr Item kItems[] = {
    {"85123A", "on the most invoices, and written 85123a on some"},
    {"22423", "the most money of all goods"},
    {"84077", "among the most pieces sold"},
    {"23843", "sold once in a huge number and returned the same day"},
    {"23166", "likewise, with other sales"},
    {"POST", "postage: a code of letters, under a class of its own"},
    {"M", "manual entries of all sizes, written m on some, with large returns"},
    {"D", "discounts: returns alone"},
    {"AMAZONFEE", "fees with very high prices, nearly all red"},
    {"B", "bad debts: prices below zero on bills that are not red"},
};

// Half a cent: the shop's amounts have up to three decimals.
constexpr double kCent = 0.005;

class RealShopReports : public ReportRows {
 protected:
  static std::vector<Dictionary::Entry> Everything(const std::vector<Dictionary::Entry>& more) {
    std::vector<Dictionary::Entry> chosen = {
        {"BDate", Date::FromYmd(2009, 1, 1)}, {"EDate", Date::FromYmd(2012, 12, 31)}, {"CheckState", 2}};
    chosen.insert(chosen.end(), more.begin(), more.end());
    return chosen;
  }

  static void ExpectSums(const PlainRow& row, double qty, double amount) {
    EXPECT_NEAR(row.numbers.at(0), qty, kCent) << row.key;
    EXPECT_NEAR(row.numbers.at(1), amount, kCent) << row.key;
  }

  // The item's code in the account set: behind that of its class, its first character.
  static std::string NumberOf(const std::string& code) { return code.substr(0, 1) + "." + code; }

  static void ExpectIncome(const std::map<std::string, Sums>& shop) {
    const RecordsetRef rows = RowsOf("ORVSaleRpt.Rpt126", "frmFirter126",
                                     Everything({{"GroupBy", 0}, {"OnlyShowSum", 0}, {"BillType", 2}}));
    const std::vector<PlainRow> items = Pick(rows, 0, 0, {"FNumber"}, {"FQty", "FAmount"});
    EXPECT_EQ(items.size() + 1, shop.size());
    for (const PlainRow& row : items) {
      const Sums& sums = shop.at(Capitals(row.key.substr(2)));
      ExpectSums(row, sums.qty, sums.amount);
    }
    for (const PlainRow& row : Pick(rows, 101, 101, {"FNumber"}, {"FQty", "FAmount"}))
      ExpectSums(row, shop.at("").qty, shop.at("").amount);
  }

  static void ExpectReturns(const std::map<std::string, Sums>& shop) {
    const RecordsetRef rows = RowsOf("ORVSaleRpt.Rpt135", "frmFirter135", Everything({}));
    std::map<std::string, PlainRow> items;
    for (const PlainRow& row : Pick(rows, 0, 0, {"FNumber"}, {"FQty", "FAmountFor"})) {
      PlainRow& item = items.try_emplace(Capitals(row.key), PlainRow{row.key, {0, 0}}).first->second;
      item.numbers[0] += row.numbers[0];
      item.numbers[1] += row.numbers[1];
    }
    for (const Item& item : kItems) {
      const Sums& sums = shop.at(item.code);
      const auto found = items.find(NumberOf(item.code));
      if (found == items.end()) {
        EXPECT_EQ(sums.red_qty, 0) << item.code << ", " << item.why;
      } else {
        ExpectSums(found->second, sums.red_qty, sums.red_amount);
      }
    }
    const std::vector<PlainRow> total = Pick(rows, 101, 101, {"FCustNumber"}, {"FQty", "FAmountFor"});
    ASSERT_EQ(total.size(), 1u);
    ExpectSums(total[0], shop.at("").red_qty, shop.at("").red_amount);
  }

  // Each invoice has its outbound bill with the same lines: both halves come to the same figures.
  static void ExpectOutboundAndInvoices(const RecordsetRef& rows, const Sums& sums) {
    for (const auto& [qty, amount] :
         {std::pair("FOutQty", "FConsignAmount"), std::pair("FCommitQty", "FGlCommitAmount")}) {
      const std::vector<PlainRow> total = Pick(rows, 101, 101, {"FName"}, {qty, amount});
      ASSERT_EQ(total.size(), 1u);
      ExpectSums(total[0], sums.qty, sums.amount);
    }
  }

  static void ExpectDetail(const std::map<std::string, Sums>& shop) {
    const std::vector<Dictionary::Entry> lines = {{"GroupBy", 0}, {"chkShowDateSum", 0}};
    std::vector<Dictionary::Entry> all = Everything(lines);
    all.insert(all.end(), {{"chkShowItemSum", 0}, {"OnlyShowSum", 1}});
    ExpectOutboundAndInvoices(RowsOf("ORVSaleRpt.Rpt129", "frmFirter129", all), shop.at(""));
    for (const Item& item : kItems) {
      SCOPED_TRACE(item.code);
      std::vector<Dictionary::Entry> one = Everything(lines);
      one.insert(one.end(), {{"chkShowItemSum", 1},
                             {"OnlyShowSum", 0},
                             {"BItemNumber", NumberOf(item.code)},
                             {"EItemNumber", NumberOf(item.code)}});
      const RecordsetRef rows = RowsOf("ORVSaleRpt.Rpt129", "frmFirter129", one);
      const Sums& sums = shop.at(item.code);
      ExpectOutboundAndInvoices(rows, sums);
      EXPECT_EQ(Pick(rows, 0, 0, {"FBillNo"}, {}).size(), static_cast<std::size_t>(2 * sums.lines))
          << item.why;
    }
  }
};

// One test: the shop is imported once.
TEST_F(RealShopReports, IncomeReturnsAndOutboundDetailAgreeWithTheShopsOwnLines) {
  const std::filesystem::path csv = std::filesystem::path(tests::kSharedData) / "online_retail.csv.gz";
  if (!std::filesystem::exists(csv)) GTEST_SKIP() << csv << " is not at hand";
  const TemporaryFolder folder;
  std::ostringstream rejects;
  accountset::Import(folder.Path() / "shop.db", csv, rejects);
  RegisterMiddleTier(
      runtime_,
      std::make_shared<accountset::AccountSet>(accountset::AccountSet::Open(folder.Path() / "shop.db")),
      Login{});
  const std::map<std::string, Sums> shop = SumsOf(csv);
  ASSERT_EQ(shop.at("").lines, 541909);
  {
    SCOPED_TRACE("income");
    ExpectIncome(shop);
  }
  {
    SCOPED_TRACE("returns");
    ExpectReturns(shop);
  }
  SCOPED_TRACE("outbound detail");
  ExpectDetail(shop);
}

}  // namespace
}  // namespace salerpt::middletier
