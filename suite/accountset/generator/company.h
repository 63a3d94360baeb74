// The made-up company: its master data, as the bills of the generator use it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "suite/accountset/generator/random.h"

namespace salerpt::accountset::generator {

// Numbers with a fixed number of decimals, kept as whole numbers.
using Quantity = std::int64_t;  // ten-thousandths of a unit
using Price = std::int64_t;     // ten-thousandths of the currency
using Money = std::int64_t;     // hundredths of the currency
inline constexpr std::int64_t kQuantityOne = 10000;
inline constexpr std::int64_t kRateOne = 10000;

// A row of the code tree of a class; the leaves of it are the master data.
struct Node {
  int id = 0;
  int parent = 0;  // id of the row above, 0 at the top
  int level = 1;
  bool leaf = false;
  std::string number;        // the whole code, "01.02.0003"
  std::string short_number;  // its last part, "0003"
  std::string name;
  std::string full_name;  // with the names of the rows above, parted by underscores
};

struct Unit {
  int id;
  int group;
  const char* name;
  std::int64_t coefficient;  // base units in one
};

struct Item {
  Node node;
  std::string model;  // empty: none is kept
  int kind = 1;
  int type = 0;
  int source = 0;
  int unit_group = 0;
  int base_unit = 0;
  int sale_unit = 0;
  std::int64_t sale_coefficient = 1;
  int second_unit = 0;  // 0: none
  std::int64_t second_coefficient = 0;
  int quantity_decimals = 0;
  int aux_class = 0;  // 0: no auxiliary properties
  bool batches = false;
  int shelf_days = 0;
  int stock = 0;
  Price price = 0;  // list price of a base unit, base currency, without tax
  Price cost = 0;
  int tax_rate = 17;
  int bom = 0;  // 0: none
};

struct BomLine {
  int item;  // index in Company::items
  std::int64_t quantity;
};

struct Bom {
  int id;
  int item;  // index in Company::items
  std::vector<BomLine> lines;
};

struct Customer {
  Node node;
  int region = 0;
  int trade = 0;
  int type = 0;
  std::string city;
  int employee = 0;    // id
  int department = 0;  // id
  int currency = 1;
  bool narrow = false;  // the narrowed user may see it, too
  bool hidden = false;  // not even the login user stands in its list
};

struct Supplier {
  Node node;
  int region = 0;
  int trade = 0;
  int tax_rate = 17;
  bool narrow = false;
};

struct Currency {
  int id;
  const char* number;
  const char* name;
  std::int64_t rate;  // ten-thousandths of the base currency
  int scale;
};

struct AuxItem {
  int id;
  int aux_class;
  std::string number;
  std::string name;
};

struct Stock {
  Node node;
  int type = 0;
  bool narrow = false;
};

struct Fee {
  Node node;
  int type = 0;
  const char* unit = "";
  Price price = 0;
  int tax_rate = 0;  // per cent that may be deducted
};

struct Department {
  Node node;
  bool workshop = false;
};

struct Employee {
  Node node;
  int department = 0;  // id
  int type = 0;
};

struct Company {
  std::vector<Node> classes;       // the rows of all code trees that are no leaves
  std::vector<int> class_numbers;  // beside it: the class that each belongs to
  std::vector<Unit> units;
  std::vector<Currency> currencies;
  std::vector<AuxItem> aux_items;
  std::vector<Department> departments;
  std::vector<Employee> employees;
  std::vector<int> sellers;    // ids of the employees who sell
  std::vector<int> workshops;  // ids of departments
  std::vector<Node> branches;
  std::vector<Stock> stocks;
  std::vector<Fee> fees;
  std::vector<Supplier> suppliers;
  std::vector<Customer> customers;
  std::vector<Item> items;
  std::vector<int> goods;      // indexes of items that are sold
  std::vector<int> materials;  // indexes of items that are bought
  std::vector<Bom> boms;       // Item::bom counts from 1 in it
};

extern const char* const kCompanyName;

// Makes up a company fit for `lines` bill lines.
Company MakeCompany(std::int64_t lines, Random& random);

}  // namespace salerpt::accountset::generator
