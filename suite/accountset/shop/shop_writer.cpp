#include "suite/accountset/shop/shop_writer.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

#include "suite/accountset/fixed_rows.h"

namespace salerpt::accountset::shop {
namespace {

// The one department, employee and stock of the shop, each under a class of its own, and the unit that all is
// sold in.
constexpr int kSalesDepartment = 12;
constexpr int kSeller = 14;
constexpr int kShopStock = 16;
constexpr int kFirstFreeId = 101;
constexpr int kPiece = 101;
constexpr int kPieces = 1;
constexpr int kOutboundType = 21;
constexpr int kPlainInvoice = 86;

// Lines without a customer belong to this one.
constexpr std::string_view kNoCustomer = "00000";
constexpr std::string_view kNoCountry = "Unspecified";

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
char Upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// The first character in capitals; one of many bytes stays whole.
std::string FirstCharacter(std::string_view code) {
  std::size_t length = 1;
  while (length < code.size() && (static_cast<unsigned char>(code[length]) & 0xC0U) == 0x80U) ++length;
  std::string first(code.substr(0, length));
  first.front() = Upper(first.front());
  return first;
}

std::string TimeText(const InvoiceLine& line) {
  std::string text(line.date);
  text += ' ';
  text += line.time.empty() ? std::string_view("00:00") : line.time;
  if (line.time.size() <= 5) text += ":00";
  return text;
}

PeriodRange RangeOf(const std::string& first_day, const std::string& last_day) {
  const auto number = [](const std::string& day, std::size_t from, std::size_t size) {
    int value = 0;
    std::from_chars(day.data() + from, day.data() + from + size, value);
    return value;
  };
  return {number(first_day, 0, 4), number(first_day, 5, 2), number(last_day, 0, 4), number(last_day, 5, 2)};
}

}  // namespace

std::size_t CaseBlindHash::operator()(std::string_view text) const {
  std::size_t hash = 14695981039346656037U;  // FNV-1a
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(Lower(c))) * 1099511628211U;
  return hash;
}

bool CaseBlindEqual::operator()(std::string_view a, std::string_view b) const {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Lower(x) == Lower(y); });
}

ShopWriter::ShopWriter(Database& database)
    : database_(database),
      sale_(database, "ICSale",
            {"FInterID", "FTranType", "FBillNo", "FDate", "FCustID", "FDeptID", "FEmpID", "FSaleStyle",
             "FROB", "FStatus", "FHookStatus", "FCheckerID", "FCheckDate"}),
      sale_line_(database, "ICSaleEntry",
                 {"FInterID", "FEntryID", "FItemID", "FUnitID", "FQty", "FAuxQty", "FPrice", "FAuxPrice",
                  "FTaxPrice", "FAmount", "FStdAmount", "FAllHookQTY", "FAllHookAmount", "FSourceTranType",
                  "FSourceInterID", "FSourceEntryID"}),
      outbound_(database, "ICStockBill",
                {"FInterID", "FTranType", "FBillNo", "FDate", "FSupplyID", "FDeptID", "FEmpID", "FSaleStyle",
                 "FROB", "FStatus", "FHookStatus", "FCheckerID", "FCheckDate"}),
      outbound_line_(
          database, "ICStockBillEntry",
          {"FInterID", "FEntryID", "FItemID", "FUnitID", "FQty", "FAuxQty", "FPrice", "FAuxPrice", "FAmount",
           "FConsignPrice", "FConsignAmount", "FDCStockID", "FQtyInvoice", "FAllHookQTY", "FAllHookAmount"}),
      next_id_(kFirstFreeId) {}

void ShopWriter::Add(const InvoiceLine& line) {
  const int item = ItemOf(line);
  const int customer = CustomerOf(line);
  Bill& bill = BillOf(line, customer);
  const int entry = ++bill.lines;
  scale_ = std::max(scale_, line.amount.scale);
  ++report_.lines;
  // The shop tells no cost: what went out is valued at what it sold for.
  outbound_line_.Row(bill.id, entry, item, kPiece, line.quantity, line.quantity, line.price, line.price,
                     line.amount, line.price, line.amount, kShopStock, line.quantity, line.quantity,
                     line.amount);
  sale_line_.Row(bill.id, entry, item, kPiece, line.quantity, line.quantity, line.price, line.price,
                 line.price, line.amount, line.amount, line.quantity, line.amount, kOutboundType, bill.id,
                 entry);
}

