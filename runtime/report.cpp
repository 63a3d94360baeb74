#include "runtime/report.h"

#include <utility>

#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/report_interfaces.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

constexpr std::string_view kSettingsFile = "JXCQ7SaleRpt.INI";

const ReportClass& ClassNamed(std::string_view name) {
  const ReportClass* report_class = FindReportClass(name);
  if (report_class == nullptr) {
    throw RuntimeError(error_number::kInvalidCall, "Report", Join("\"", name, "\" is not a report class"));
  }
  return *report_class;
}

}  // namespace

Report::Report(std::string_view class_name)
    : class_(ClassNamed(class_name)), prog_id_(ReportProgID(class_name)) {}

// What Class_Terminate does: the references go in this order.
Report::~Report() {
  result_.reset();
  rs_.reset();
  filter_.reset();
  header_.reset();
  property_.reset();
  title_.reset();
}

void Report::ClassInitialize() {
  Runtime& runtime = Runtime::Current();
  result_ = std::make_shared<Dictionary>();
  runtime.gLongNumber = IsLongNumber();
  ext_filter_ = class_.plan_family;
  SetResult(false, "");
  TrySetUp();
  if (class_.sets_ini_file) runtime.ini_file.SetFileName(kSettingsFile);
}

void Report::SetFilter(DictionaryRef filter) {
  filter_ = std::move(filter);
  if (filter_) {
    SetResult(true, "");
  } else {
    SetResult(false, ResText("请选择过滤条件！"));
  }
}

void Report::SetExtFirter(std::string_view family) {
  ext_filter_ = family;
  TrySetUp();
}

void Report::InitProperty(std::int32_t /*number*/) {
  property_ = std::make_shared<Dictionary>();
  property_->Set("Name", ResText(class_.title));
  property_->Set("RptProperty", class_.rpt_property);
  if (class_.detail_rpt_id != 0) property_->Set("DetailRptID", class_.detail_rpt_id);
}

// A set-up that fails does not keep the object from being made or its family from being set: the host reads
// the reason in `Result`, and the next fetch tries again.
void Report::TrySetUp() {
  try {
    SetUp();
  } catch (const std::exception& failure) {
    SetResult(false, failure.what());
  }
}

void Report::SetUp() {
  is_set_up_ = false;
  InitProperty(PlanFamily());
  is_set_up_ = true;
}

void Report::RetrySetUp() {
  if (!is_set_up_) SetUp();
}

std::int32_t Report::PlanFamily() const {
  return Variant(Val(ext_filter_)).ToInt32();
}

void Report::ShowFilter(bool auto_filter) {
  try {
    if (!class_.log_key.empty()) WriteLog(class_.log_key, 3, class_.log_text);
    if (class_.has_auto_filter) SetUp();
    Runtime& runtime = Runtime::Current();
    const std::unique_ptr<FilterDialog> dialog = runtime.MakeDialog(class_.dialog);
    dialog->SetRptID(PlanFamily());
    PrepareDialog(*dialog);
    std::string plan;
    if (class_.has_auto_filter && auto_filter) {
      const ObjectRef profile = ObjectFactory::CreateServerObject("ORVMCaculateRpt.Profile");
      plan = Call(profile, "FindChooseValue", GetPropsString(), ext_filter_).TextOrEmpty();
    }
    if (plan.empty()) {
      runtime.GetToolkit().ShowModal(*dialog);
    } else {
      dialog->ShowFinish(plan);
    }
    TakeDialogFilter(dialog->Filter());
  } catch (const std::exception& failure) {
    SetResult(false, failure.what());
  }
}

void Report::PrepareDialog(FilterDialog& dialog) {
  if (class_.has_auto_filter) dialog.SetStatus(0, false);
}

void Report::TakeDialogFilter(const DictionaryRef& filter) {
  if (!filter) {
    SetResult(false, ResText("过滤条件有误，请重新过滤！"));
  } else if (!filter->Get("OK").ToBoolean()) {
    // Cancelled: the earlier conditions and rows stay.
    result_->Set("OK", false);
  } else {
    SetFilter(filter);
  }
}

void Report::GetReportData() {
  try {
    Toolkit& toolkit = Runtime::Current().GetToolkit();
    toolkit.DoEvents();
    if (!result_->Get("OK").ToBoolean()) return;
    BuildTitle();
    BuildConditions();
    toolkit.DoEvents();
    Refresh();
  } catch (const std::exception& failure) {
    SetResult(false, failure.what());
  }
}

void Report::Refresh() {
  try {
    if (!m_ProgBar) {
      m_ProgBar = std::make_shared<Bar>();
      m_ProgBar->Active.Connect([this] { OnActive(); });
    }
    m_ProgBar->Show();
  } catch (const std::exception& failure) {
    FailFetch(failure);
  }
}

void Report::OnActive() {
  RunGuarded([this] {
    Progress().SetMsg(ResText("正在连接服务器"));
    RunFetch([this] { FetchData(); });
  });
}

void Report::FinishFetch() {
  UnloadProgress();
  SetResult(true, "");
}

void Report::FailFetch(const std::exception& failure) {
  const auto* error = dynamic_cast<const RuntimeError*>(&failure);
  result_->Set("OK", false);
  result_->Set("ErrorSource", error != nullptr ? error->Source() : std::string());
  result_->Set("Error", failure.what());
  rs_.reset();
  UnloadProgress();
}

void Report::UnloadProgress() {
  if (m_ProgBar) m_ProgBar->Unload();
}

void Report::SetResult(bool ok, std::string_view error) {
  result_->Set("OK", ok);
  result_->Set("Error", error);
}

Dictionary& Report::Conditions() const {
  if (!filter_) {
    throw RuntimeError(error_number::kObjectNotSet, prog_id_,
                       Join(prog_id_, ": Filter is nothing, set it first"));
  }
  return *filter_;
}

Bar& Report::Progress() const {
  if (!m_ProgBar) {
    throw RuntimeError(error_number::kObjectNotSet, prog_id_, Join(prog_id_, ": no fetch is running"));
  }
  return *m_ProgBar;
}

void Report::ReplaceFilter(const Variant& filter) {
  filter_ = As<Dictionary>(filter);
}

ObjectRef Report::GetDetailReport(std::int32_t /*row*/) {
  return nullptr;
}

VectorRef Report::PackMenuInfo() const {
  auto item = std::make_shared<Dictionary>();
  item->Set("FMenuName", "iDecimal");
  auto menu = std::make_shared<Vector>();
  menu->Add(item);
  return menu;
}

bool Report::GetRsBySQL(std::string_view sql, RecordsetRef& rows) {
  try {
    const ObjectRef server = ObjectFactory::CreateServerObject("ORVListServer.clsListServer");
    rows = As<Recordset>(Call(server, "Users_GetDataFreely", GetPropsString(), sql, std::int32_t{-1}));
    return true;
  } catch (const std::exception& failure) {
    Runtime::Current().GetToolkit().MessageBox(Join(ResText("数据访问错误："), kCrLf, failure.what()),
                                               kBoxInformation, "青岚提示：");
    return false;
  }
}

Variant Report::GetRptList(Arguments /*arguments*/) {
  return {};
}

void Report::ShowNoFilter() {}

Variant Report::Invoke(std::string_view member, InvokeKind kind, Arguments arguments) {
  return Dispatch<Report>(*this, Members(), member, kind, arguments);
}

}  // namespace salerpt
