// The 25 report classes: what is fixed for each of them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace salerpt {

// One row of the table of classes. The classes are independent of one another; the skeleton (`Report`) reads
// from here what differs between them and is data.
struct ReportClass {
  // "Rpt128"; the ProgID is "ORVSaleRpt." and the name.
  std::string_view name;
  // "Name" of `Property`.
  std::string_view title;
  // Default of the extended filter text: number of the filter plan family.
  std::string_view plan_family;
  // "RptProperty" of `Property`, handed to the host as it stands. 0 where the class decides it itself.
  std::int16_t rpt_property;
  // "DetailRptID" of `Property`; 0: the key is not written.
  std::int32_t detail_rpt_id;
  // Key and text of the usage log line; empty where ShowFilter writes none.
  std::string_view log_key;
  std::string_view log_text;
  // Class of the filter dialog.
  std::string_view dialog;
  // ShowFilter in the fuller form: log line, set-up, AutoFilter with the plan look-up.
  bool has_auto_filter;
  // Sets the name of the settings file when an object is made.
  bool sets_ini_file;
  // Class of the object that GetDetailReport makes; empty where a row has no detail.
  std::string_view drill_target;
  // What the report answers, in one English sentence: for `docs/reports.md` and whoever looks for a report.
  std::string_view purpose;
};

// All classes, by number.
std::span<const ReportClass> ReportClasses();
// A class by name, without regard to case; null where there is none.
const ReportClass* FindReportClass(std::string_view name);
// "ORVSaleRpt." and the name.
std::string ReportProgID(std::string_view class_name);

}  // namespace salerpt
