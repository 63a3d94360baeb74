#include "shell/scripted/dialog_suite.h"

#include <algorithm>
#include <array>
#include <utility>

#include "runtime/text.h"
#include "shell/recorded/json_value.h"

namespace salerpt::shell {
namespace {

constexpr std::int32_t kTextSize = 4000;

// Objects whose calls are reads in the background: nothing that the user asked for.
constexpr std::string_view kBackgroundObjects[] = {
    "ORVEBCBASE.UserProfile", "ORVFrmRes.FrmResLoader", "ORVGLNameListLib.GLNameList",
    "ADODB.Connection",       "ORVMReport.ClsReport",   "ORVMPurchaseRpt.Data",
};
constexpr std::string_view kBackgroundMembers[] = {"GetSaleType", "GetItemPropDesc", "GetItemMaxLevel"};

template <typename Names>
bool IsAmong(const Names& names, std::string_view name) {
  return std::any_of(std::begin(names), std::end(names),
                     [name](std::string_view known) { return EqualNames(known, name); });
}

// What a look-up gave back: an object of late-bound members out of a case's object.
class PickedObject final : public Object {
 public:
  explicit PickedObject(Json fields) : fields_(std::move(fields)) {}
  [[nodiscard]] std::string_view ClassName() const override { return "ReturnObject"; }
  Variant Invoke(std::string_view member, InvokeKind /*kind*/, Arguments arguments) override {
    if (EqualNames(member, "Properties") || EqualNames(member, "Item")) {
      const std::string name = arguments.empty() ? std::string() : arguments[0].ToText();
      const Variant value = Field(name);
      return EqualNames(member, "Item")
                 ? Variant(std::make_shared<PickedObject>(Json{{"Value", Shown(name)}}))
                 : value;
    }
    return Field(member);
  }

 private:
  [[nodiscard]] const Json* Find(std::string_view name) const {
    for (auto member = fields_.begin(); member != fields_.end(); ++member) {
      if (EqualNames(member.key(), name)) return &member.value();
    }
    return nullptr;
  }
  [[nodiscard]] Json Shown(std::string_view name) const {
    const Json* found = Find(name);
    return found == nullptr ? Json() : *found;
  }
  // A field that the case does not give is empty.
  [[nodiscard]] Variant Field(std::string_view name) const {
    const Json* found = Find(name);
    return found == nullptr ? Variant() : ToScalar(JsonPlace(*found));
  }

  Json fields_;
};

// The look-up object behind it, whose `ReturnObject` is nothing where the user cancelled.
class LookUpObject final : public Object {
 public:
  explicit LookUpObject(std::optional<Json> picked) {
    if (picked) picked_ = std::make_shared<PickedObject>(std::move(*picked));
  }
  [[nodiscard]] std::string_view ClassName() const override { return "LookUp"; }
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) override {
    static constexpr std::array<Member<LookUpObject>, 2> kMembers{{
        {"ReturnObject", InvokeKind::kGet, "() As Object",
         [](LookUpObject& self, Arguments) -> Variant { return self.picked_; }},
        {"returnok", InvokeKind::kGet, "() As Boolean",
         [](LookUpObject& self, Arguments) -> Variant { return self.picked_ != nullptr; }},
    }};
    return Dispatch<LookUpObject>(*this, kMembers, member, kind, arguments);
  }

 private:
  ObjectRef picked_;
};

RecordsetRef TextRows(std::initializer_list<std::string_view> fields) {
  RecordsetRef rows = MakeRecordset();
  for (const std::string_view field : fields) rows->AppendField(field, FieldType::kVarChar, kTextSize);
  rows->Open();
  return rows;
}

RecordsetRef OnFirstRow(RecordsetRef rows) {
  if (rows->RecordCount() > 0) rows->MoveFirst();
  return rows;
}

RecordsetRef NamedRows(const std::vector<DialogCase::Named>& named) {
  RecordsetRef rows = MakeRecordset();
  rows->AppendField("FInterID", FieldType::kInteger, 0);
  rows->AppendField("FName", FieldType::kVarChar, kTextSize);
  rows->Open();
  for (const DialogCase::Named& row : named) {
    rows->AddNew();
    rows->SetInt32(0, row.id);
    rows->SetText(1, row.name);
    rows->Update();
  }
  return OnFirstRow(rows);
}

// One row of texts out of a case's object.
RecordsetRef OneRow(const Json& fields) {
  RecordsetRef rows = MakeRecordset();
  for (auto field = fields.begin(); field != fields.end(); ++field) {
    rows->AppendField(field.key(), FieldType::kVarChar, kTextSize);
  }
  rows->Open();
  rows->AddNew();
  int column = 0;
  for (const Json& value : fields) {
    const Variant cell = ToScalar(JsonPlace(value));
    if (!cell.IsNull()) rows->SetText(column, cell.TextOrEmpty());
    ++column;
  }
  rows->Update();
  return OnFirstRow(rows);
}

}  // namespace

