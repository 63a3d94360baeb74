#include "runtime/mrpt.h"

#include <utility>

#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

constexpr std::string_view kGeneralLedger = "ORVEBCGLView.GLData";

// Runs a call; a failure is raised again with the source that the reports show.
template <typename F>
Variant CallAs(const char* source, F&& call) {
  try {
    return std::forward<F>(call)();
  } catch (const RuntimeError& failure) {
    throw RuntimeError(failure.Number(), source, failure.Description());
  }
}

Variant Profile(std::string_view category, std::string_view key) {
  return Call(ObjectFactory::CreateServerObject("ORVEBSBase.SystemProfile"), "GetProfile", GetPropsString(),
              category, key);
}

// Moves to the first row; false where the set has none. Raises object-not-set where there is no set.
bool ToFirstRow(const RecordsetRef& rows) {
  internal::Required(rows, "RecordCount");
  if (rows->RecordCount() == 0) return false;
  rows->MoveFirst();
  return true;
}

// A setting in the type that is asked for: a boolean where the default is one, otherwise text.
Variant Setting(const Variant& value, bool as_boolean) {
  if (as_boolean) return value.ToBoolean();
  return value.TextOrEmpty();
}

}  // namespace

RecordsetRef GetRsBySQL(std::string_view sql) {
  return As<Recordset>(CallAs("ORVMReport.ClsReport:GetRsBySQL", [sql] {
    return Call(ObjectFactory::CreateServerObject("ORVMReport.ClsReport"), "GetRsBySQL", GetPropsString(),
                sql);
  }));
}

void ExecuteSQL(std::string_view sql) {
  CallAs("ORVMReport.ClsReport:ExecuteSQL", [sql] {
    return Call(ObjectFactory::CreateServerObject("ORVMReport.ClsReport"), "ExecSQL", GetPropsString(), sql);
  });
}

std::int32_t GetMaxPeriod() {
  try {
    return Profile("GL", "PeriodCount").ToInt32();
  } catch (const RuntimeError&) {
    return 0;
  }
}

double GetTaxRate() {
  try {
    return Profile("GL", "TaxRate").ToDouble() / 100;
  } catch (const RuntimeError&) {
    return 0;
  }
}

bool IsLongNumber() {
  try {
    const Variant short_number = Profile("IC", "UseShortNumber");
    return !short_number.IsNull() && short_number.ToDouble() == 0;
  } catch (const RuntimeError&) {
    return true;
  }
}

std::int16_t AmountScale() {
  constexpr std::int16_t kUsualScale = 2;
  const auto rows =
      As<Recordset>(Call(ObjectFactory::CreateServerObject("ORVMPurchaseRpt.Data"), "GetData",
                         GetPropsString(), "select  FScale from t_currency where FCurrencyID=1"));
  return ToFirstRow(rows) ? rows->Value(0).ToInt16() : kUsualScale;
}

std::string ReadSystemProfile(std::string_view category, std::string_view key, std::string_view absent) {
  const auto rows =
      As<Recordset>(Call(CreateObject("ORVConnection.AppConnection"), "Execute",
                         Join("select * from t_systemprofile where FCategory=", QuoteSql(category),
                              " and fkey =", QuoteSql(key))));
  return ToFirstRow(rows) ? rows->Value("FValue").TextOrEmpty() : std::string(absent);
}

Variant ReadUserSetting(std::string_view profile_name, std::string_view section, std::string_view key,
                        const Variant& absent) {
  const bool as_boolean = absent.GetKind() == Variant::Kind::kBoolean;
  try {
    const ObjectRef profile = CreateObject("ORVEBCBASE.UserProfile");
    try {
      Call(profile, "Load", profile_name, section);
    } catch (const RuntimeError&) {
      // A profile that cannot be loaded may still hold settings; the read below decides.
    }
    return Setting(Call(GetMember(profile, "Dictionary").ToObject(), "GetValue", key, std::as_const(absent)),
                   as_boolean);
  } catch (const RuntimeError&) {
    return Setting(absent, as_boolean);
  }
}

std::int32_t ReadDebugSwitch() {
  IniFile& ini_file = Runtime::Current().ini_file;
  struct KeepName {
    IniFile& file;
    std::string name;
    ~KeepName() { file.SetFileName(name); }
  } const kept{ini_file, ini_file.FileName()};
  ini_file.SetFileName("C:\\RptTest.Ini");
  return Variant(Val(ini_file.Read("Para", "Debug", "0"))).ToInt32();
}

void ClearProperty(std::int32_t id) {
  Variant value;
  Call(CreateObject("ORVPropsMgr.ShareProps"), "DelProperty", Runtime::Current().GetPlatform().ProcessID(),
       id, value);
}

ObjectRef GLDataObject() {
  ObjectRef& gl_data = Runtime::Current().gl_data;
  if (!gl_data) gl_data = CreateObject(kGeneralLedger);
  return gl_data;
}

bool AccessCheck(std::int32_t system, std::int32_t object, std::int32_t right) {
  return Call(GLDataObject(), "AccessCheck", system, object, right).ToBoolean();
}

void WriteLog(std::string_view key, std::int32_t kind, std::string_view text) {
  try {
    Call(CreateObject(kGeneralLedger), "WriteLog", key, kind, text);
  } catch (const RuntimeError&) {
    // The log is for statistics of use: no report stops for it.
  }
}

std::string NoticeTitle() {
  return ResText("系统提示");
}

}  // namespace salerpt