ShopWriter::Bill& ShopWriter::BillOf(const InvoiceLine& line, int customer) {
  if (last_bill_ != nullptr && line.invoice == last_invoice_) return *last_bill_;
  last_invoice_.assign(line.invoice);
  if (const auto found = bills_.find(line.invoice); found != bills_.end())
    return *(last_bill_ = &found->second);
  const int id = static_cast<int>(bills_.size()) + 1;
  last_bill_ = &bills_.emplace(std::string(line.invoice), Bill{id, 0}).first->second;
  WriteHeads(line, id, customer);
  return *last_bill_;
}

void ShopWriter::WriteHeads(const InvoiceLine& line, int bill, int customer) {
  const bool red = line.invoice.front() == 'C';
  ++report_.bills;
  if (red) ++report_.red_bills;
  if (first_day_.empty() || line.date < first_day_) first_day_.assign(line.date);
  if (line.date > last_day_) last_day_.assign(line.date);
  // The bills' date is a day, as everywhere in the suite; the time of day stays in the date of the audit.
  const std::string day = std::string(line.date) + " 00:00:00";
  const std::string time = TimeText(line);
  const int sign = red ? -1 : 1;
  outbound_.Row(bill, kOutboundType, fmt::format("XOUT{}", line.invoice), day, customer, kSalesDepartment,
                kSeller, kCashSale, sign, 1, 2, kLoginUser, time);
  sale_.Row(bill, kPlainInvoice, line.invoice, day, customer, kSalesDepartment, kSeller, kCashSale, sign, 1,
            2, kLoginUser, time);
}

int ShopWriter::ItemOf(const InvoiceLine& line) {
  if (const auto found = item_index_.find(line.code); found != item_index_.end()) {
    Leaf& item = items_[found->second];
    // An item that came without a description takes the first one that comes.
    if (item.name.empty()) item.name = line.description;
    return item.id;
  }
  const Class& item_class = ItemClassOf(line.code);
  item_index_.emplace(std::string(line.code), items_.size());
  items_.push_back({next_id_++, item_class.id, fmt::format("{}.{}", item_class.number, line.code),
                    std::string(line.code), std::string(line.description)});
  ++report_.items;
  return items_.back().id;
}

const ShopWriter::Class& ShopWriter::ItemClassOf(std::string_view code) {
  std::string first = FirstCharacter(code);
  const auto [place, fresh] = item_class_index_.try_emplace(first, item_classes_.size());
  if (fresh) item_classes_.push_back({next_id_++, first, first});
  return item_classes_[place->second];
}

int ShopWriter::CustomerOf(const InvoiceLine& line) {
  const bool none = line.customer.empty() || line.customer == kNoCustomer;
  const std::string_view code = none ? kNoCustomer : line.customer;
  if (const auto found = customer_index_.find(code); found != customer_index_.end()) {
    return customers_[found->second].id;
  }
  const Class& country = CountryOf(none || line.country.empty() ? kNoCountry : line.country);
  customer_index_.emplace(std::string(code), customers_.size());
  customers_.push_back({next_id_++, country.id, fmt::format("{}.{}", country.number, code), std::string(code),
                        none ? std::string("零散客户") : std::string(code)});
  ++report_.customers;
  return customers_.back().id;
}

const ShopWriter::Class& ShopWriter::CountryOf(std::string_view country) {
  if (const auto found = country_index_.find(country); found != country_index_.end())
    return countries_[found->second];
  country_index_.emplace(std::string(country), countries_.size());
  countries_.push_back({next_id_++, fmt::format("{:03}", countries_.size() + 1), std::string(country)});
  return countries_.back();
}

void ShopWriter::Finish() {
  for (auto& item : items_) {
    if (item.name.empty()) item.name = item.code;
  }
  WriteFixedRows(database_, RangeOf(first_day_, last_day_), "导入的账套");
  WriteHousehold();
  WriteTree();
  WriteItems();
  WriteCustomers();
}

