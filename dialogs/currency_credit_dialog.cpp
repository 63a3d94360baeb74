#include "dialogs/currency_credit_dialog.h"

#include "dialogs/ignoring.h"
#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"

namespace salerpt {

void CurrencyCreditDialog::AddCurrency() {
  AddLabel("Label4", "折算币别:");
  AddCode(kCurrency);
}

// --- Look-ups

std::int32_t CurrencyCreditDialog::LookUpClass(int index) const {
  constexpr std::int32_t kCurrencies = 12;
  return index == kCurrency ? kCurrencies : CreditObjectClass();
}

void CurrencyCreditDialog::OnPicked(int index, const ObjectRef& picked) {
  const std::string& code = CodeField(index).Text();
  // A property that the look-up does not have stays empty.
  const auto property = [&picked](std::string_view name) {
    Variant value;
    Ignoring([&] { value = Call(picked, "Properties", name); });
    return value;
  };
  if (index != kCurrency) {
    objects_.at(static_cast<std::size_t>(index - kBeginObject)) = {code, property("FItemID")};
    return;
  }
  picked_ = {code, {property("FCurrencyID"), property(rate_key_), property("FName")}};
  filter_->Set("FCurrencyID", picked_.currency.id);
  filter_->Set("FCurrencyName", picked_.currency.name);
  filter_->Set(rate_key_, picked_.currency.rate);
}

Variant CurrencyCreditDialog::ObjectID(int index) const {
  const std::string& code = CodeField(index).Text();
  const PickedObject& object = objects_.at(static_cast<std::size_t>(index - kBeginObject));
  const bool is_picked = !Trim(code).empty() && code == object.code;
  return is_picked ? object.id : Variant("");
}

// --- Currency

CurrencyCreditDialog::Currency CurrencyCreditDialog::ResolveCurrency() {
  constexpr std::int32_t kBaseCurrency = 1;
  const Currency base{kBaseCurrency, 1, ResText("本位币")};
  const std::string code = CodeField(kCurrency).Text();
  if (Trim(code).empty()) return base;
  if (const std::optional<Currency> read = ReadCurrency()) return *read;
  return code == picked_.code ? picked_.currency : base;
}

std::optional<CurrencyCreditDialog::Currency> CurrencyCreditDialog::ReadCurrency() {
  std::optional<Currency> currency;
  Ignoring([&] {
    TextBox& field = CodeField(kCurrency);
    const auto rows =
        As<Recordset>(Call(CreateObject("ORVConnection.AppConnection"), "Execute",
                           Join("select * From t_currency Where FNumber =", QuoteSql(field.Text()))));
    if (!rows || rows->RecordCount() == 0) return;
    rows->MoveFirst();
    const Currency found{rows->Value("FCurrencyID"), rows->Value("FExchangeRate"), rows->Value("FName")};
    field.SetText(rows->Value("FNumber").TextOrEmpty());
    currency = found;
  });
  return currency;
}

}  // namespace salerpt
