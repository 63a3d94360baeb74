#include "suite/accountset/generator/goods.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "suite/accountset/fixed_rows.h"
#include "suite/accountset/generator/words.h"

namespace salerpt::accountset::generator {
namespace {

constexpr int kSizeClass = 1;    // auxiliary properties: sizes
constexpr int kColourClass = 2;  // and colours

constexpr std::array kUnits = {
    Unit{101, 1, "个", 1},   Unit{102, 1, "打", 12}, Unit{103, 1, "箱", 24},   Unit{201, 2, "台", 1},
    Unit{202, 2, "大箱", 4}, Unit{301, 3, "条", 1},  Unit{302, 3, "包", 10},   Unit{303, 3, "件", 60},
    Unit{401, 4, "千克", 1}, Unit{402, 4, "袋", 25}, Unit{403, 4, "吨", 1000}, Unit{501, 5, "次", 1},
    Unit{601, 6, "套", 1},   Unit{602, 6, "托", 16},
};

void AddUnitsAndAuxItems(Company& company) {
  company.units.assign(kUnits.begin(), kUnits.end());
  int id = 1;
  for (const char* name : {"小", "中", "大", "特大"}) {
    company.aux_items.push_back({id, kSizeClass, fmt::format("{:02}", id), name});
    ++id;
  }
  for (const char* name : {"白", "灰", "米", "墨绿", "藏青"}) {
    company.aux_items.push_back({id, kColourClass, fmt::format("{:02}", id), name});
    ++id;
  }
}

// Gives the item a unit group, its base unit, and a unit of that group to sell in.
void ChooseUnits(Item& item, int group, Random& random) {
  std::array<const Unit*, 3> of_group{};
  std::size_t count = 0;
  for (const auto& unit : kUnits) {
    if (unit.group == group) of_group[count++] = &unit;
  }
  item.unit_group = group;
  item.base_unit = of_group[0]->id;
  const Unit* sale =
      of_group[random.Percent(60) ? 0
                                  : static_cast<std::size_t>(random.Below(static_cast<std::int64_t>(count)))];
  item.sale_unit = sale->id;
  item.sale_coefficient = sale->coefficient;
  if (count > 1 && random.Percent(25)) {
    item.second_unit = of_group[count - 1]->id;
    item.second_coefficient = of_group[count - 1]->coefficient;
  }
  item.quantity_decimals = group == 4 ? 2 : 0;
}

Item MakeGoods(const Company& company, int group, Random& random) {
  constexpr std::array kGroupUnits = {1, 1, 2, 3};
  Item item;
  item.kind = random.Percent(55) ? kMadeItem : kPurchasedItem;
  item.type = 2101;
  item.source = random.Percent(85) ? 2111 : 2112;
  ChooseUnits(item, kGroupUnits[static_cast<std::size_t>(group)], random);
  item.model = ModelName(random);
  item.price = random.Between(8, 400) * 5000 + random.Between(0, 99) * 100;
  item.cost = item.price * random.Between(55, 82) / 100;
  item.batches = random.Percent(30);
  item.shelf_days = item.batches && random.Percent(50) ? static_cast<int>(random.Between(6, 24)) * 30 : 0;
  if (random.Percent(20)) item.aux_class = random.Percent(50) ? kSizeClass : kColourClass;
  item.stock =
      company.stocks[random.Percent(70) ? 0 : static_cast<std::size_t>(random.Between(2, 3))].node.id;
  return item;
}

Item MakeMaterial(const Company& company, Random& random) {
  Item item;
  item.kind = kPurchasedItem;
  item.type = 2102;
  item.source = random.Percent(90) ? 2111 : 2112;
  ChooseUnits(item, random.Percent(60) ? 4 : 1, random);
  item.model = ModelName(random);
  item.price = random.Between(10, 600) * 1000 + random.Between(0, 9) * 100;
  item.cost = item.price * random.Between(70, 90) / 100;
  item.batches = random.Percent(40);
  item.stock = company.stocks[1].node.id;
  return item;
}

Item MakeService(const Company& company, Random& random) {
  Item item;
  item.kind = kServiceItem;
  item.type = 2103;
  item.source = 2111;
  ChooseUnits(item, 5, random);
  item.price = random.Between(3, 30) * 100000;
  item.cost = item.price / 2;
  item.tax_rate = 6;
  item.stock = company.stocks[0].node.id;
  return item;
}

Item MakeSet(const Company& company, Random& random) {
  Item item = MakeGoods(company, 0, random);
  item.kind = kVirtualItem;
  ChooseUnits(item, 6, random);
  item.batches = false;
  item.shelf_days = 0;
  item.aux_class = 0;
  item.price *= 3;
  item.cost *= 3;
  return item;
}

// Goods stand in four classes; two of these have classes below, so that their codes have four parts.
void AddGoods(Company& company, TreeBuilder& tree, int count, Random& random) {
  constexpr std::array kGroups = {"厨房用品", "收纳家具", "小家电", "家纺布艺"};
  const Node goods = tree.AddClass(nullptr, "01", "商品");
  for (int g = 0; g < static_cast<int>(kGroups.size()); ++g) {
    const Node group =
        tree.AddClass(&goods, fmt::format("{:02}", g + 1), kGroups[static_cast<std::size_t>(g)]);
    std::array<Node, 2> below = {group, group};
    if (g % 2 == 0) {
      below = {tree.AddClass(&group, "01", "常规系列"), tree.AddClass(&group, "02", "精选系列")};
    }
    for (int n = 0; n < std::max(6, count / static_cast<int>(kGroups.size())); ++n) {
      Item item = MakeGoods(company, g, random);
      item.node = tree.AddLeaf(&below[static_cast<std::size_t>(n % 2)], GoodsName(random, g));
      company.goods.push_back(static_cast<int>(company.items.size()));
      company.items.push_back(item);
    }
  }
}

void AddOthers(Company& company, TreeBuilder& tree, int count, Random& random) {
  const Node services = tree.AddClass(nullptr, "02", "服务");
  const Node at_home = tree.AddClass(&services, "01", "上门服务");
  const Node sets = tree.AddClass(nullptr, "03", "套装");
  const Node gifts = tree.AddClass(&sets, "01", "礼盒套装");
  for (int n = 0; n < std::max(4, count / 12); ++n) {
    Item service = MakeService(company, random);
    service.node = tree.AddLeaf(&at_home, ServiceName(random));
    company.goods.push_back(static_cast<int>(company.items.size()));
    company.items.push_back(service);
    Item set = MakeSet(company, random);
    set.node = tree.AddLeaf(&gifts, SetName(random));
    company.goods.push_back(static_cast<int>(company.items.size()));
    company.items.push_back(set);
  }
}

void AddMaterials(Company& company, TreeBuilder& tree, int count, Random& random) {
  const Node materials = tree.AddClass(nullptr, "04", "材料");
  const Node raw = tree.AddClass(&materials, "01", "原材料");
  const Node packing = tree.AddClass(&materials, "02", "配件包材");
  for (int n = 0; n < std::max(12, count); ++n) {
    Item item = MakeMaterial(company, random);
    item.node = tree.AddLeaf(n % 3 == 2 ? &packing : &raw, MaterialName(random));
    company.materials.push_back(static_cast<int>(company.items.size()));
    company.items.push_back(item);
  }
}

// What is made needs materials; a set is put together from goods.
void AddBoms(Company& company, Random& random) {
  const auto single = [&](int index) {
    return company.items[static_cast<std::size_t>(index)].kind <= kMadeItem;
  };
  std::vector<int> parts;
  std::copy_if(company.goods.begin(), company.goods.end(), std::back_inserter(parts), single);
  for (const int index : company.goods) {
    Item& item = company.items[static_cast<std::size_t>(index)];
    if (item.kind != kMadeItem && item.kind != kVirtualItem) continue;
    const auto& pool = item.kind == kMadeItem ? company.materials : parts;
    Bom bom{static_cast<int>(company.boms.size()) + 1, index, {}};
    const auto first = random.Below(static_cast<std::int64_t>(pool.size()));
    const auto count = random.Between(2, 5);
    for (std::int64_t n = 0; n < count; ++n) {
      // Neighbours in the pool, so that no part stands twice in a list.
      const auto at = static_cast<std::size_t>(first + n) % pool.size();
      bom.lines.push_back({pool[at], random.Between(1, 4)});
    }
    item.bom = bom.id;
    company.boms.push_back(bom);
  }
}

}  // namespace

void AddItems(Company& company, TreeBuilder& tree, int count, Random& random) {
  AddUnitsAndAuxItems(company);
  tree.Begin(4);
  AddGoods(company, tree, count * 60 / 100, random);
  AddOthers(company, tree, count * 10 / 100, random);
  AddMaterials(company, tree, count * 30 / 100, random);
  for (const int index : company.materials) {
    // Some materials are sold, too.
    if (random.Percent(15)) company.goods.push_back(index);
  }
  AddBoms(company, random);
}

}  // namespace salerpt::accountset::generator
