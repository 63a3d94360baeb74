// A filter dialog run from the text of a case, and what came of it in the forms that tests compare.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/recorded/json_place.h"

namespace salerpt::shell {

// --- Runs; the case is a JSON text as `salerpt dialog` reads it

// On 15 March 2024, with three class levels of customers and four of items, and three sale styles; what the
// case gives itself stands in place of these.
Json Ran(std::string_view dialog, std::string_view case_text);
// On 5 March 2024, where the case does not say, and with nothing but what the case gives.
Json RanBare(std::string_view dialog, std::string_view case_text = "{}");

// --- The filter

// Keys in their order; the keys of "SumField", which no order is promised for, in the alphabet's.
std::string Filter(const Json& ran);
// An expected filter in the same form.
std::string InOrder(std::string_view text);
// "(no such key)" where it has none.
Json FilterValue(const Json& ran, std::string_view key);

// --- Plans

// "128/plan" and then "Key=Value" of each row, for each plan saved.
std::vector<std::vector<std::string>> SavedPlans(const Json& ran);
// The last one; empty where none was saved.
std::vector<std::string> SavedPlan(const Json& ran);
// The last one as the lines of an object: "plan" and "family", then each key of the rows. Empty where none
// was saved.
std::string SavedLines(const Json& ran);
// An expected object in the same form.
std::string Lines(std::string_view object_text);
// The sort grid of a state: "caption/ascending/descending/field".
std::vector<std::string> SortRows(const Json& state);

// --- Calls of the suite

// Members called in order, with their last argument where it is a text: "DelPlan 月报".
std::vector<std::string> Calls(const Json& ran);
// Members called in order, with their objects: "ORVMSaleRpt.Data.GetData".
std::vector<std::string> Members(const Json& ran);
// The arguments of each call of a member, as compact texts.
std::vector<std::string> ArgumentsOf(const Json& ran, std::string_view member);

// --- Controls, as the dialog was left or in a state that a step wrote down

const Json& Shown(const Json& ran, std::string_view control);
const Json& Shown(const Json& ran, std::string_view state, std::string_view control);
std::string Text(const Json& ran, std::string_view control);
std::string Text(const Json& ran, std::string_view state, std::string_view control);
// Texts and data of the rows: [["全部",0],["未钩稽",0]].
std::string Items(const Json& ran, std::string_view control);
// Their texts alone.
std::vector<std::string> ItemTexts(const Json& ran, std::string_view control);
// Of all controls.
std::vector<std::string> Captions(const Json& ran);

// --- Boxes

// "text | title | style" of each message box.
std::vector<std::string> Boxes(const Json& ran);
// "prompt | title" of each input box.
std::vector<std::string> Inputs(const Json& ran);

}  // namespace salerpt::shell
