#include "shell/recorded/recorded_suite.h"

#include <utility>

#include "runtime/mparse.h"
#include "runtime/recordset.h"
#include "shell/recorded/empty_recordset.h"
#include "shell/recorded/json_value.h"
#include "shell/recorded/profile_select.h"
#include "shell/recorded/recording_toolkit.h"
#include "shell/recorded/shown.h"

namespace salerpt::shell {
namespace {

// The middle tier's objects, as the library and its dialogs make them.
constexpr std::string_view kProgIDs[] = {
    "ORVPropsMgr.ShareProps",
    "ORVEBSBase.SystemProfile",
    "ORVEBSGLItem.ItemInfo",
    "ORVEBCGLView.GLData",
    "ORVConnection.AppConnection",
    "ORVMReport.ClsReport",
    "ORVMCaculateRpt.Data",
    "ORVMCaculateRpt.Profile",
    "ORVMYWARAPRpt.Profile",
    "ORVMSaleRpt.Data",
    "ORVMPurchaseRpt.Data",
    "ORVMShopRpt.Data",
    "ORVMSaleCredit.clsGetData",
    "ORVMClass.ClassInfo",
    "ORVMSystem.System",
    "ORVBillDataAccess.SysInfo",
    "ORVListServer.clsListServer",
    "ORVEBCBASE.UserProfile",
    "ORV_APFC.FrameData",
    "ORVEBCGLView.GLView",
    "ORVBaseList.BaseList",
    "ORVList.ICList",
    "ORVGLNameListLib.GLNameList",
    "ORVFrmRes.FrmResLoader",
    "ADODB.Connection",
};

constexpr std::string_view kPropsMark = "<props>";
constexpr std::string_view kScaleObject = "ORVMPurchaseRpt.Data";
constexpr std::string_view kScaleSelect = "select FScale from t_currency where FCurrencyID=1";
// Longest value of a setting.
constexpr std::int32_t kValueSize = 4000;

// One blank for each run of blanks.
std::string WithSingleBlanks(std::string_view text) {
  std::string single;
  for (const char c : Trim(text)) {
    if (c != ' ' || !single.ends_with(' ')) single += c;
  }
  return single;
}

const std::string* StatementAmong(Arguments arguments) {
  for (const Variant& argument : arguments) {
    const std::string* text = argument.TextIf();
    if (text != nullptr && ParseProfileSelect(*text)) return text;
  }
  return nullptr;
}

bool ReadsCurrencyScale(std::string_view prog_id, Arguments arguments) {
  if (!EqualNames(prog_id, kScaleObject) || arguments.empty()) return false;
  const std::string* sql = arguments.back().TextIf();
  return sql != nullptr && EqualNames(WithSingleBlanks(*sql), kScaleSelect);
}

class RecordedObject final : public Object {
 public:
  RecordedObject(std::shared_ptr<RecordedSuite> suite, std::string_view prog_id)
      : suite_(std::move(suite)), prog_id_(prog_id) {}
  [[nodiscard]] std::string_view ClassName() const override { return prog_id_; }
  Variant Invoke(std::string_view member, InvokeKind /*kind*/, Arguments arguments) override {
    return suite_->Invoke(prog_id_, member, arguments);
  }

