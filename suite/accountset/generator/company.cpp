#include "suite/accountset/generator/company.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <set>
#include <string>

#include "suite/accountset/fixed_rows.h"
#include "suite/accountset/generator/goods.h"
#include "suite/accountset/generator/partners.h"
#include "suite/accountset/generator/tree.h"
#include "suite/accountset/generator/words.h"

namespace salerpt::accountset::generator {

const char* const kCompanyName = "澄川家居用品有限公司";

namespace {

void AddCurrencies(Company& company) {
  company.currencies = {{1, "RMB", "人民币", 10000, 2},
                        {2, "USD", "美元", 68712, 2},
                        {3, "EUR", "欧元", 74385, 2},
                        {4, "HKD", "港币", 8765, 2},
                        {5, "JPY", "日元", 512, 0}};
}

void AddDepartments(Company& company, TreeBuilder& tree) {
  tree.Begin(2);
  const Node sales = tree.AddClass(nullptr, "01", "营销中心");
  const Node works = tree.AddClass(nullptr, "02", "制造中心");
  const Node office = tree.AddClass(nullptr, "03", "管理中心");
  for (const char* name : {"华东销售部", "华南销售部", "华北销售部", "西部销售部", "外贸部", "门店部"}) {
    company.departments.push_back({tree.AddLeaf(&sales, name, 2), false});
  }
  for (const char* name : {"一车间", "二车间", "包装车间"}) {
    company.departments.push_back({tree.AddLeaf(&works, name, 2), true});
    company.workshops.push_back(company.departments.back().node.id);
  }
  for (const char* name : {"采购部", "仓储部", "财务部"}) {
    company.departments.push_back({tree.AddLeaf(&office, name, 2), false});
  }
}

// The first departments sell; the last two of these abroad and over the counter.
constexpr std::size_t kSalesDepartments = 6;
constexpr std::size_t kExportDepartment = 4;
constexpr std::size_t kShopDepartment = 5;

int EmployeeType(std::size_t department) {
  if (department >= kSalesDepartments) return kOtherEmployee;
  if (department == kExportDepartment) return kExportSeller;
  return department == kShopDepartment ? kShopSeller : kHomeSeller;
}

void AddEmployees(Company& company, TreeBuilder& tree, Random& random) {
  constexpr int kSellersPerDepartment = 4;
  tree.Begin(3);
  const Node sellers = tree.AddClass(nullptr, "01", "业务人员");
  const Node others = tree.AddClass(nullptr, "02", "其他人员");
  std::set<std::string> names;
  for (std::size_t i = 0; i < company.departments.size(); ++i) {
    const bool sells = i < kSalesDepartments;
    for (int n = 0; n < (sells ? kSellersPerDepartment : 2); ++n) {
      Employee employee;
      std::string name = PersonName(random);
      while (!names.insert(name).second) name = PersonName(random);
      employee.node = tree.AddLeaf(sells ? &sellers : &others, name, 3);
      employee.department = company.departments[i].node.id;
      employee.type = EmployeeType(i);
      if (sells) company.sellers.push_back(employee.node.id);
      company.employees.push_back(employee);
    }
  }
}

void AddBranchesAndStocks(Company& company, TreeBuilder& tree) {
  tree.Begin(10);
  const Node branches = tree.AddClass(nullptr, "01", "分支机构");
  for (const char* name : {"东区分公司", "南区分公司", "北区分公司"}) {
    company.branches.push_back(tree.AddLeaf(&branches, name, 3));
  }
  tree.Begin(5);
  const Node ordinary = tree.AddClass(nullptr, "01", "实仓");
  const Node virtual_stocks = tree.AddClass(nullptr, "02", "虚仓");
  for (const char* name : {"成品仓", "材料仓", "华南中转仓", "门店仓"}) {
    company.stocks.push_back({tree.AddLeaf(&ordinary, name, 2), kOrdinaryStock, true});
  }
  company.stocks.push_back({tree.AddLeaf(&virtual_stocks, "待检仓", 2), kInspectionStock, false});
  company.stocks.push_back({tree.AddLeaf(&virtual_stocks, "代管仓", 2), kKeptStock, false});
  company.stocks.push_back({tree.AddLeaf(&virtual_stocks, "赠品仓", 2), kGiftStock, false});
}

struct FeeRow {
  const char* name;
  int type;
  const char* unit;
  Price price;
  int tax_rate;
};
constexpr int kFeeClass = 2014;
constexpr std::array kFees = {
    FeeRow{"汽运费", 3001, "吨", 2'000'000, 7}, FeeRow{"海运费", 3001, "立方米", 5'800'000, 7},
    FeeRow{"快递费", 3001, "票", 180'000, 7},   FeeRow{"装车费", 3002, "吨", 350'000, 0},
    FeeRow{"卸货费", 3002, "吨", 300'000, 0},   FeeRow{"安装费", 3003, "次", 1'200'000, 6},
    FeeRow{"仓储费", 3004, "天", 900'000, 6},
};
constexpr std::array kExportFees = {
    FeeRow{"港杂费", 3002, "箱", 850'000, 0},
    FeeRow{"报关费", 3002, "票", 1'500'000, 6},
};

void AddFee(Company& company, TreeBuilder& tree, const Node& parent, const FeeRow& row) {
  company.fees.push_back({tree.AddLeaf(&parent, row.name, 3), row.type, row.unit, row.price, row.tax_rate});
}

// Gives the class of carriage.
Node AddFees(Company& company, TreeBuilder& tree) {
  tree.Begin(kFeeClass);
  const Node carriage = tree.AddClass(nullptr, "01", "运杂费");
  const Node services = tree.AddClass(nullptr, "02", "服务费");
  for (const auto& row : kFees) AddFee(company, tree, row.type <= 3002 ? carriage : services, row);
  return carriage;
}

// A class below carriage, so that fees stand on two levels of classes.
void AddExportFees(Company& company, TreeBuilder& tree, const Node& carriage) {
  tree.Begin(kFeeClass, static_cast<int>(company.fees.size()) + 1);
  const Node abroad = tree.AddClass(&carriage, "01", "出口杂费");
  for (const auto& row : kExportFees) AddFee(company, tree, abroad, row);
}

}  // namespace

Company MakeCompany(std::int64_t lines, Random& random) {
  Company company;
  TreeBuilder tree(company);
  AddCurrencies(company);
  AddDepartments(company, tree);
  AddEmployees(company, tree, random);
  AddBranchesAndStocks(company, tree);
  const Node carriage = AddFees(company, tree);
  AddSuppliers(company, tree, static_cast<int>(std::clamp<std::int64_t>(lines / 400, 8, 200)), random);
  AddCustomers(company, tree, static_cast<int>(std::clamp<std::int64_t>(lines / 60, 30, 2000)), random);
  AddItems(company, tree, static_cast<int>(std::clamp<std::int64_t>(lines / 40, 80, 3000)), random);
  AddExportFees(company, tree, carriage);  // last: the numbers of all other rows stay as they are
  return company;
}

}  // namespace salerpt::accountset::generator