DialogSuite::DialogSuite(const DialogCase& dialog_case)
    : case_(dialog_case), recorded_(std::make_shared<RecordedSuite>(dialog_case.suite)) {}

void DialogSuite::Register(Runtime& runtime, Date today) {
  today_ = today;
  recorded_->SetAnswerer([self = weak_from_this()](std::string_view prog_id, std::string_view member,
                                                   Arguments arguments) -> std::optional<Variant> {
    const auto suite = self.lock();
    return suite ? suite->Answer(prog_id, member, arguments) : std::nullopt;
  });
  recorded_->Register(runtime);
}

std::optional<Json> DialogSuite::NextLookUp() {
  picked_ = Json();
  if (next_look_up_ < case_.lookups.size()) picked_ = case_.lookups[next_look_up_++];
  return picked_.is_null() ? std::nullopt : std::optional(picked_);
}

Json DialogSuite::Calls() const {
  Json calls = Json::array();
  for (const Json& call : recorded_->Noted().calls) {
    const auto& object = call.at("object").get_ref<const std::string&>();
    const auto& member = call.at("member").get_ref<const std::string&>();
    if (!IsAmong(kBackgroundObjects, object) && !IsAmong(kBackgroundMembers, member)) calls.push_back(call);
  }
  return calls;
}

std::optional<Variant> DialogSuite::Answer(std::string_view prog_id, std::string_view member,
                                           Arguments arguments) {
  if (prog_id.ends_with("Rpt.Profile")) return AnswerPlans(member, arguments);
  if (EqualNames(prog_id, "ORVMSaleRpt.Data") || EqualNames(prog_id, "ORVMShopRpt.Data")) {
    return AnswerSaleData(member, arguments);
  }
  if (EqualNames(prog_id, "ORVEBCGLView.GLView"))
    return Variant(std::make_shared<LookUpObject>(NextLookUp()));
  if (EqualNames(prog_id, "ORVBaseList.BaseList") || EqualNames(prog_id, "ORVList.ICList")) {
    return AnswerList(prog_id, member);
  }
  if (EqualNames(prog_id, "ADODB.Connection")) return Variant("");
  if (EqualNames(prog_id, "ORVEBCBASE.UserProfile")) {
    if (EqualNames(member, "Load")) {
      loaded_settings_ = Join(arguments[0].ToText(), "/", arguments[1].ToText(), "/");
      return Variant(true);
    }
    auto settings = std::make_shared<Dictionary>();
    for (const auto& [place, value] : case_.settings) {
      if (place.starts_with(loaded_settings_)) settings->Set(place.substr(loaded_settings_.size()), value);
    }
    return Variant(std::move(settings));
  }
  if (EqualNames(member, "GetRsBySQL")) {
    const std::string sql = UpperCase(arguments[1].ToText());
    if (sql.find("FTYPEID =997") != std::string::npos) return Variant(NamedRows(case_.order_types));
    if (sql.find("GETDATE()") != std::string::npos)
      return Variant(OneRow(Json{{"Today", today_.Format('-')}}));
  }
  return std::nullopt;
}

// --- The plan store

std::optional<Variant> DialogSuite::AnswerPlans(std::string_view member, Arguments arguments) {
  if (EqualNames(member, "GetPlanList")) return Variant(PlanList());
  if (EqualNames(member, "GetPlanValue")) return Variant(PlanValues(arguments[2].ToText()));
  if (EqualNames(member, "SaveProfile")) {
    SavePlan(*As<Vector>(arguments[1]));
    return Variant();
  }
  if (EqualNames(member, "DelPlan")) {
    const std::string name = arguments[2].ToText();
    std::erase_if(case_.plans, [&name](const auto& plan) { return plan.first == name; });
    return Variant();
  }
  if (EqualNames(member, "FindChooseValue")) return Variant(MarkedPlan());
  return std::nullopt;
}

