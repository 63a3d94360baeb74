#include "performance_page/page.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <ctime>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>

namespace salerpt::bench {
namespace {

constexpr const char* kNotMeasured = "not measured";
constexpr std::array<const char*, 3> kSteps = {"10000", "100000", "1000000"};

// --- Figures as they are read

// Three digits, no more behind the point than they need.
std::string Short(double value) {
  if (value == 0) return "0";
  const int whole = static_cast<int>(std::floor(std::log10(std::abs(value)))) + 1;
  return fmt::format("{:.{}f}", value, std::clamp(3 - std::max(whole, 1), 0, 2));
}

std::string Thousands(double value) {
  std::string digits = fmt::format("{:.0f}", value);
  for (auto place = static_cast<std::ptrdiff_t>(digits.size()) - 3; place > 0; place -= 3) {
    digits.insert(static_cast<std::size_t>(place), ",");
  }
  return digits;
}

struct Unit {
  double nanoseconds;
  const char* name;
};
Unit UnitFor(double nanoseconds) {
  if (nanoseconds < 1e3) return {1, "ns"};
  if (nanoseconds < 1e6) return {1e3, "µs"};
  return nanoseconds < 1e9 ? Unit{1e6, "ms"} : Unit{1e9, "s"};
}

std::string Time(double nanoseconds) {
  const Unit unit = UnitFor(nanoseconds);
  return Short(nanoseconds / unit.nanoseconds) + " " + unit.name;
}

std::string TimesBetween(double least, double most) {
  const Unit unit = UnitFor(most);
  return fmt::format("{} to {} {}", Short(least / unit.nanoseconds), Short(most / unit.nanoseconds),
                     unit.name);
}

// --- The machine

std::string FirstLineWith(const char* file, std::string_view word) {
  std::ifstream in(file);
  for (std::string line; std::getline(in, line);) {
    if (line.starts_with(word)) return line.substr(line.find(':') + 1);
  }
  return {};
}

std::string Machine(const Figures& figures) {
  std::istringstream processor(FirstLineWith("/proc/cpuinfo", "model name"));
  std::string name;
  for (std::string word; processor >> word;) name += (name.empty() ? "" : " ") + word;
  std::istringstream memory(FirstLineWith("/proc/meminfo", "MemTotal"));
  double kibibytes = 0;
  memory >> kibibytes;
  return fmt::format("{} cores ({}), {:.0f} GiB, {} {}, load {:.1f} when it began",
                     std::thread::hardware_concurrency(), name, kibibytes / (1 << 20),
#if defined(__clang__)
                     "clang", __clang_major__,
#else
                     "g++", __GNUC__,
#endif
                     figures.load);
}

std::string Today() {
  const std::time_t now = std::time(nullptr);
  std::array<char, 16> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%d", std::localtime(&now));
  return text.data();
}

// --- The table of the reports

std::string StepCell(const Figure* step) {
  if (step == nullptr) return kNotMeasured;
  return step->error.empty() ? Time(step->nanoseconds) : step->error;
}

std::string GrowthCell(const Figure* before, const Figure* step) {
  if (before == nullptr || step == nullptr || !before->error.empty() || !step->error.empty()) return "";
  return "× " + Short(step->nanoseconds / before->nanoseconds);
}

// The last step that both did.
std::string PeerCell(const Figures& figures, const std::string& report) {
  for (auto step = kSteps.rbegin(); step != kSteps.rend(); ++step) {
    const Figure* ours = figures.Find(fmt::format("BM_Report/{}/{}", report, *step));
    const Figure* theirs = figures.Find(fmt::format("BM_ByHand/{}/{}", report, *step));
    if (ours == nullptr || theirs == nullptr || !ours->error.empty() || !theirs->error.empty()) continue;
    return fmt::format("{}: {}", Time(theirs->nanoseconds), Short(ours->nanoseconds / theirs->nanoseconds));
  }
  return "";
}

std::string ReportRow(const Figures& figures, const std::string& report) {
  std::array<const Figure*, kSteps.size()> steps{};
  for (std::size_t i = 0; i < kSteps.size(); ++i) {
    steps[i] = figures.Find(fmt::format("BM_Report/{}/{}", report, kSteps[i]));
  }
  const Figure* last = steps.back();
  const bool done = last != nullptr && last->error.empty();
  return fmt::format("| `{}` | {} | {} | {} | {} | {} | {} | {} | {} |\n", report, StepCell(steps[0]),
                     StepCell(steps[1]), GrowthCell(steps[0], steps[1]), StepCell(steps[2]),
                     GrowthCell(steps[1], steps[2]), done ? Thousands(last->counters.at("rows")) : "",
                     done ? Thousands(last->counters.at("peak_bytes") / 1e6) + " MB" : "",
                     PeerCell(figures, report));
}

// In the order of the numbers of the classes.
std::string ReportRows(const Figures& figures) {
  constexpr std::string_view kKind = "BM_Report/";
  std::vector<std::string> reports;
  for (const auto& [name, figure] : figures.by_name) {
    if (!name.starts_with(kKind)) continue;
    const std::string report = name.substr(kKind.size(), name.rfind('/') - kKind.size());
    if (std::find(reports.begin(), reports.end(), report) == reports.end()) reports.push_back(report);
  }
  std::stable_sort(reports.begin(), reports.end(), [](const std::string& a, const std::string& b) {
    return std::stoi(a.substr(3)) < std::stoi(b.substr(3));
  });
  std::string rows;
  for (const std::string& report : reports) rows += ReportRow(figures, report);
  if (!rows.empty()) rows.pop_back();  // the text has the end of the line
  return rows;
}

// --- Places

using Numbers = std::vector<double>;
struct Range {
  double least, most;
};
Range Bounds(const Numbers& numbers) {
  const auto [least, most] = std::minmax_element(numbers.begin(), numbers.end());
  return {*least, *most};
}

class Places {
 public:
  explicit Places(const Figures& figures) : figures_(figures) {}

