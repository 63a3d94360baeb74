// `MRpt`, `ORVPublic`, `CMFunction`: middle-tier access, system profile, quoting. Each operation makes its
// object, calls and releases it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/object.h"
#include "runtime/recordset.h"

namespace salerpt {

// --- SQL through `ORVMReport.ClsReport`
// Rows of a statement. A failure is raised again with source "ORVMReport.ClsReport:GetRsBySQL".
RecordsetRef GetRsBySQL(std::string_view sql);
// Runs a statement. A failure is raised again with source "ORVMReport.ClsReport:ExecuteSQL".
void ExecuteSQL(std::string_view sql);

// --- System profile and settings
// Periods of a fiscal year; 0 on any failure, on which a period report returns at once.
std::int32_t GetMaxPeriod();
// Tax rate as a fraction (17 becomes 0.17); 0 on any failure.
double GetTaxRate();
// True when the long code is in use: the short code is switched off. A null counts as switched on; true on
// any failure.
bool IsLongNumber();
// Decimals of the base currency; 2 where it has no row. Raises what the read raises.
std::int16_t AmountScale();
// `FValue` of a row of `t_systemprofile`: a null gives empty text, no row gives `absent`. Raises what the
// read raises.
std::string ReadSystemProfile(std::string_view category, std::string_view key, std::string_view absent);
// A setting of the user: a boolean where `absent` is one, otherwise text. Failures give `absent`.
Variant ReadUserSetting(std::string_view profile_name, std::string_view section, std::string_view key,
                        const Variant& absent);
// The test switch: section "Para", key "Debug" of C:\RptTest.Ini, 0 where it is not there.
std::int32_t ReadDebugSwitch();
// Removes a numbered property of this process from the property store.
void ClearProperty(std::int32_t id);

// --- The general-ledger object, `ORVEBCGLView.GLData`, made on first use and kept
ObjectRef GLDataObject();
// Whether the user has a right, named by its three numbers. Raises what the call raises.
bool AccessCheck(std::int32_t system, std::int32_t object, std::int32_t right);
// One line in the suite's log, through an object made for it. A failed line is lost without a word.
void WriteLog(std::string_view key, std::int32_t kind, std::string_view text);

// --- Values into SQL
// The one way in which a value enters an SQL text: null is empty; blanks trimmed on both sides; characters 0,
// 10 and 13 removed; apostrophes doubled; apostrophes before and after. Each step can be switched off.
std::string QuoteSql(const Variant& value, bool add_quotes = true, bool trim = true,
                     bool strip_control = true);
// The same without the removal of control characters.
std::string QuoteText(const Variant& value, bool add_quotes = true, bool trim = true);
// A value that stands bare in SQL, as a number: empty is 0. A text that is no number raises type mismatch,
// naming it, and never becomes SQL.
std::string SqlNumber(const Variant& value);

// --- Titles of message boxes
std::string NoticeTitle();                                  // "系统提示"
inline constexpr std::string_view kHintTitle = "青岚提示";  // given directly

}  // namespace salerpt
