#include "suite/accountset/generator/partners.h"

#include <fmt/format.h>

#include <array>
#include <set>

#include "suite/accountset/generator/words.h"

namespace salerpt::accountset::generator {
namespace {

struct Province {
  const char* name;
  std::array<const char*, 3> cities;
  bool by_city;  // its customers stand in classes by city
};
struct Region {
  const char* name;
  int id;  // t_SubMessage
  std::array<Province, 3> provinces;
};
constexpr int kOverseas = 2706;
constexpr std::array<Region, 6> kRegions = {{
    {"华东",
     2701,
     {{{"江苏", {"南京", "苏州", "无锡"}, true},
       {"浙江", {"杭州", "宁波", "温州"}, true},
       {"上海", {"浦东", "徐汇", "嘉定"}, false}}}},
    {"华南",
     2702,
     {{{"广东", {"广州", "深圳", "佛山"}, true},
       {"广西", {"南宁", "桂林", "柳州"}, false},
       {"海南", {"海口", "三亚", "儋州"}, false}}}},
    {"华北",
     2703,
     {{{"北京", {"朝阳", "海淀", "丰台"}, false},
       {"天津", {"河西", "南开", "滨海"}, false},
       {"河北", {"石家庄", "唐山", "保定"}, false}}}},
    {"西南",
     2704,
     {{{"四川", {"成都", "绵阳", "乐山"}, true},
       {"重庆", {"渝中", "江北", "沙坪坝"}, false},
       {"云南", {"昆明", "大理", "曲靖"}, false}}}},
    {"东北",
     2705,
     {{{"辽宁", {"沈阳", "大连", "鞍山"}, false},
       {"吉林", {"长春", "吉林", "四平"}, false},
       {"黑龙江", {"哈尔滨", "大庆", "佳木斯"}, false}}}},
    {"海外",
     kOverseas,
     {{{"亚洲", {"东京", "香港", "首尔"}, false},
       {"欧洲", {"汉堡", "里昂", "鹿特丹"}, false},
       {"美洲", {"西雅图", "多伦多", "休斯敦"}, false}}}},
}};
constexpr std::array kShares = {30, 22, 16, 14, 8, 10};  // per cent of the customers, by region

// Names that no other customer or supplier bears; after many tries a number makes one so.
std::string FreshName(std::set<std::string>& taken, Random& random) {
  std::string name = CompanyName(random);
  for (int attempt = 0; !taken.insert(name).second; ++attempt) {
    name = attempt < 8 ? CompanyName(random) : fmt::format("{}（{}）", CompanyName(random), taken.size());
  }
  return name;
}

int OverseasCurrency(std::size_t province, Random& random) {
  if (province == 0) return random.Percent(60) ? 5 : 4;  // Asia: yen, Hong Kong dollars
  return province == 1 ? 3 : 2;
}

Customer MakeCustomer(const Company& company, const Region& region, Random& random) {
  Customer customer;
  customer.region = region.id;
  customer.trade = static_cast<int>(random.Between(2601, 2605));
  customer.type = random.Percent(20) ? 2801 : static_cast<int>(random.Between(2802, 2803));
  const auto seller =
      static_cast<std::size_t>(random.Below(static_cast<std::int64_t>(company.sellers.size())));
  customer.employee = company.sellers[seller];
  for (const auto& employee : company.employees) {
    if (employee.node.id == customer.employee) customer.department = employee.department;
  }
  customer.narrow = random.Percent(55);
  customer.hidden = random.Percent(4);
  return customer;
}

// The customers of one province, in classes by city where it has them.
void AddProvince(Company& company, TreeBuilder& tree, const Node& region_node, const Region& region,
                 std::size_t number, int count, std::set<std::string>& taken, Random& random) {
  const Province& province = region.provinces[number];
  const Node node = tree.AddClass(&region_node, fmt::format("{:02}", number + 1), province.name);
  std::array<Node, 3> cities;
  for (std::size_t i = 0; province.by_city && i < cities.size(); ++i) {
    cities[i] = tree.AddClass(&node, fmt::format("{:02}", i + 1), province.cities[i]);
  }
  for (int n = 0; n < count; ++n) {
    const auto city = static_cast<std::size_t>(random.Below(3));
    Customer customer = MakeCustomer(company, region, random);
    customer.city = province.cities[city];
    if (region.id == kOverseas) customer.currency = OverseasCurrency(number, random);
    customer.node = tree.AddLeaf(province.by_city ? &cities[city] : &node, FreshName(taken, random));
    company.customers.push_back(customer);
  }
}

}  // namespace

void AddCustomers(Company& company, TreeBuilder& tree, int count, Random& random) {
  std::set<std::string> taken;
  tree.Begin(1);
  for (std::size_t i = 0; i < kRegions.size(); ++i) {
    const Region& region = kRegions[i];
    const Node node = tree.AddClass(nullptr, fmt::format("{:02}", i + 1), region.name);
    for (std::size_t p = 0; p < region.provinces.size(); ++p) {
      const int share = std::max(1, count * kShares[i] / 100 / static_cast<int>(region.provinces.size()));
      AddProvince(company, tree, node, region, p, share, taken, random);
    }
  }
}

void AddSuppliers(Company& company, TreeBuilder& tree, int count, Random& random) {
  std::set<std::string> taken;
  tree.Begin(8);
  const Node materials = tree.AddClass(nullptr, "01", "材料供应商");
  const Node carriers = tree.AddClass(nullptr, "02", "服务供应商");
  for (int n = 0; n < count; ++n) {
    Supplier supplier;
    supplier.node = tree.AddLeaf(n % 4 == 3 ? &carriers : &materials, FreshName(taken, random));
    supplier.region = static_cast<int>(random.Between(2701, 2705));
    supplier.trade = 2605;
    supplier.tax_rate = random.Percent(80) ? 17 : 13;
    supplier.narrow = random.Percent(60);
    company.suppliers.push_back(supplier);
  }
}

}  // namespace salerpt::accountset::generator
