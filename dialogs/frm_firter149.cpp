#include "dialogs/frm_firter149.h"

namespace salerpt {

void FrmFirter149::MakeFields() {
  AddLabel("Label5", "计算日期:");
  AddDate("DtpFDate");
  AddCurrency();
}

// --- Confirmation

void FrmFirter149::WriteFilter() {
  const Currency currency = ResolveCurrency();
  filter_->Set("FDate", DateField("DtpFDate").Text());
  filter_->Set("FItemIDFrom", ObjectID(kBeginObject));
  filter_->Set("FItemIDTo", ObjectID(kEndObject));
  // Kept: the key's spelling; the middle tier and hosts know it so.
  filter_->Set("FCurrentcyID", CodeField(kCurrency).Text());
  filter_->Set("FCreditClass", std::int32_t{CreditObject().ListIndex()});
  // Kept: the credit object under the name of the credit type; the report's title shows it there.
  filter_->Set("CreditTypeName", CreditObject().Text());
  filter_->Set("FCurrencyID", currency.id);
  filter_->Set("FRate", currency.rate);
  filter_->Set("FCurrencyName", currency.name);
  filter_->Set("CreditObj", std::int32_t{CreditObject().ListIndex()});
}

// --- Plans

void FrmFirter149::CollectPlan(std::string_view plan, Vector& rows) {
  PlanWriter writer(RptID(), plan, rows);
  writer.Code("FCurrency", CodeField(kCurrency));
  writer.Code("FItemIDFrom", CodeField(kBeginObject));
  writer.Code("FItemIDTo", CodeField(kEndObject));
  writer.Day("FDate", DateField("DtpFDate"));
  writer.Index("CreditObj", CreditObject());
}

void FrmFirter149::RestorePlan(const RecordsetRef& rows) {
  const PlanReader reader(rows);
  reader.Code("FCurrency", CodeField(kCurrency));
  reader.Code("FItemIDFrom", CodeField(kBeginObject));
  reader.Code("FItemIDTo", CodeField(kEndObject));
  reader.Day("FDate", DateField("DtpFDate"));
  reader.Index("CreditObj", CreditObject());
}

}  // namespace salerpt
