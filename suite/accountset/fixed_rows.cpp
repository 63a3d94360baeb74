#include "suite/accountset/fixed_rows.h"

#include <fmt/format.h>

#include <array>

#include "suite/accountset/accountset.h"

namespace salerpt::accountset {
namespace {

struct MessageType {
  int type;
  const char* name;
};
constexpr std::array kMessageTypes = {
    MessageType{101, "销售方式"}, MessageType{102, "采购方式"}, MessageType{997, "销售范围"},
    MessageType{160, "仓库类型"}, MessageType{210, "物料属性"}, MessageType{211, "存货类别"},
    MessageType{212, "物料来源"}, MessageType{26, "行业"},      MessageType{27, "区域"},
    MessageType{28, "客户分类"},  MessageType{29, "职员分类"},  MessageType{300, "费用类型"},
    MessageType{310, "部门属性"},
};

struct Message {
  int id;
  int type;
  const char* code;
  const char* name;
};
constexpr std::array kMessages = {
    Message{kCashSale, 101, "FXF01", "现销"},
    Message{kCreditSale, 101, "FXF02", "赊销"},
    Message{kInstalmentSale, 101, "FXF03", "分期收款销售"},
    Message{kConsignmentSale, 101, "FXF04", "委托代销"},
    Message{kStraightSale, 101, "FXF05", "受托代销"},
    Message{kRetailSale, 101, "FXF06", "零售"},
    Message{kCashPurchase, 102, "P001", "现购"},
    Message{kCreditPurchase, 102, "P002", "赊购"},
    Message{kStraightPurchase, 102, "P003", "受托代销采购"},
    Message{kOrderOfSale, 997, "Y1", "购销"},
    Message{kOrderOfTransfer, 997, "Y2", "调拨"},
    Message{kOrdinaryStock, 160, "S1", "普通仓"},
    Message{kInspectionStock, 160, "S2", "待检仓"},
    Message{kKeptStock, 160, "S3", "代管仓"},
    Message{kGiftStock, 160, "S4", "赠品仓"},
    Message{1, 210, "1", "外购"},
    Message{2, 210, "2", "自制"},
    Message{3, 210, "3", "委外加工"},
    Message{4, 210, "4", "服务商品"},
    Message{5, 210, "5", "虚拟物料"},
    Message{2101, 211, "CH1", "库存商品"},
    Message{2102, 211, "CH2", "原材料"},
    Message{2103, 211, "CH3", "服务"},
    Message{2111, 212, "LY1", "国产"},
    Message{2112, 212, "LY2", "进口"},
    Message{2601, 26, "HY01", "零售连锁"},
    Message{2602, 26, "HY02", "工程安装"},
    Message{2603, 26, "HY03", "批发贸易"},
    Message{2604, 26, "HY04", "电子商务"},
    Message{2605, 26, "HY05", "制造业"},
    Message{2701, 27, "QY01", "华东"},
    Message{2702, 27, "QY02", "华南"},
    Message{2703, 27, "QY03", "华北"},
    Message{2704, 27, "QY04", "西南"},
    Message{2705, 27, "QY05", "东北"},
    Message{2706, 27, "QY06", "海外"},
    Message{2801, 28, "KH01", "重点客户"},
    Message{2802, 28, "KH02", "一般客户"},
    Message{2803, 28, "KH03", "零散客户"},
    Message{kHomeSeller, 29, "ZY01", "内销业务员"},
    Message{kExportSeller, 29, "ZY02", "外销业务员"},
    Message{kShopSeller, 29, "ZY03", "门店导购"},
    Message{kOtherEmployee, 29, "ZY04", "职能人员"},
    Message{3001, 300, "FY01", "运输费"},
    Message{3002, 300, "FY02", "装卸费"},
    Message{3003, 300, "FY03", "安装费"},
    Message{3004, 300, "FY04", "仓储费"},
    Message{3101, 310, "1", "车间"},
    Message{3102, 310, "2", "非车间"},
};

struct ItemClass {
  int id;
  const char* name;
  const char* table;
};
constexpr std::array kClasses = {
    ItemClass{1, "客户", "t_Organization"},
    ItemClass{2, "部门", "t_Department"},
    ItemClass{3, "职员", "t_Emp"},
    ItemClass{4, "物料", "t_ICItem"},
    ItemClass{5, "仓库", "t_Stock"},
    ItemClass{8, "供应商", "t_Supplier"},
    ItemClass{10, "机构", "t_SonCompany"},
    ItemClass{12, "币别", "t_Currency"},
    ItemClass{30, "职员类别", "t_SubMessage"},
    ItemClass{501, "客户类别", "t_SubMessage"},
    ItemClass{2014, "费用", "t_Fee"},
};

// A property by which a report can group: a column of the class's table, with the table that its number
// points to.
struct Property {
  int item_class;
  int id;
  const char* name;
  const char* column;
  const char* table;
  const char* key;
  const char* display;
};
constexpr std::array kProperties = {
    Property{1, 101, "区域", "FRegionID", "t_SubMessage", "FInterID", "FName"},
    Property{1, 102, "行业", "FTrade", "t_SubMessage", "FInterID", "FName"},
    Property{1, 103, "客户分类", "FTypeID", "t_SubMessage", "FInterID", "FName"},
    Property{1, 104, "专营业务员", "FEmployee", "t_Emp", "FItemID", "FName"},
    Property{1, 105, "城市", "FCity", "", "", ""},
    Property{4, 101, "物料属性", "FErpClsID", "t_SubMessage", "FInterID", "FName"},
    Property{4, 102, "存货类别", "FTypeID", "t_SubMessage", "FInterID", "FName"},
    Property{4, 103, "来源", "FSource", "t_SubMessage", "FInterID", "FName"},
    Property{4, 104, "默认仓库", "FDefaultLoc", "t_Stock", "FItemID", "FName"},
    Property{4, 105, "规格型号", "FModel", "", "", ""},
    Property{4, 106, "保质期(天)", "FKFPeriod", "", "", ""},
    Property{8, 101, "区域", "FRegionID", "t_SubMessage", "FInterID", "FName"},
    Property{8, 102, "行业", "FTrade", "t_SubMessage", "FInterID", "FName"},
};

void WriteEnumerations(Database& database) {
  Insert type(database, "t_SubMesType", {"FTypeID", "FName"});
  for (const auto& row : kMessageTypes) type.Row(row.type, row.name);
  Insert message(database, "t_SubMessage", {"FInterID", "FTypeID", "FID", "FName"});
  for (const auto& row : kMessages) message.Row(row.id, row.type, row.code, row.name);
  Insert group(database, "t_VoucherGroup", {"FGroupID", "FName"});
  group.Row(1, "记");
}

void WriteClasses(Database& database) {
  Insert item_class(database, "t_ItemClass", {"FItemClassID", "FNumber", "FName", "FSQLTableName"});
  for (const auto& row : kClasses) item_class.Row(row.id, fmt::format("{:03}", row.id), row.name, row.table);
  Insert property(
      database, "t_ItemPropDesc",
      {"FItemClassID", "FPropID", "FName", "FSQLColumnName", "FSrcTable", "FSrcField", "FDisplayField"});
  for (const auto& row : kProperties) {
    property.Row(row.item_class, row.id, row.name, row.column, row.table, row.key, row.display);
  }
}

void WriteUsers(Database& database) {
  Insert user(database, "t_User", {"FUserID", "FName"});
  user.Row(kLoginUser, "Administrator");
  user.Row(kNarrowUser, "业务员");
  Insert right(database, "t_DataRight", {"FUserID", "FKind", "FUsed"});
  for (const int kind : {1, 2, 4}) {
    right.Row(kLoginUser, kind, 0);
    right.Row(kNarrowUser, kind, 1);
  }
}

void WriteProfile(Database& database, const PeriodRange& periods, const char* company) {
  Insert profile(database, "t_SystemProfile", {"FCategory", "FKey", "FValue", "FExplanation"});
  profile.Row("GL", "PeriodCount", "12", "一年的会计期间数");
  profile.Row("GL", "TaxRate", "17", "税率(%)");
  profile.Row("GL", "CompanyName", company, "公司名称");
  profile.Row("IC", "StartYear", std::to_string(periods.start_year), "启用年度");
  profile.Row("IC", "StartPeriod", std::to_string(periods.start_period), "启用期间");
  profile.Row("IC", "CurrentYear", std::to_string(periods.current_year), "当前年度");
  profile.Row("IC", "CurrentPeriod", std::to_string(periods.current_period), "当前期间");
  profile.Row("IC", "UseShortNumber", "0", "使用短代码");
  profile.Row("IC", "SecUnit", "0", "使用辅助计量单位");
  profile.Row("IC", "DoubleUnit", "0", "使用双计量单位");
  profile.Row("IC", "POOrderTaxInPrice", "0", "采购订单单价含税");
  profile.Row("IC", "PurTaxRateOption", "0", "采购税率来源");
  profile.Row("IC", "UpStockWhenSave", "0", "库存更新控制");
  profile.Row("IC", "SystemStarted", "1", "系统已启用");
  profile.Row("IC", "CloseInModule", "0", "模块内关账");
}

}  // namespace

void WriteFixedRows(Database& database, const PeriodRange& periods, const char* company) {
  WriteEnumerations(database);
  WriteClasses(database);
  WriteUsers(database);
  WriteProfile(database, periods, company);
  // The row that items without a secondary unit point to; reports show its name as nothing.
  Insert unit(database, "t_MeasureUnit",
              {"FMeasureUnitID", "FUnitGroupID", "FNumber", "FName", "FCoefficient"});
  unit.Row(0, 0, "*", "*", 1);
}

}  // namespace salerpt::accountset
