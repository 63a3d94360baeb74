#include "runtime/report_interfaces.h"

#include <array>

namespace salerpt {
namespace {

using Row = Member<Report>;

// --- The members. "Object" in a signature is a late-bound reference.

constexpr Row kRptIDGet{"RptID", InvokeKind::kGet, "() As Long",
                        [](Report& self, Arguments) -> Variant { return self.RptID(); }};
constexpr Row kRptIDLet{"RptID", InvokeKind::kLet, "(vData As Long)",
                        [](Report& self, Arguments arguments) -> Variant {
                          self.SetRptID(arguments[0].ToInt32());
                          return {};
                        },
                        1};
constexpr Row kFilterGet{"Filter", InvokeKind::kGet, "() As Dictionary",
                         [](Report& self, Arguments) -> Variant { return self.Filter(); }};
constexpr Row kFilterSet{"Filter", InvokeKind::kSet, "(vData As Dictionary)",
                         [](Report& self, Arguments arguments) -> Variant {
                           self.SetFilter(As<Dictionary>(arguments[0]));
                           return {};
                         },
                         1};
constexpr Row kExtFirter{"ExtFirter", InvokeKind::kLet, "(vData As String)",
                         [](Report& self, Arguments arguments) -> Variant {
                           self.SetExtFirter(arguments[0].ToText());
                           return {};
                         },
                         1};
constexpr Row kProperty{"Property", InvokeKind::kGet, "() As Dictionary",
                        [](Report& self, Arguments) -> Variant { return self.Property(); }};
constexpr Row kResult{"Result", InvokeKind::kGet, "() As Dictionary",
                      [](Report& self, Arguments) -> Variant { return self.Result(); }};
constexpr Row kHeader{"Header", InvokeKind::kGet, "() As Vector",
                      [](Report& self, Arguments) -> Variant { return self.Header(); }};
constexpr Row kTitle{"Title", InvokeKind::kGet, "() As Vector",
                     [](Report& self, Arguments) -> Variant { return self.Title(); }};
constexpr Row kRs{"Rs", InvokeKind::kGet, "() As Recordset",
                  [](Report& self, Arguments) -> Variant { return self.Rs(); }};
constexpr Row kRefresh{"Refresh", InvokeKind::kMethod, "()", [](Report& self, Arguments) -> Variant {
                         self.Refresh();
                         return {};
                       }};
constexpr Row kShowFilter{"ShowFilter",
                          InvokeKind::kMethod,
                          "(Optional AutoFilter As Boolean = False)",
                          [](Report& self, Arguments arguments) -> Variant {
                            self.ShowFilter(!arguments.empty() && arguments[0].ToBoolean());
                            return {};
                          },
                          0,
                          1};
constexpr Row kGetReportData{"GetReportData", InvokeKind::kMethod, "()",
                             [](Report& self, Arguments) -> Variant {
                               self.GetReportData();
                               return {};
                             }};
constexpr Row kGetRptList{"GetRptList", InvokeKind::kMethod, "() As Recordset",
                          [](Report& self, Arguments arguments) { return self.GetRptList(arguments); }};
constexpr Row kGetRptListOfPeriods{
    "GetRptList", InvokeKind::kMethod,
    "(iBeginYear As Integer, iBeginPeriod As Integer, iEndYear As Integer, iEndPeriod As Integer) As "
    "Recordset",
    [](Report& self, Arguments arguments) { return self.GetRptList(arguments); }, 4};
constexpr Row kGetDetailReport{
    "GetDetailReport", InvokeKind::kMethod, "(lRow As Long) As Object",
    [](Report& self, Arguments arguments) -> Variant { return self.GetDetailReport(arguments[0].ToInt32()); },
    1};
constexpr Row kPackMenuInfo{"PackMenuInfo", InvokeKind::kMethod, "() As Vector",
                            [](Report& self, Arguments) -> Variant { return self.PackMenuInfo(); }};
constexpr Row kGetRsBySQL{"GetRsBySQL", InvokeKind::kMethod,
                          "(strsql As String, dbrs As Recordset) As Boolean",
                          [](Report&, Arguments arguments) -> Variant {
                            RecordsetRef rows = As<Recordset>(arguments[1]);
                            const bool ok = Report::GetRsBySQL(arguments[0].ToText(), rows);
                            arguments[1] = rows;
                            return ok;
                          },
                          2};
constexpr Row kShowNoFilter{"ShowNoFilter", InvokeKind::kMethod, "()",
                            [](Report& self, Arguments) -> Variant {
                              self.ShowNoFilter();
                              return {};
                            }};

// --- The families, in interface order.

constexpr std::array kPeriodList = {
    kRptIDGet, kRptIDLet, kFilterGet, kFilterSet, kExtFirter,  kProperty,      kResult,
    kHeader,   kTitle,    kRs,        kRefresh,   kShowFilter, kGetReportData, kGetRptListOfPeriods};
constexpr std::array kList = {kRptIDGet, kRptIDLet,   kFilterGet,     kFilterSet, kExtFirter,
                              kProperty, kResult,     kHeader,        kTitle,     kRs,
                              kRefresh,  kShowFilter, kGetReportData, kGetRptList};
constexpr std::array kCredit = {kRptIDGet,  kRptIDLet, kPackMenuInfo, kFilterGet,     kFilterSet,
                                kExtFirter, kProperty, kResult,       kHeader,        kTitle,
                                kRs,        kRefresh,  kShowFilter,   kGetReportData, kGetRptList};
constexpr std::array kGrowth = {kRptIDGet,  kRptIDLet,   kPackMenuInfo, kExtFirter,    kFilterGet,
                                kFilterSet, kTitle,      kProperty,     kResult,       kHeader,
                                kRs,        kShowFilter, kRefresh,      kGetReportData};
constexpr std::array kFlow = {kRptIDGet,  kRptIDLet,   kPackMenuInfo, kExtFirter,    kTitle,
                              kFilterGet, kFilterSet,  kProperty,     kResult,       kHeader,
                              kRs,        kShowFilter, kRefresh,      kGetReportData};
constexpr std::array kDrillWithSql = {kRptIDGet,        kRptIDLet,   kExtFirter, kFilterGet,     kFilterSet,
                                      kTitle,           kProperty,   kResult,    kHeader,        kRs,
                                      kGetDetailReport, kShowFilter, kRefresh,   kGetReportData, kGetRsBySQL};
constexpr std::array kDrill = {kRptIDGet,        kRptIDLet,   kExtFirter, kFilterGet,    kFilterSet,
                               kTitle,           kProperty,   kResult,    kHeader,       kRs,
                               kGetDetailReport, kShowFilter, kRefresh,   kGetReportData};
constexpr std::array kStatistics = {kRptIDGet,   kRptIDLet, kExtFirter,    kFilterGet, kFilterSet,
                                    kTitle,      kProperty, kResult,       kHeader,    kRs,
                                    kShowFilter, kRefresh,  kGetReportData};
constexpr std::array kWarning = {kRptIDGet,   kRptIDLet, kExtFirter,     kFilterGet,   kFilterSet,
                                 kTitle,      kProperty, kResult,        kHeader,      kRs,
                                 kShowFilter, kRefresh,  kGetReportData, kShowNoFilter};
constexpr std::array kVirtualItem = {kRptIDGet,   kRptIDLet, kExtFirter,    kTitle,  kFilterGet,
                                     kFilterSet,  kProperty, kResult,       kHeader, kRs,
                                     kShowFilter, kRefresh,  kGetReportData};
constexpr std::array kFeeDetail = {kRptIDGet,   kRptIDLet, kFilterGet,    kFilterSet, kExtFirter,
                                   kTitle,      kProperty, kResult,       kHeader,    kRs,
                                   kShowFilter, kRefresh,  kGetReportData};
// Conditions can be set but not read back.
constexpr std::array kOutboundDetail = {kRptIDGet,  kRptIDLet,   kExtFirter, kTitle,
                                        kFilterSet, kProperty,   kResult,    kHeader,
                                        kRs,        kShowFilter, kRefresh,   kGetReportData};

struct Family {
  std::string_view class_name;
  std::span<const Row> members;
};
constexpr Family kFamilies[] = {
    {"Rpt147", kPeriodList},     {"Rpt134", kList},         {"Rpt192", kList},
    {"Rpt135", kList},           {"Rpt1010", kList},        {"Rpt137", kList},
    {"Rpt145", kCredit},         {"Rpt146", kCredit},       {"Rpt149", kCredit},
    {"Rpt140", kGrowth},         {"Rpt142", kFlow},         {"Rpt143", kFlow},
    {"Rpt128", kDrillWithSql},   {"Rpt136", kDrillWithSql}, {"Rpt138", kDrillWithSql},
    {"Rpt176", kDrillWithSql},   {"Rpt133", kDrill},        {"Rpt301", kDrill},
    {"Rpt303", kDrill},          {"Rpt126", kStatistics},   {"Rpt139", kStatistics},
    {"Rpt189", kWarning},        {"Rpt300", kVirtualItem},  {"Rpt302", kFeeDetail},
    {"Rpt129", kOutboundDetail},
};

}  // namespace

std::span<const Member<Report>> InterfaceOf(std::string_view class_name) {
  for (const Family& family : kFamilies) {
    if (EqualNames(family.class_name, class_name)) return family.members;
  }
  throw RuntimeError(error_number::kInvalidCall, "InterfaceOf",
                     Join("\"", class_name, "\" is not a report class"));
}

}  // namespace salerpt
