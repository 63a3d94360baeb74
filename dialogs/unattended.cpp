#include "dialogs/unattended.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "runtime/runtime.h"

namespace salerpt {
namespace {

// What other controls hang on comes first: the invoices' style fills the rows of "sum by", a row bounds the
// levels, the end level bounds the begin level.
constexpr std::string_view kFirst[] = {"InvoiceStyle", "GroupBy", "OnlyShowSum",
                                       "SumMode",      "ELevel",  "BLevel"};

std::ptrdiff_t Rank(const Dictionary::Entry& condition) {
  return std::find_if(std::begin(kFirst), std::end(kFirst),
                      [&](std::string_view key) { return EqualNames(key, condition.key); }) -
         std::begin(kFirst);
}

}  // namespace

void ConfirmWith(FormDialog& dialog, std::span<const Dictionary::Entry> chosen) {
  std::vector<const Dictionary::Entry*> in_order;
  for (const Dictionary::Entry& condition : chosen) in_order.push_back(&condition);
  std::stable_sort(in_order.begin(), in_order.end(),
                   [](const auto* a, const auto* b) { return Rank(*a) < Rank(*b); });
  std::vector<const Dictionary::Entry*> not_shown;
  for (const Dictionary::Entry* condition : in_order) {
    if (!dialog.Choose(condition->key, condition->value)) not_shown.push_back(condition);
  }
  if (PlanListPane* plans = dialog.Plans()) plans->KeepDefault(false);
  dialog.Confirm();
  const DictionaryRef filter = dialog.Filter();
  if (!filter || !filter->Get("OK").ToBoolean()) return;
  for (const Dictionary::Entry* condition : not_shown) filter->Set(condition->key, condition->value);
}

DictionaryRef ConfirmedFilter(std::string_view dialog, std::span<const Dictionary::Entry> chosen) {
  const std::unique_ptr<FilterDialog> made = Runtime::Current().MakeDialog(dialog);
  auto& form_dialog = dynamic_cast<FormDialog&>(*made);
  form_dialog.Load();
  ConfirmWith(form_dialog, chosen);
  return form_dialog.Filter();
}

}  // namespace salerpt