 private:
  std::shared_ptr<RecordedSuite> suite_;
  std::string_view prog_id_;
};

}  // namespace

struct RecordedSuite::SystemMember {
  std::string_view prog_id;
  std::string_view member;
  std::size_t arguments;
  Variant (RecordedSuite::*answer)(Arguments arguments);
};

RecordedSuite::RecordedSuite(RecordedCase recorded_case) : case_(std::move(recorded_case)) {}

void RecordedSuite::Register(Runtime& runtime) {
  for (const std::string_view prog_id : kProgIDs) {
    runtime.Register(prog_id, [suite = shared_from_this(), prog_id] {
      return std::make_shared<RecordedObject>(suite, prog_id);
    });
  }
  runtime.SetToolkit(std::make_shared<RecordingToolkit>(shared_from_this()));
}

Recording RecordedSuite::TakeRecording() {
  return std::exchange(recording_, {});
}

const RecordedSuite::SystemMember* RecordedSuite::FindSystemMember(std::string_view prog_id,
                                                                   std::string_view member) {
  static constexpr SystemMember kMembers[] = {
      {"ORVPropsMgr.ShareProps", "GetProperty", 2, &RecordedSuite::SharedProperty},
      {"ORVPropsMgr.ShareProps", "DelProperty", 3, &RecordedSuite::DeleteProperty},
      {"ORVEBSBase.SystemProfile", "GetProfile", 3, &RecordedSuite::Profile},
      {"ORVEBSGLItem.ItemInfo", "GetDataRight", 3, &RecordedSuite::DataRight},
      {"ORVEBCGLView.GLData", "AccessCheck", 3, &RecordedSuite::Access},
      {"ORVEBCGLView.GLData", "WriteLog", 3, &RecordedSuite::Log},
  };
  for (const SystemMember& row : kMembers) {
    if (EqualNames(row.prog_id, prog_id) && EqualNames(row.member, member)) return &row;
  }
  return nullptr;
}

Variant RecordedSuite::Invoke(std::string_view prog_id, std::string_view member, Arguments arguments) {
  if (const SystemMember* system = FindSystemMember(prog_id, member)) {
    if (arguments.size() != system->arguments) {
      throw RuntimeError(error_number::kWrongArguments, std::string(prog_id),
                         Join(prog_id, ".", member, " takes ", static_cast<int>(system->arguments),
                              " arguments, not ", static_cast<int>(arguments.size())));
    }
    return (this->*system->answer)(arguments);
  }
  if (const std::string* sql = StatementAmong(arguments)) {
    // A select on the settings is a read of the profile too.
    RaiseFault("GetProfile");
    RaiseFault(member);
    return ProfileRows(*sql);
  }
  if (ReadsCurrencyScale(prog_id, arguments)) {
    RaiseFault(member);
    return CurrencyScale();
  }
  recording_.calls.push_back({{"object", prog_id}, {"member", member}, {"args", ShowArguments(arguments)}});
  RaiseFault(member);
  WriteReplies(member, arguments);
  if (answerer_) {
    if (std::optional<Variant> answer = answerer_(prog_id, member, arguments)) return *answer;
  }
  return NextAnswer(member);
}

void RecordedSuite::RaiseFault(std::string_view member) const {
  if (const auto found = case_.faults.find(member); found != case_.faults.end()) {
    const Fault& fault = found->second;
    throw RuntimeError(fault.number, fault.source, fault.description);
  }
}

Json RecordedSuite::ShowArguments(Arguments arguments) const {
  Json shown = Json::array();
  for (const Variant& argument : arguments) {
    const std::string* text = argument.TextIf();
    if (text != nullptr && !text->empty() && *text == case_.props) {
      shown.push_back(kPropsMark);
    } else {
      shown.push_back(Show(argument));
    }
  }
  return shown;
}

void RecordedSuite::WriteReplies(std::string_view member, Arguments arguments) const {
  const auto found = case_.replies.find(member);
  if (found == case_.replies.end()) return;
  for (const Variant& argument : arguments) {
    if (!argument.IsObject()) continue;
    const auto dictionary = std::dynamic_pointer_cast<Dictionary>(argument.ToObject());
    if (!dictionary) continue;
    JsonPlace(found->second).Members([&](std::string_view key, const JsonPlace& value) {
      dictionary->Set(key, ToAnswer(value));
    });
  }
}

Variant RecordedSuite::NextAnswer(std::string_view member) {
  const auto found = case_.answers.find(member);
  if (found == case_.answers.end()) return MakeEmptyRecordset();
  const Json& answer = found->second;
  if (!answer.is_array()) return ToAnswer(JsonPlace(answer));
  std::size_t& given = answered_[std::string(member)];
  if (given == answer.size()) return MakeEmptyRecordset();
  return ToAnswer(JsonPlace(answer[given++]));
}

Variant RecordedSuite::SharedProperty(Arguments arguments) {
  RaiseFault("GetProperty");
  const std::string name = arguments[1].ToText();
  if (EqualNames(name, "PropsString")) return case_.props;
  // The other properties of a login stand in its property string; one that does not is empty.
  try {
    return PropertyCollection(case_.props).Get(name);
  } catch (const RuntimeError& failure) {
    if (failure.Number() != error_number::kInvalidCall) throw;
    return {};
  }
}

Variant RecordedSuite::DeleteProperty(Arguments arguments) {
  RaiseFault("DelProperty");
  arguments[2] = Variant();
  return {};
}

Variant RecordedSuite::Profile(Arguments arguments) {
  RaiseFault("GetProfile");
  const auto found = case_.profile.find(Join(arguments[1].ToText(), "/", arguments[2].ToText()));
  return found == case_.profile.end() ? Variant(Null{}) : found->second;
}

Variant RecordedSuite::DataRight(Arguments arguments) {
  RaiseFault("GetDataRight");
  const auto found = case_.data_right.find(arguments[2].ToInt32());
  return found != case_.data_right.end() && found->second;
}

Variant RecordedSuite::Access(Arguments arguments) {
  RaiseFault("AccessCheck");
  const auto found =
      case_.access.find({arguments[0].ToInt32(), arguments[1].ToInt32(), arguments[2].ToInt32()});
  return found == case_.access.end() || found->second;
}

Variant RecordedSuite::Log(Arguments arguments) {
  recording_.log.push_back({Show(arguments[0]), Show(arguments[1]), Show(arguments[2])});
  RaiseFault("WriteLog");
  return {};
}

RecordsetRef RecordedSuite::ProfileRows(std::string_view sql) const {
  RecordsetRef rows = MakeRecordset();
  rows->AppendField("FCategory", FieldType::kVarChar, kValueSize);
  rows->AppendField("FKey", FieldType::kVarChar, kValueSize);
  rows->AppendField("FValue", FieldType::kVarChar, kValueSize);
  rows->Open();
  const std::optional<ProfileSelect> select = ParseProfileSelect(sql);
  for (const auto& [name, value] : case_.profile) {
    if (!select || !select->Matches(name)) continue;
    const std::size_t slash = name.find('/');
    rows->AddNew();
    rows->SetText(0, std::string_view(name).substr(0, slash));
    rows->SetText(1, std::string_view(name).substr(slash + 1));
    if (!value.IsNull()) rows->SetText(2, value.ToText());
    rows->Update();
  }
  if (rows->RecordCount() > 0) rows->MoveFirst();
  return rows;
}

RecordsetRef RecordedSuite::CurrencyScale() const {
  RecordsetRef rows = MakeRecordset();
  rows->AppendField("FScale", FieldType::kSmallInt, 0);
  rows->Open();
  if (case_.amount_scale) {
    rows->AddNew();
    rows->SetInt32(0, *case_.amount_scale);
    rows->Update();
    rows->MoveFirst();
  }
  return rows;
}

}  // namespace salerpt::shell
