// One line of a shop's invoices.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "suite/accountset/decimal.h"

namespace salerpt::accountset::shop {

inline constexpr std::array<std::string_view, 8> kColumns = {
    "InvoiceNo", "StockCode", "Description", "Quantity", "InvoiceDate", "UnitPrice", "CustomerID", "Country"};

// The texts live as long as the fields that they were read from.
struct InvoiceLine {
  std::string_view invoice;
  std::string_view code;
  std::string_view description;
  Decimal quantity;
  std::string_view date;  // YYYY-MM-DD
  std::string_view time;  // HH:MM or HH:MM:SS; empty: none
  Decimal price;
  Decimal amount;  // quantity times price, exact
  std::string_view customer;
  std::string_view country;
};

// Why a line cannot be used.
struct Rejection {
  std::string reason;      // "UnitPrice is no number"
  std::string_view value;  // what stands there
};

// Reads the fields of one record. A number has plain decimal digits, at most ten of them behind the point,
// and stays below a million million; the amount, too, since the columns hold no more. A date is YYYY-MM-DD
// with or without a time HH:MM[:SS] behind a blank or a T, from the year 1753 on.
std::optional<Rejection> ReadInvoiceLine(const std::vector<std::string_view>& fields, InvoiceLine& line);

// True for the names of the columns in their order.
bool IsHeader(const std::vector<std::string_view>& fields);

}  // namespace salerpt::accountset::shop
