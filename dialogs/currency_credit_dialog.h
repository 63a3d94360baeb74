// The credit dialogs that convert into one currency: what `frmFirter146` and `frmFirter149` share.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "dialogs/credit_dialog.h"

namespace salerpt {

// `txtItem(0)` is the currency that amounts are converted into; empty, it is the base currency. The range of
// the credit object goes to the report as the ids that the look-ups gave, not as codes.
class CurrencyCreditDialog : public CreditDialog {
 protected:
  static constexpr int kCurrency = 0;
  struct Currency {
    Variant id;
    Variant rate;
    Variant name;
  };

  // `rate_key` is the key of the rate, in `Filter` and in what a currency look-up gives.
  CurrencyCreditDialog(std::string_view name, std::string_view rate_key)
      : CreditDialog(name), rate_key_(rate_key) {}

  // The currency field with its label.
  void AddCurrency();
  [[nodiscard]] std::int32_t LookUpClass(int index) const override;
  void OnPicked(int index, const ObjectRef& picked) override;
  // The currency in the field, which gets the code as the list of currencies has it. Where the list lacks the
  // code it is what the look-up gave, or, for a code typed by hand, the base currency.
  [[nodiscard]] Currency ResolveCurrency();
  // The id that a look-up gave for the code in a field of the credit object. Empty text for an empty field,
  // and for a code that no look-up has put there.
  [[nodiscard]] Variant ObjectID(int index) const;

 private:
  // What a look-up put into a field.
  struct PickedObject {
    std::string code;
    Variant id;
  };
  struct PickedCurrency {
    std::string code;
    Currency currency;
  };
  [[nodiscard]] std::optional<Currency> ReadCurrency();

  std::string_view rate_key_;
  std::array<PickedObject, 2> objects_;
  PickedCurrency picked_;
};

}  // namespace salerpt
