#include "dialogs/frm_firter145.h"

#include "dialogs/date_range.h"

namespace salerpt {
namespace {

constexpr int kBeginItem = 0;
constexpr int kEndItem = 1;

}  // namespace

void FrmFirter145::MakeFields() {
  AddLabel("lblBDate", "起始日期:");
  AddDate("DtpBDate");
  AddLabel("lblEDate", "截止日期:");
  AddDate("DtpEDate");
  AddCreditTypes();
  AddLabel("lblItem(0)", "物料代码:");
  AddCode(kBeginItem);
  AddLabel("lblTo", "至:");
  AddCode(kEndItem);
}

std::int32_t FrmFirter145::LookUpClass(int index) const {
  constexpr std::int32_t kItems = 4;
  return index == kBeginItem || index == kEndItem ? kItems : CreditObjectClass();
}

// --- Confirmation

bool FrmFirter145::AcceptRange() {
  return AcceptDateRange(form_);
}

void FrmFirter145::WriteFilter() {
  filter_->Set("BDate", DateField("DtpBDate").Text());
  filter_->Set("EDate", DateField("DtpEDate").Text());
  filter_->Set("FICItemIDFrom", CodeField(kBeginItem).Text());
  filter_->Set("FICItemIDTo", CodeField(kEndItem).Text());
  filter_->Set("FItemIDFrom", CodeField(kBeginObject).Text());
  filter_->Set("FItemIDTo", CodeField(kEndObject).Text());
  filter_->Set("FCreditClass", std::int32_t{CreditObject().ListIndex()});
  filter_->Set("FGroupID", std::int32_t{CreditType().ListIndex()});
  filter_->Set("CreditTypeName", CreditType().Text());
}

void FrmFirter145::WriteSettings() const {
  WriteSetting("BDate", DateField("DtpBDate").Text());
  WriteSetting("EDate", DateField("DtpEDate").Text());
  WriteSetting("BItem", CodeField(kBeginItem).Text());
  WriteSetting("EItem", CodeField(kEndItem).Text());
  WriteSetting("BCustEmp", CodeField(kBeginObject).Text());
  WriteSetting("ECustEmp", CodeField(kEndObject).Text());
  WriteSetting("CreditObj", Join(CreditObject().ListIndex()));
}

// --- Plans

void FrmFirter145::CollectPlan(std::string_view plan, Vector& rows) {
  PlanWriter writer(RptID(), plan, rows);
  writer.Code("FICItemIDFrom", CodeField(kBeginItem));
  writer.Code("FICItemIDTo", CodeField(kEndItem));
  writer.Code("FItemIDFrom", CodeField(kBeginObject));
  writer.Code("FItemIDTo", CodeField(kEndObject));
  writer.Index("CreditType", CreditType());
  writer.Index("CreditObj", CreditObject());
}

void FrmFirter145::RestorePlan(const RecordsetRef& rows) {
  const PlanReader reader(rows);
  reader.Code("FICItemIDFrom", CodeField(kBeginItem));
  reader.Code("FICItemIDTo", CodeField(kEndItem));
  reader.Code("FItemIDFrom", CodeField(kBeginObject));
  reader.Code("FItemIDTo", CodeField(kEndObject));
  reader.Index("CreditType", CreditType());
  reader.Index("CreditObj", CreditObject());
}

}  // namespace salerpt