StoredPlan* DialogSuite::FindPlan(std::string_view name) {
  const auto found = std::find_if(case_.plans.begin(), case_.plans.end(),
                                  [name](const auto& plan) { return plan.first == name; });
  return found == case_.plans.end() ? nullptr : &found->second;
}

RecordsetRef DialogSuite::PlanList() const {
  RecordsetRef rows = MakeRecordset();
  rows->AppendField("FPlan", FieldType::kVarChar, kTextSize);
  rows->AppendField("FStatus", FieldType::kInteger, 0);
  rows->Open();
  for (const auto& [name, values] : case_.plans) {
    rows->AddNew();
    rows->SetText(0, name);
    rows->SetInt32(1, name == case_.chosen_plan ? 1 : 0);
    rows->Update();
  }
  return OnFirstRow(rows);
}

RecordsetRef DialogSuite::PlanValues(std::string_view plan) const {
  RecordsetRef rows = TextRows({"FKey", "FValue"});
  for (const auto& [name, values] : case_.plans) {
    if (name != plan) continue;
    for (const auto& [key, value] : values) {
      rows->AddNew();
      rows->SetText(0, key);
      if (value) rows->SetText(1, *value);
      rows->Update();
    }
  }
  return OnFirstRow(rows);
}

void DialogSuite::SavePlan(const Vector& rows) {
  StoredPlan values;
  std::string name;
  for (std::int32_t i = 1; i <= rows.Size(); ++i) {
    const auto row = As<Dictionary>(rows.Item(i));
    name = row->Get("Plan").ToText();
    values.emplace_back(row->Get("Key").ToText(), row->Get("Value").TextOrEmpty());
  }
  if (StoredPlan* stored = FindPlan(name)) {
    *stored = std::move(values);
  } else if (rows.Size() > 0) {
    case_.plans.emplace_back(name, std::move(values));
  }
}

std::string DialogSuite::MarkedPlan() const {
  for (const auto& [name, values] : case_.plans) {
    for (const auto& [key, value] : values) {
      if (EqualNames(key, "chkNextChoose") && value == "1") return name;
    }
  }
  return {};
}

// --- Boxes, levels, the number of a chosen bill

std::optional<Variant> DialogSuite::AnswerSaleData(std::string_view member, Arguments arguments) {
  if (EqualNames(member, "GetSaleType")) return Variant(NamedRows(case_.sale_types));
  if (EqualNames(member, "GetItemMaxLevel")) {
    const auto found = case_.item_max_level.find(arguments[1].ToInt32());
    return Variant(found == case_.item_max_level.end() ? std::int32_t{0} : found->second);
  }
  if (EqualNames(member, "GetItemPropDesc")) {
    auto descriptions = std::make_shared<Vector>();
    for (const Json& description : case_.property_descriptions) {
      descriptions->Add(ToConditions(JsonPlace(description)));
    }
    return Variant(std::move(descriptions));
  }
  if (EqualNames(member, "GetData") && picked_.is_object()) return Variant(OneRow(picked_));
  return std::nullopt;
}

// --- Lists: they open, and the user picks when they are shown (see ScriptedToolkit)

std::optional<Variant> DialogSuite::AnswerList(std::string_view prog_id, std::string_view member) {
  if (EqualNames(prog_id, "ORVBaseList.BaseList")) {
    if (!EqualNames(member, "Show")) return std::nullopt;
    const std::optional<Json> picked = NextLookUp();
    return picked ? Variant(OneRow(*picked)) : Variant(ObjectRef());
  }
  if (EqualNames(member, "Selected")) {
    auto rows = std::make_shared<Vector>();
    if (picked_.is_object()) rows->Add(std::make_shared<PickedObject>(picked_));
    return Variant(std::move(rows));
  }
  const bool is_question =
      EqualNames(member, "Load") || EqualNames(member, "IsOpened") || EqualNames(member, "IsSelected");
  if (is_question) return Variant(true);
  if (EqualNames(member, "GetListDes")) {
    auto description = std::make_shared<Dictionary>();
    description->Set("FName", "销售订单");
    return Variant(std::move(description));
  }
  return std::nullopt;
}

}  // namespace salerpt::shell
