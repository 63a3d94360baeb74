#include "reports/analysis/credit_report.h"

#include <array>
#include <memory>

#include "reports/returned_error.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/runtime.h"
#include "sqltoolkit/filter_values.h"

namespace salerpt {
namespace {

// --- The words of a credit object

struct CreditObject {
  std::string_view code_caption;
  std::string_view name_caption;
  std::string_view range;         // in front of the word for all
  std::string_view narrow_range;  // in front of two codes
  std::string_view all;
};

// By "FCreditClass". Kept: the word for all employee classes lacks its "所有"; the line still tells that no
// range is set, and visible texts do not change without need.
constexpr std::array<CreditObject, 5> kCreditObjects = {{
    {"客户代码$", "客户名称$", "客户代码范围：", "客户代码范围: ", "所有客户"},
    {"业务员代码$", "业务员名称$", "业务员代码范围：", "业务员代码范围: ", "所有业务员"},
    {"部门代码$", "部门名称$", "部门代码范围：", "部门代码范围: ", "所有部门"},
    {"客户类别代码$", "客户类别名称$", "客户类别范围：", "客户类别范围: ", "所有客户类别"},
    {"业务员类别代码$", "业务员类别名称$", "业务员类别范围：", "业务员类别范围: ", "业务员类别"},
}};

// Kept: a class beyond these has no words, and the rest of the report runs; the credit object alone knows
// which classes the account set has.
constexpr CreditObject kNoWords{};

const CreditObject& CreditObjectOf(const Dictionary& filter) {
  const int credit_class = FilterInt(filter, "FCreditClass");
  if (credit_class < 0 || credit_class >= static_cast<int>(kCreditObjects.size())) return kNoWords;
  return kCreditObjects[static_cast<std::size_t>(credit_class)];
}

// --- The statement that the credit object made, without blanks at both ends; empty where the account set has
// no formula.

std::string SqlOf(const Variant& result) {
  const auto answer = As<Dictionary>(result);
  if (!answer) {
    throw RuntimeError(error_number::kObjectNotSet, "ORVMSaleCredit.clsGetData",
                       "the credit object took its dictionary of results away");
  }
  return std::string(Trim(answer->Get("Sql").TextOrEmpty()));
}

}  // namespace

// --- Title

void CreditReport::AddCreditObjectRange(TitleLines& lines, const Dictionary& filter) {
  const CreditObject& words = CreditObjectOf(filter);
  lines.AddNarrowRange(words.range, words.narrow_range, filter, "FItemIDFrom", "FItemIDTo", words.all);
}

// --- Fetch

void CreditReport::OnActive() {
  RunGuarded([this] {
    Progress().SetMsg(ResText("正在连接服务器"));
    GetRptList({});
  });
}

Variant CreditReport::GetRptList(Arguments /*arguments*/) {
  RunFetch([this] { FetchData(); });
  return rs_;
}

void CreditReport::FetchData() {
  if (!Filter()) {
    throw RuntimeError(error_number::kObjectNotSet, std::string(ClassName()),
                       ResText("过滤条件有误，请重新过滤！"));
  }
  const CreditObject& words = CreditObjectOf(Conditions());
  header_ = std::make_shared<Vector>();
  AddColumn(words.code_caption, "", ColumnType::kText, "FNumber");
  AddColumn(words.name_caption, "", ColumnType::kText, "FName");
  AddColumns();

  // The login travels in the conditions: the credit object takes nothing beside them.
  const std::string props = GetPropsString();
  Conditions().Set("sDsN", props);
  ParseString(props);
  Conditions().Set("UserID", GetUserID());

  const ObjectRef credit = ObjectFactory::CreateServerObject("ORVMSaleCredit.clsGetData");
  Variant filter = Filter();
  Variant result = std::make_shared<Dictionary>();
  Call(credit, CreditOperation(), filter, result);
  ReplaceFilter(filter);
  Variant sql = SqlOf(result);
  if (sql.IsEmptyText()) EndWithoutFormula();

  Conditions().Set("bLongNumber", Runtime::Current().gLongNumber);
  Progress().SetMsg(ResText("正在从服务器读取数据..."));
  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  Conditions().Set("RptID", PlanFamily());
  rs_.reset();
  rs_ = As<Recordset>(Call(data, "GetData", props, sql));
  RaiseReturnedError(result);
}

void CreditReport::EndWithoutFormula() const {
  Runtime::Current().GetToolkit().MessageBox(ResText("没有设信用公式"), kBoxInformation, NoFormulaTitle());
  // The user has been told. The fetch ends as a failed one; no error stands behind it, so that source and
  // text of `Result` are empty.
  throw RuntimeError(0, "", "");
}

// --- Columns

void CreditReport::AddColumn(std::string_view caption, std::string_view second, ColumnType type,
                             std::string_view name) {
  AddHeader(*header_, ResText(caption), ResText(second), type, name, true);
}

// --- Menu

VectorRef CreditReport::MenuOf(std::initializer_list<std::string_view> names) {
  auto menu = std::make_shared<Vector>();
  for (const std::string_view name : names) {
    auto item = std::make_shared<Dictionary>();
    item->Set("FMenuName", name);
    menu->Add(item);
  }
  return menu;
}

}  // namespace salerpt
