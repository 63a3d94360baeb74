#include "performance_page/figures.h"

#include <fstream>
#include <nlohmann/json.hpp>
#include <set>
#include <stdexcept>

namespace salerpt::bench {
namespace {

using Json = nlohmann::json;

constexpr std::string_view kWaysToRun[] = {
    "/iterations:", "/repeats:", "/min_time:", "/real_time", "/manual_time", "/process_time"};

std::string PlainName(std::string name) {
  for (const std::string_view way : kWaysToRun) {
    if (const std::size_t found = name.find(way); found != std::string::npos) name.resize(found);
  }
  return name;
}

double NanosecondsOf(const std::string& unit) {
  if (unit == "us") return 1e3;
  if (unit == "ms") return 1e6;
  return unit == "s" ? 1e9 : 1;
}

// What the library writes of each benchmark; every further number is a counter.
const std::set<std::string> kOwnNumbers = {"family_index", "per_family_instance_index",
                                           "repetitions",  "repetition_index",
                                           "threads",      "iterations",
                                           "real_time",    "cpu_time"};

Figure ReadFigure(const Json& entry) {
  Figure figure;
  if (entry.value("error_occurred", false)) {
    figure.error = entry.value("error_message", "it failed");
    return figure;
  }
  // Processor time, which does not wait for other work on the machine; where a program works in processes of
  // its own it says that the clock on the wall counts, or measures itself.
  const std::string name = entry.at("name").get<std::string>();
  const bool by_clock = name.find("/real_time") != std::string::npos ||
                        name.find("/manual_time") != std::string::npos || !entry.contains("cpu_time");
  figure.nanoseconds = entry.at(by_clock ? "real_time" : "cpu_time").get<double>() *
                       NanosecondsOf(entry.value("time_unit", "ns"));
  for (const auto& [key, value] : entry.items()) {
    if (value.is_number() && !kOwnNumbers.contains(key)) figure.counters[key] = value.get<double>();
  }
  return figure;
}

void ReadFile(const std::filesystem::path& file, Figures& figures) {
  std::ifstream in(file);
  const Json document = Json::parse(in, nullptr, false);
  if (document.is_discarded()) throw std::runtime_error(file.string() + " holds no figures");
  if (const Json load = document.value("/context/load_avg"_json_pointer, Json::array());
      figures.load < 0 && !load.empty()) {
    figures.load = load.at(0).get<double>();
  }
  for (const Json& entry : document.at("benchmarks")) {
    const std::string aggregate = entry.value("aggregate_name", "");
    if (!aggregate.empty() && aggregate != "median") continue;
    const std::string name = PlainName(entry.value("run_name", entry.at("name").get<std::string>()));
    // The median stands behind the runs that it is of.
    figures.by_name[name] = ReadFigure(entry);
  }
}

}  // namespace

const Figure* Figures::Find(std::string_view name) const {
  const auto found = by_name.find(std::string(name));
  return found == by_name.end() ? nullptr : &found->second;
}

std::vector<const Figure*> Figures::Under(std::string_view prefix) const {
  std::vector<const Figure*> under;
  for (auto at = by_name.lower_bound(std::string(prefix));
       at != by_name.end() && at->first.starts_with(prefix); ++at) {
    if (at->second.error.empty()) under.push_back(&at->second);
  }
  return under;
}

Figures ReadFigures(const std::vector<std::filesystem::path>& files) {
  Figures figures;
  for (const std::filesystem::path& file : files) ReadFile(file, figures);
  return figures;
}

}  // namespace salerpt::bench
