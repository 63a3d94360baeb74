#include "suite/accountset/shop/invoice_line.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace salerpt::accountset::shop {
namespace {

using Fields = std::vector<std::string_view>;

Fields Good() {
  return {"536365", "85123A", "LANTERN", "6", "2010-12-01 08:26:00", "2.55", "17850", "United Kingdom"};
}

// The reason why the line with `value` in `column` is refused; empty when it is taken.
std::string ReasonWith(std::size_t column, std::string_view value) {
  Fields fields = Good();
  fields[column] = value;
  InvoiceLine line;
  const auto rejection = ReadInvoiceLine(fields, line);
  if (!rejection) return "";
  EXPECT_EQ(rejection->value, value);
  return rejection->reason;
}

TEST(InvoiceLine, ReadsAllFields) {
  InvoiceLine line;
  EXPECT_FALSE(ReadInvoiceLine(Good(), line).has_value());
  EXPECT_EQ(line.invoice, "536365");
  EXPECT_EQ(line.code, "85123A");
  EXPECT_EQ(line.description, "LANTERN");
  EXPECT_EQ(line.quantity.units, 6);
  EXPECT_EQ(line.date, "2010-12-01");
  EXPECT_EQ(line.time, "08:26:00");
  EXPECT_EQ(line.price.units, 255);
  EXPECT_EQ(line.amount.units, 153);  // 15.3
  EXPECT_EQ(line.amount.scale, 1);
  EXPECT_EQ(line.customer, "17850");
  EXPECT_EQ(line.country, "United Kingdom");
}

TEST(InvoiceLine, RefusesAWrongNumberOfColumns) {
  InvoiceLine line;
  EXPECT_EQ(ReadInvoiceLine({"a", "b"}, line)->reason, "2 columns where 8 were expected");
  Fields nine = Good();
  nine.push_back("x");
  EXPECT_EQ(ReadInvoiceLine(nine, line)->reason, "9 columns where 8 were expected");
}

TEST(InvoiceLine, RefusesAnEmptyInvoiceNumberOrCode) {
  EXPECT_EQ(ReasonWith(0, ""), "InvoiceNo is empty");
  EXPECT_EQ(ReasonWith(1, ""), "StockCode is empty");
}

TEST(InvoiceLine, TakesEmptyDescriptionCustomerAndCountry) {
  EXPECT_EQ(ReasonWith(2, ""), "");
  EXPECT_EQ(ReasonWith(6, ""), "");
  EXPECT_EQ(ReasonWith(7, ""), "");
}

TEST(InvoiceLine, TakesZeroAndNegativeNumbers) {
  EXPECT_EQ(ReasonWith(3, "-24"), "");
  EXPECT_EQ(ReasonWith(5, "0"), "");
  EXPECT_EQ(ReasonWith(5, "-11062.06"), "");
}

TEST(InvoiceLine, RefusesWhatIsNoNumber) {
  EXPECT_EQ(ReasonWith(3, "six"), "Quantity is no number");
  EXPECT_EQ(ReasonWith(3, ""), "Quantity is no number");
  EXPECT_EQ(ReasonWith(5, "2,55"), "UnitPrice is no number");
}

TEST(InvoiceLine, RefusesNumbersThatNoColumnHolds) {
  EXPECT_EQ(ReasonWith(5, "0.12345678901"),
            "UnitPrice has more than 10 decimals or reaches a million million");
  EXPECT_EQ(ReasonWith(3, "1000000000000"),
            "Quantity has more than 10 decimals or reaches a million million");
  EXPECT_EQ(ReasonWith(5, "999999999999"),
            "the amount, Quantity times UnitPrice, has more digits than a column holds");
}

TEST(InvoiceLine, TakesDatesWithAndWithoutTime) {
  for (const char* date : {"2010-12-01", "2010-12-01 08:26", "2010-12-01T08:26:59", "2012-02-29 23:59:59"}) {
    EXPECT_EQ(ReasonWith(4, date), "") << date;
  }
}

TEST(InvoiceLine, RefusesWhatIsNoDate) {
  for (const char* date :
       {"", "12/1/2010 8:26", "2010-13-01", "2010-02-29", "2010-12-01 24:00", "2010-12-01 08:60",
        "2010-12-01 08:26:00x", "2010-12-1", "1752-12-31", "2010-12-01 ", "-010-12-01"}) {
    EXPECT_EQ(ReasonWith(4, date), "InvoiceDate is no date (YYYY-MM-DD HH:MM:SS was expected)") << date;
  }
}

TEST(InvoiceLine, KnowsTheHeader) {
  EXPECT_TRUE(IsHeader({"InvoiceNo", "StockCode", "Description", "Quantity", "InvoiceDate", "UnitPrice",
                        "CustomerID", "Country"}));
  EXPECT_FALSE(IsHeader(
      {"InvoiceNo", "StockCode", "Description", "Quantity", "InvoiceDate", "UnitPrice", "CustomerID"}));
  EXPECT_FALSE(IsHeader({"InvoiceNo", "StockCode", "Description", "Quantity", "InvoiceDate", "Price",
                         "CustomerID", "Country"}));
}

}  // namespace
}  // namespace salerpt::accountset::shop