  // Nothing where a figure is missing.
  std::string Fill(const std::vector<std::string>& words) const {
    const std::string& word = words.at(0);
    if (word == "date") return Today();
    if (word == "machine") return Machine(figures_);
    if (word == "reports") return ReportRows(figures_);
    const std::string& name = words.at(1);
    if (word == "time") return Of(TimesOf({figures_.Find(name)}), Time);
    if (word == "times") return Between(TimesOf(figures_.Under(name)), TimesBetween);
    if (word == "ratio") return Of(RatiosOf({figures_.Find(name)}, words.at(2)), Short);
    if (word == "ratios") return Between(RatiosOf(figures_.Under(name), words.at(2)), NumbersBetween);
    if (word == "count") return Of(CountsOf({figures_.Find(name)}, words.at(2)), Thousands);
    if (word == "counts") return Between(CountsOf(figures_.Under(name), words.at(2)), CountsBetween);
    throw std::runtime_error("{{" + word + " …}} is no place that this program fills");
  }

 private:
  static std::string Of(const Numbers& numbers, std::string (*text)(double)) {
    return numbers.empty() ? "" : text(numbers[0]);
  }
  static std::string Between(const Numbers& numbers, std::string (*text)(double, double)) {
    if (numbers.empty()) return {};
    const auto [least, most] = Bounds(numbers);
    return text(least, most);
  }
  static std::string NumbersBetween(double least, double most) { return Short(least) + " to " + Short(most); }
  static std::string CountsBetween(double least, double most) {
    return Thousands(least) + " to " + Thousands(most);
  }
  static Numbers TimesOf(const std::vector<const Figure*>& measured) {
    Numbers times;
    for (const Figure* figure : measured) {
      if (figure != nullptr && figure->error.empty()) times.push_back(figure->nanoseconds);
    }
    return times;
  }
  [[nodiscard]] Numbers RatiosOf(const std::vector<const Figure*>& measured, const std::string& peer) const {
    const Figure* other = figures_.Find(peer);
    if (other == nullptr || !other->error.empty()) return {};
    Numbers ratios = TimesOf(measured);
    for (double& ratio : ratios) ratio /= other->nanoseconds;
    return ratios;
  }
  static Numbers CountsOf(const std::vector<const Figure*>& measured, const std::string& counter) {
    Numbers counts;
    for (const Figure* figure : measured) {
      if (figure == nullptr) continue;
      const auto found = figure->counters.find(counter);
      if (found != figure->counters.end()) counts.push_back(found->second);
    }
    return counts;
  }

  const Figures& figures_;
};

}  // namespace

std::string FillPage(const std::string& text, const Figures& figures, std::vector<std::string>& missing) {
  const Places places(figures);
  std::string page;
  std::size_t at = 0;
  for (std::size_t open = text.find("{{"); open != std::string::npos; open = text.find("{{", at)) {
    const std::size_t close = text.find("}}", open);
    if (close == std::string::npos) throw std::runtime_error("a place without its end");
    page += text.substr(at, open - at);
    std::istringstream inside(text.substr(open + 2, close - open - 2));
    std::vector<std::string> words;
    for (std::string word; inside >> word;) words.push_back(word);
    const std::string figure = places.Fill(words);
    if (figure.empty()) missing.push_back(inside.str());
    page += figure.empty() ? kNotMeasured : figure;
    at = close + 2;
  }
  return page + text.substr(at);
}

}  // namespace salerpt::bench
