#include "dialogs/frm_firter146.h"

namespace salerpt {

void FrmFirter146::MakeFields() {
  AddLabel("lblBDate", "起始日期:");
  AddDate("DtpBDate");
  AddLabel("lblEDate", "截止日期:");
  AddDate("DtpEDate");
  AddCreditTypes();
  AddCurrency();
}

// --- Confirmation

void FrmFirter146::WriteFilter() {
  const Currency currency = ResolveCurrency();
  filter_->Set("BDate", DateField("DtpBDate").Text());
  filter_->Set("EDate", DateField("DtpEDate").Text());
  filter_->Set("FCurrencyNumber", CodeField(kCurrency).Text());
  filter_->Set("FCurrencyID", currency.id);
  filter_->Set("FItemIDFrom", ObjectID(kBeginObject));
  filter_->Set("FItemIDTo", ObjectID(kEndObject));
  filter_->Set("FCreditClass", std::int32_t{CreditObject().ListIndex()});
  filter_->Set("FGroupID", std::int32_t{CreditType().ListIndex()});
  filter_->Set("CreditTypeName", CreditType().Text());
  filter_->Set("FExchangeRate", currency.rate);
  filter_->Set("FCurrencyName", currency.name);
  filter_->Set("CreditObj", std::int32_t{CreditObject().ListIndex()});
  filter_->Set("CreditTypeIndex", std::int32_t{CreditType().ListIndex()});
}

void FrmFirter146::WriteSettings() const {
  const auto chosen = [this](std::string_view key) { return filter_->Get(key).TextOrEmpty(); };
  WriteSetting("BDate", DateField("DtpBDate").Text());
  WriteSetting("EDate", DateField("DtpEDate").Text());
  WriteSetting("FCurrencyNumber", CodeField(kCurrency).Text());
  WriteSetting("FCurrencyID", chosen("FCurrencyID"));
  WriteSetting("FCurrencyName", chosen("FCurrencyName"));
  WriteSetting("FExchangeRate", chosen("FExchangeRate"));
  WriteSetting("BCustEmp", CodeField(kBeginObject).Text());
  WriteSetting("BCustEmpID", ObjectID(kBeginObject).TextOrEmpty());
  WriteSetting("ECustEmp", CodeField(kEndObject).Text());
  WriteSetting("ECustEmpID", ObjectID(kEndObject).TextOrEmpty());
  WriteSetting("CreditObj", Join(CreditObject().ListIndex()));
}

// --- Plans

void FrmFirter146::CollectPlan(std::string_view plan, Vector& rows) {
  PlanWriter writer(RptID(), plan, rows);
  writer.Code("FCurrency", CodeField(kCurrency));
  writer.Code("FItemIDFrom", CodeField(kBeginObject));
  writer.Code("FItemIDTo", CodeField(kEndObject));
  writer.Index("CreditObj", CreditObject());
  writer.Index("CreditType", CreditType());
}

void FrmFirter146::RestorePlan(const RecordsetRef& rows) {
  const PlanReader reader(rows);
  reader.Code("FCurrency", CodeField(kCurrency));
  reader.Code("FItemIDFrom", CodeField(kBeginObject));
  reader.Code("FItemIDTo", CodeField(kEndObject));
  reader.Index("CreditObj", CreditObject());
  reader.Index("CreditType", CreditType());
}

}  // namespace salerpt
