#include "suite/accountset/generator/words.h"

#include <fmt/format.h>

#include <array>

namespace salerpt::accountset::generator {
namespace {

constexpr std::array kFirst = {"霁", "砚", "澄", "沐", "翊", "珩", "岫", "屿", "枫", "棠", "芷", "泓",
                               "骁", "昀", "隽", "暄", "蔚", "樾", "蓁", "峤", "漪", "琬", "钰", "筠"};
constexpr std::array kSecond = {"川", "禾", "堂", "舟", "野", "原", "里", "木", "石", "田", "园", "岭"};
constexpr std::array kTrades = {"商贸",     "家居", "百货", "供应链", "贸易",
                                "生活用品", "五金", "工贸", "实业",   "电子商务"};
constexpr std::array kSurnames = {"周", "吴", "郑", "王", "冯", "陈", "蒋", "沈", "韩", "杨", "朱", "秦",
                                  "许", "何", "吕", "施", "张", "孔", "曹", "严", "华", "金", "魏", "陶"};
constexpr std::array kGiven = {"文", "澜", "佳", "宁", "子", "涵", "思", "远", "晓", "岚", "明", "轩",
                               "雨", "桐", "建", "平", "海", "燕", "志", "强", "丽", "娟", "伟", "诚"};
constexpr std::array kStyles = {"云纹", "素白", "原木", "竹编", "折叠", "便携", "加厚", "静音", "磨砂",
                                "复古", "轻奢", "双层", "防滑", "抗菌", "智能", "迷你", "大号", "经典"};
constexpr std::array<std::array<const char*, 8>, 4> kGoods = {{
    {"保温杯", "焖烧罐", "餐盘", "汤碗", "砧板", "刀具架", "调味罐", "炒锅"},
    {"晾衣架", "收纳箱", "鞋柜", "置物架", "衣帽钩", "抽屉盒", "折叠椅", "边几"},
    {"台灯", "落地灯", "夜灯", "加湿器", "风扇", "暖风机", "香薰机", "除湿机"},
    {"毛巾", "浴巾", "床单", "枕头", "薄毯", "窗帘", "地垫", "抱枕"},
}};
constexpr std::array kMaterials = {"不锈钢卷料", "铝型材", "橡木板", "竹片",  "聚丙烯粒料",
                                   "玻璃胚",     "硅胶圈", "棉纱",   "电机",  "控制板",
                                   "电源线",     "包装箱", "螺丝包", "水性漆"};
constexpr std::array kGrades = {"甲级", "乙级", "加长", "细径", "宽幅", "高强", "食品级", "环保"};
constexpr std::array kServices = {"上门安装", "延长保修", "产品清洗", "送货上楼", "旧品回收", "定制刻字"};
constexpr std::array kSets = {"厨房套装", "卧室套装", "浴室套装", "新居礼包", "节日礼盒"};
constexpr std::array kLetters = {"A", "B", "C", "D", "E", "F"};

}  // namespace

std::string CompanyName(Random& random) {
  return fmt::format("{}{}{}有限公司", random.Pick(kFirst), random.Pick(kSecond), random.Pick(kTrades));
}

std::string PersonName(Random& random) {
  std::string name = random.Pick(kSurnames);
  name += random.Pick(kGiven);
  if (random.Percent(70)) name += random.Pick(kGiven);
  return name;
}

std::string GoodsName(Random& random, int group) {
  const auto& nouns = kGoods[static_cast<std::size_t>(group) % kGoods.size()];
  return fmt::format("{}{}", random.Pick(kStyles), random.Pick(nouns));
}

std::string MaterialName(Random& random) {
  return fmt::format("{}{}", random.Pick(kGrades), random.Pick(kMaterials));
}

std::string ServiceName(Random& random) {
  return random.Pick(kServices);
}

std::string SetName(Random& random) {
  return fmt::format("{}{}", random.Pick(kStyles), random.Pick(kSets));
}

std::string ModelName(Random& random) {
  if (random.Below(6) == 0) return {};
  return fmt::format("QL-{}{}", random.Between(10, 99) * 10, random.Pick(kLetters));
}

}  // namespace salerpt::accountset::generator
