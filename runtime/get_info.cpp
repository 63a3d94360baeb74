#include "runtime/get_info.h"

#include <array>
#include <utility>

#include "runtime/error.h"
#include "runtime/mmts.h"
#include "runtime/mrpt.h"
#include "runtime/recordset.h"
#include "runtime/runtime.h"
#include "runtime/text.h"

namespace salerpt {

// --- Properties of the login

std::string GetInfo::PropsString() const {
  return properties_ ? properties_->Text() : std::string();
}

const std::string& GetInfo::GetProperty(std::string_view name) const {
  if (properties_) return properties_->Get(name);
  throw RuntimeError(error_number::kObjectNotSet, "GetInfo",
                     Join("property \"", name, "\" was asked for before a property string was parsed"));
}

bool GetInfo::ParseString(std::string_view text) {
  // In place before it reads: after a failure nobody finds the properties of an earlier login.
  auto fresh = std::make_unique<PropertyCollection>();
  const std::unique_ptr<PropertyCollection> earlier = std::exchange(properties_, std::move(fresh));
  properties_->Parse(text);
  return true;
}

// --- State of the system

std::int32_t GetInfo::GetCloseMoudle() const {
  try {
    // clang-format off
    const auto rows = As<Recordset>(Call(CreateObject("ORVConnection.AppConnection"), "Execute",
        Join("Select FValue From t_systemprofile Where FCategory =", QuoteSql("IC"),
             " And FKey =", QuoteSql("CloseInModule"))));
    // clang-format on
    if (!rows || rows->RecordCount() == 0) return 0;
    rows->MoveFirst();
    const std::int32_t module = Variant(Val(rows->Value("FValue").TextOrEmpty())).ToInt32();
    return module > 0 ? module : 0;
  } catch (const std::exception&) {
    return 0;
  }
}

bool GetInfo::GetISStarted() const {
  try {
    const ObjectRef system = ObjectFactory::CreateServerObject("ORVMSystem.System");
    return Call(system, "ISStarted", GetPropsString()).ToBoolean();
  } catch (const std::exception&) {
    return false;
  }
}

// --- Functions of the host's navigation. The ids are the host's; they are only handed on.

namespace {

constexpr std::int32_t kRefreshSubsystem = 2;
constexpr std::int32_t kRefreshFunction = 3;

void AddVisibility(Vector& answer, std::string_view id_key, std::string id, bool visible) {
  auto item = std::make_shared<Dictionary>();
  item->Set(id_key, std::move(id));
  item->Set("FVisible", visible);
  answer.Add(item);
}

}  // namespace

VectorRef GetInfo::GetRefreshFunc(const DictionaryRef& request) {
  auto answer = std::make_shared<Vector>();
  if (!request) return answer;
  request->Set("DelAll", false);
  try {
    const std::int32_t refresh_type = request->GetValue("FRefreshType", 0).ToInt32();
    const std::int32_t subsystem = request->GetValue("FSubSysID", 0).ToInt32();
    const std::int32_t function = request->GetValue("FSubFuncID", 0).ToInt32();
    ParseString(GetPropsString());
    if (refresh_type == kRefreshSubsystem) AddSubsystem(*answer, subsystem);
    if (refresh_type == kRefreshFunction) AddDetails(*answer, function);
  } catch (const std::exception&) {
    // A request that cannot be read, or nobody logged in: no function changes.
  }
  return answer;
}

// The year-end function of a subsystem shows while its own module is the closed one, and only then.
void GetInfo::AddSubsystem(Vector& answer, std::int32_t subsystem) const {
  struct YearEnd {
    std::int32_t subsystem;
    std::int32_t module;
  };
  static constexpr std::array<YearEnd, 3> kYearEnds = {{{20, 100}, {21, 101}, {23, 103}}};
  for (const YearEnd& year_end : kYearEnds) {
    if (year_end.subsystem != subsystem) continue;
    AddVisibility(answer, "FSubFuncID", Join(subsystem, "80"), GetCloseMoudle() == year_end.module);
  }
}

// What prepares the start of the system goes when it has been started; what needs a started one comes.
void GetInfo::AddDetails(Vector& answer, std::int32_t function) const {
  const bool started = GetISStarted();
  const auto add = [&](std::string_view suffix, bool visible) {
    AddVisibility(answer, "FDetailFuncID", Join(function, suffix), visible);
  };
  switch (function) {
    case 2025:
    case 2125:
    case 2215:
    case 2325:
      for (const std::string_view suffix : {"01", "02", "03", "04", "05", "06"}) add(suffix, !started);
      add("15", started);
      if (function == 2125) add("07", !started);
      break;
    case 4751:
    case 2557:
      for (const std::string_view suffix : {"00", "01", "02", "03"}) add(suffix, !started);
      add("15", started);
      break;
    case 620118:
    case 620217:
      add("01", !started);
      add("02", started);
      break;
    default:
      break;
  }
}

// --- The global key

namespace {

constexpr std::int16_t kKeyF12 = 123;
constexpr std::int16_t kNoShift = 0;
constexpr std::int16_t kShift = 1;

// The right to query stock. Nobody sees stock on the strength of a question that failed.
bool MayQueryStock() {
  try {
    return AccessCheck(1099, 15, 0x200000);
  } catch (const std::exception&) {
    return false;
  }
}

void TellUser(std::string_view text) {
  Runtime::Current().GetToolkit().MessageBox(ResText(text), kBoxInformation, kHintTitle);
}

}  // namespace

void GetInfo::IInputEventListener_OnKeyPressed(std::int16_t key, std::int16_t shift) const {
  if (key != kKeyF12) return;
  if (shift == kNoShift) OpenStockForm("ORVStockQuery.StockQueryFace");
  if (shift == kShift) OpenStockForm("ORVStockStatus.SSFace");
}

void GetInfo::OpenStockForm(std::string_view prog_id) const {
  if (!GetISStarted()) {
    TellUser("该功能必须在系统启用后才能使用");
    return;
  }
  if (!MayQueryStock()) {
    TellUser("您没有库存查询权限。");
    return;
  }
  try {
    Call(CreateObject(prog_id), "Show");
  } catch (const std::exception&) {
    // The key was struck in some other window: that one goes on, without the look-up.
  }
}

// --- Interface

std::span<const Member<GetInfo>> GetInfo::Members() {
  static constexpr std::array<Member<GetInfo>, 8> kMembers{{
      {"PropsString", InvokeKind::kGet, "() As String",
       [](GetInfo& self, Arguments) -> Variant { return self.PropsString(); }},
      {"ConStr", InvokeKind::kGet, "() As String",
       [](GetInfo& self, Arguments) -> Variant { return self.ConStr(); }},
      {"GetProperty", InvokeKind::kMethod, "(sPropName As String) As String",
       [](GetInfo& self, Arguments arguments) -> Variant { return self.GetProperty(arguments[0].ToText()); },
       1},
      {"ParseString", InvokeKind::kMethod, "(sToParse As String) As Boolean",
       [](GetInfo& self, Arguments arguments) -> Variant { return self.ParseString(arguments[0].ToText()); },
       1},
      {"GetRefreshFunc", InvokeKind::kMethod, "(oDict As Dictionary) As Vector",
       [](GetInfo& self, Arguments arguments) -> Variant {
         return self.GetRefreshFunc(As<Dictionary>(arguments[0]));
       },
       1},
      {"GetCloseMoudle", InvokeKind::kMethod, "() As Long",
       [](GetInfo& self, Arguments) -> Variant { return self.GetCloseMoudle(); }},
      {"GetISStarted", InvokeKind::kMethod, "() As Boolean",
       [](GetInfo& self, Arguments) -> Variant { return self.GetISStarted(); }},
      {"IInputEventListener_OnKeyPressed", InvokeKind::kMethod, "(KeyCode As Integer, Shift As Integer)",
       [](GetInfo& self, Arguments arguments) -> Variant {
         self.IInputEventListener_OnKeyPressed(arguments[0].ToInt16(), arguments[1].ToInt16());
         return {};
       },
       2},
  }};
  return kMembers;
}

Variant GetInfo::Invoke(std::string_view member, InvokeKind kind, Arguments arguments) {
  return Dispatch(*this, Members(), member, kind, arguments);
}

}  // namespace salerpt
