#include "dialogs/period_fields.h"

#include <algorithm>
#include <array>
#include <utility>

#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/number_text.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

constexpr int kBeginYear = 0;
constexpr int kBeginPeriod = 1;
constexpr int kEndYear = 2;
constexpr int kEndPeriod = 3;
constexpr std::array<std::string_view, 4> kUpDowns = {"updBYear", "updBPeriod", "updEYear", "updEPeriod"};
constexpr std::int32_t kLastYear = 9999;

constexpr bool IsPeriod(int index) {
  return index % 2 == 1;
}

// A number of the system profile; 0 where it cannot be read: the dialog opens without a middle tier too.
std::int32_t ProfileNumber(std::string_view category, std::string_view key) {
  try {
    const ObjectRef profile = ObjectFactory::CreateServerObject("ORVEBSBase.SystemProfile");
    return Variant(Val(Call(profile, "GetProfile", GetPropsString(), category, key).TextOrEmpty())).ToInt32();
  } catch (const RuntimeError&) {
    return 0;
  }
}

std::int16_t ProfileInt16(std::string_view category, std::string_view key) {
  constexpr std::int32_t kMost = 32767;
  return static_cast<std::int16_t>(std::clamp(ProfileNumber(category, key), -kMost, kMost));
}

}  // namespace

PeriodFields::PeriodFields(Form& form, bool is_range) : form_(form), is_range_(is_range) {
  const int fields = is_range ? 4 : 2;
  for (int index = 0; index < fields; ++index) MakeField(index, kUpDowns[static_cast<std::size_t>(index)]);
}

void PeriodFields::MakeField(int index, std::string_view up_down) {
  constexpr std::size_t kPeriodDigits = 2;
  constexpr std::size_t kYearDigits = 4;
  auto& field = form_.Add<TextBox>(ControlName("txtPeriod", index));
  field.SetMaxLength(IsPeriod(index) ? kPeriodDigits : kYearDigits);
  field.GotFocus.Connect([&field] { field.SelectAll(); });
  field.Change.Connect([this, index] { OnChange(index); });
  field.Validate.Connect([this, index] { OnValidate(index); });
  field.LostFocus.Connect([this, index] { OnLostFocus(index); });
  field.KeyPress.Connect([](KeyStroke& key) {
    const bool is_digit = key.code >= '0' && key.code <= '9';
    if (!is_digit && key.code != key_code::kBackspace) key.code = 0;
  });
  auto& arrows = form_.Add<UpDown>(std::string(up_down));
  arrows.min = 1;
  arrows.max = IsPeriod(index) ? 12 : kLastYear;
}

void PeriodFields::ReadProfile() {
  period_count_ = ProfileInt16("GL", "PeriodCount");
  current_year_ = ProfileInt16("IC", "CurrentYear");
  current_period_ = ProfileInt16("IC", "CurrentPeriod");
  start_period_ = ProfileNumber("IC", "StartPeriod");
  start_year_ = ProfileNumber("IC", "StartYear");
  for (std::size_t index = 0; index < kUpDowns.size(); ++index) {
    auto* arrows = form_.FindAs<UpDown>(kUpDowns[index]);
    if (arrows == nullptr) continue;
    if (IsPeriod(static_cast<int>(index))) {
      arrows->max = period_count_;
    } else {
      arrows->min = start_year_;
    }
  }
}

double PeriodFields::Number(int index) const {
  return Val(Field(index).Text());
}

// A period beyond the calendar is corrected while it is typed; the text is marked, so that typing goes on in
// its place. Years are not touched while typing.
void PeriodFields::OnChange(int index) {
  if (!IsPeriod(index) || is_correcting_) return;
  const double value = Number(index);
  const double allowed = std::max(std::min(value, static_cast<double>(period_count_)), 1.0);
  if (value == allowed) return;
  is_correcting_ = true;
  Field(index).SetText(NumberText(allowed));
  is_correcting_ = false;
  Field(index).SelectAll();
}

void PeriodFields::OnValidate(int index) {
  const auto& arrows = form_.Get<UpDown>(kUpDowns[static_cast<std::size_t>(index)]);
  const double value = Number(index);
  if (value < arrows.min) {
    Field(index).SetText(Join(arrows.min));
  } else if (value > arrows.max) {
    Field(index).SetText(Join(arrows.max));
  }
}

// The end that was not touched follows the one that was.
void PeriodFields::OnLostFocus(int index) {
  if (!is_range_) return;
  const bool begin_changed = index == kBeginYear || index == kBeginPeriod;
  const int to_year = begin_changed ? kEndYear : kBeginYear;
  const int from_year = begin_changed ? kBeginYear : kEndYear;
  const int to_period = begin_changed ? kEndPeriod : kBeginPeriod;
  const int from_period = begin_changed ? kBeginPeriod : kEndPeriod;
  const auto follow = [this](int to, int from) { Field(to).SetText(std::string(Field(from).Text())); };
  if (Number(kEndYear) < Number(kBeginYear)) follow(to_year, from_year);
  if (Number(kEndYear) <= Number(kBeginYear) && Number(kEndPeriod) < Number(kBeginPeriod)) {
    follow(to_year, from_year);
    follow(to_period, from_period);
  }
}

}  // namespace salerpt
