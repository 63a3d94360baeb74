#include "tests/suite/middletier/faulty_tier.h"

#include <algorithm>
#include <utility>

#include "runtime/dictionary.h"

namespace salerpt::middletier {
namespace {

constexpr const char* kProgIDs[] = {
    "ORVPropsMgr.ShareProps",
    "ORVEBSBase.SystemProfile",
    "ORVMReport.ClsReport",
    "ORVEBCGLView.GLData",
    "ORVConnection.AppConnection",
    "ORVEBSGLItem.ItemInfo",
    "ORVMPurchaseRpt.Data",
    "ORVMClass.ClassInfo",
    "ORVListServer.clsListServer",
    "ORVMCaculateRpt.Data",
    "ORVMSaleRpt.Data",
    "ORVMSaleCredit.clsGetData",
    "ORVMSystem.System",
    "ORVMCaculateRpt.Profile",
    "ORVMYWARAPRpt.Profile",
    "ORVEBCBASE.UserProfile",
    "ORVEBCGLView.GLView",
    "ORVBaseList.BaseList",
    "ORVList.ICList",
    "ORV_APFC.FrameData",
    "ORVFrmRes.FrmResLoader",
    "ORVBillDataAccess.SysInfo",
    "ADODB.Connection",
};

RecordsetRef SameFields(const Recordset& rows) {
  RecordsetRef same = MakeRecordset();
  for (int i = 0; i < rows.FieldCount(); ++i) {
    const FieldInfo& field = rows.Field(i);
    same->AppendField(field.name, field.type, field.size);
  }
  same->Open();
  return same;
}

}  // namespace

class FaultyTier::FaultyObject final : public Object {
 public:
  FaultyObject(std::shared_ptr<FaultyTier> tier, std::string prog_id, ObjectRef object)
      : tier_(std::move(tier)), prog_id_(std::move(prog_id)), object_(std::move(object)) {}
  [[nodiscard]] std::string_view ClassName() const override { return prog_id_; }
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) override {
    tier_->Count(Join(prog_id_, ".", member));
    Variant answer = object_->Invoke(member, kind, arguments);
    tier_->Answered(answer);
    if (answer.IsObject()) {
      if (const auto sets = std::dynamic_pointer_cast<Dictionary>(answer.ToObject())) {
        const DictionaryRef answered = sets->Copy();
        for (const Dictionary::Entry& entry : answered->Entries()) {
          Variant value = entry.value;
          tier_->Answered(value);
          sets->Set(entry.key, value);
        }
      }
    }
    for (Variant& argument : arguments) tier_->Answered(argument);
    return answer;
  }

 private:
  std::shared_ptr<FaultyTier> tier_;
  std::string prog_id_;
  ObjectRef object_;
};

void FaultyTier::Register(Runtime& runtime) {
  for (const std::string prog_id : kProgIDs) {
    const Runtime::ObjectMaker make = runtime.FindMaker(prog_id);
    if (!make) throw RuntimeError(error_number::kInvalidCall, "FaultyTier", prog_id + " is not registered");
    runtime.Register(prog_id, [tier = shared_from_this(), prog_id, make] {
      tier->Count(prog_id);
      const ObjectRef object = std::make_shared<FaultyObject>(tier, prog_id, make());
      tier->given_.push_back(object);
      return object;
    });
  }
}

void FaultyTier::Restart(int fail_at) {
  calls_.clear();
  fail_at_ = fail_at;
}

void FaultyTier::Count(const std::string& call) {
  calls_.push_back(call);
  if (static_cast<int>(calls_.size()) == fail_at_) throw RuntimeError(kNumber, kSource, kText);
}

void FaultyTier::Answered(Variant& value) {
  if (!value.IsObject()) return;
  auto rows = std::dynamic_pointer_cast<Recordset>(value.ToObject());
  if (!rows || !rows->IsOpen()) return;
  if (change_) change_(static_cast<int>(calls_.size()), rows);
  given_.push_back(rows);
  value = Variant(rows);
}

int FaultyTier::Alive() const {
  return static_cast<int>(
      std::count_if(given_.begin(), given_.end(), [](const auto& object) { return !object.expired(); }));
}

void TakeRowsAway(RecordsetRef& rows) {
  rows = SameFields(*rows);
}

void MakeNull(RecordsetRef& rows, const std::function<bool(const FieldInfo& field)>& is_null) {
  const RecordsetRef nulled = SameFields(*rows);
  if (rows->RecordCount() > 0) rows->MoveFirst();
  for (; !rows->Eof(); rows->MoveNext()) {
    nulled->AddNew();
    for (int i = 0; i < rows->FieldCount(); ++i) {
      if (!is_null(rows->Field(i))) nulled->SetValue(i, rows->Value(i));
    }
    nulled->Update();
  }
  if (nulled->RecordCount() > 0) nulled->MoveFirst();
  rows = nulled;
}

}  // namespace salerpt::middletier