void ShopWriter::WriteHousehold() {
  // Reports round amounts to the decimals of the base currency: it has as many as the amounts need.
  constexpr int kMostDecimals = 6;
  Insert currency(database_, "t_Currency", {"FCurrencyID", "FNumber", "FName", "FScale"});
  currency.Row(1, "BWB", "本位币", std::min(scale_, kMostDecimals));
  Insert group(database_, "t_UnitGroup", {"FUnitGroupID", "FName", "FDefaultUnitID"});
  group.Row(kPieces, "件数", kPiece);
  Insert unit(database_, "t_MeasureUnit",
              {"FMeasureUnitID", "FUnitGroupID", "FNumber", "FName", "FStandard"});
  unit.Row(kPiece, kPieces, "101", "件", 1);
  Insert department(database_, "t_Department",
                    {"FItemID", "FParentID", "FNumber", "FShortNumber", "FName", "FDProperty"});
  department.Row(kSalesDepartment, kSalesDepartment - 1, "01.01", "01", "销售部", 3102);
  Insert employee(database_, "t_Emp",
                  {"FItemID", "FParentID", "FNumber", "FShortNumber", "FName", "FDepartmentID"});
  employee.Row(kSeller, kSeller - 1, "01.001", "001", "营业员", kSalesDepartment);
  Insert stock(database_, "t_Stock",
               {"FItemID", "FParentID", "FNumber", "FShortNumber", "FName", "FRightUserID"});
  stock.Row(kShopStock, kShopStock - 1, "01.01", "01", "店仓", fmt::format("{},{}", kLoginUser, kNarrowUser));
}

void ShopWriter::WriteTree() {
  Insert tree(database_, "t_Item",
              {"FItemID", "FItemClassID", "FParentID", "FLevel", "FDetail", "FNumber", "FFullNumber",
               "FShortNumber", "FName", "FFullName"});
  const auto add_class = [&](int item_class, const Class& row) {
    tree.Row(row.id, item_class, 0, 1, 0, row.number, row.number, row.number, row.name, row.name);
  };
  const auto add_leaf = [&](int item_class, const Leaf& row, const std::string& above) {
    tree.Row(row.id, item_class, row.parent, 2, 1, row.number, row.number, row.code, row.name,
             fmt::format("{}_{}", above, row.name));
  };
  const auto add_pair = [&](int item_class, int leaf, const char* above, const char* part, const char* name) {
    add_class(item_class, {leaf - 1, "01", above});
    add_leaf(item_class, {leaf, leaf - 1, fmt::format("01.{}", part), part, name}, above);
  };
  add_pair(2, kSalesDepartment, "部门", "01", "销售部");
  add_pair(3, kSeller, "职员", "001", "营业员");
  add_pair(5, kShopStock, "仓库", "01", "店仓");
  for (const auto& row : item_classes_) add_class(4, row);
  for (const auto& row : items_) add_leaf(4, row, FirstCharacter(row.code));
  std::unordered_map<int, std::string> names;
  for (const auto& row : countries_) {
    add_class(1, row);
    names.emplace(row.id, row.name);
  }
  for (const auto& row : customers_) add_leaf(1, row, names.at(row.parent));
}

void ShopWriter::WriteItems() {
  Insert item(database_, "t_ICItem",
              {"FItemID", "FParentID", "FNumber", "FShortNumber", "FName", "FFullName", "FTypeID", "FSource",
               "FUnitGroupID", "FUnitID", "FOrderUnitID", "FSaleUnitID", "FStoreUnitID", "FProductUnitID",
               "FCUUnitID", "FDefaultLoc"});
  constexpr int kMerchandise = 2101;
  constexpr int kHomeMade = 2111;
  for (const auto& row : items_) {
    item.Row(row.id, row.parent, row.number, row.code, row.name, row.name, kMerchandise, kHomeMade, kPieces,
             kPiece, kPiece, kPiece, kPiece, kPiece, kPiece, kShopStock);
  }
}

void ShopWriter::WriteCustomers() {
  constexpr int kOverseas = 2706;
  constexpr int kOrdinary = 2802;
  const std::string users = fmt::format("{},{}", kLoginUser, kNarrowUser);
  Insert customer(database_, "t_Organization",
                  {"FItemID", "FParentID", "FNumber", "FShortNumber", "FName", "FFullName", "FRegionID",
                   "FTypeID", "FDepartment", "FEmployee", "FRightUserID"});
  for (const auto& row : customers_) {
    customer.Row(row.id, row.parent, row.number, row.code, row.name, row.name, kOverseas, kOrdinary,
                 kSalesDepartment, kSeller, users);
  }
}

}  // namespace salerpt::accountset::shop
