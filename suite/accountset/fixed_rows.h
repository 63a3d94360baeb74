// The rows that every account set has, whatever its business: enumerations, parameters, users, classes,
// properties.
#pragma once

#include "suite/accountset/sqlite.h"

namespace salerpt::accountset {

// Sale styles (t_SubMessage type 101).
inline constexpr int kCashSale = 100;
inline constexpr int kCreditSale = 101;
inline constexpr int kInstalmentSale = 102;
inline constexpr int kConsignmentSale = 103;
inline constexpr int kStraightSale = 20296;  // goods of a consignor, sold straight on: no outbound bill
inline constexpr int kRetailSale = 20298;    // over the counter: no order

// Purchase styles (t_SubMessage type 102).
inline constexpr int kCashPurchase = 251;
inline constexpr int kCreditPurchase = 252;
inline constexpr int kStraightPurchase = 20300;

// Order types (t_SubMessage type 997).
inline constexpr int kOrderOfSale = 20302;
inline constexpr int kOrderOfTransfer = 20303;

// Classes of customers (t_SubMessage type 28) and of employees (type 29).
inline constexpr int kKeyCustomer = 2801;
inline constexpr int kHomeSeller = 2901;
inline constexpr int kExportSeller = 2902;
inline constexpr int kShopSeller = 2903;
inline constexpr int kOtherEmployee = 2904;

// Item kinds (t_SubMessage type 210; FErpClsID holds the number itself).
inline constexpr int kPurchasedItem = 1;
inline constexpr int kMadeItem = 2;
inline constexpr int kServiceItem = 4;
inline constexpr int kVirtualItem = 5;

// Stock kinds (t_SubMessage type 160). Only the first one counts as stock on hand; the others are virtual.
inline constexpr int kOrdinaryStock = 500;
inline constexpr int kInspectionStock = 501;
inline constexpr int kKeptStock = 502;
inline constexpr int kGiftStock = 503;

// A user whose view is narrowed by the lists in FRightUserID, beside the login user who sees all.
inline constexpr int kNarrowUser = 16395;

// The periods that the parameters say are in use.
struct PeriodRange {
  int start_year = 0;
  int start_period = 1;
  int current_year = 0;
  int current_period = 1;
};

// Writes them; `company` is its name.
void WriteFixedRows(Database& database, const PeriodRange& periods, const char* company);

}  // namespace salerpt::accountset
