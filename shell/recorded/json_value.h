// From JSON to the values of the library.
#pragma once

#include "runtime/dictionary.h"
#include "runtime/recordset.h"
#include "shell/recorded/json_place.h"

namespace salerpt::shell {

// Null, booleans, texts; a whole number that fits becomes a 32-bit integer, any other a double. Raises for
// arrays and objects.
Variant ToScalar(const JsonPlace& place);

// Conditions of a report: scalars, and nested objects as dictionaries. Raises for arrays.
DictionaryRef ToConditions(const JsonPlace& place);

// What a middle-tier operation gives: scalars, `{"fields": …, "rows": …}` as a row set, any other object as a
// dictionary and any array as a vector of such. null is nothing.
Variant ToAnswer(const JsonPlace& place);

// A new row set, standing on its first row. Values are stored as their field's type: raises, with the place,
// for one that cannot be, and for a type number that is none of the known ones. Types that differ only in how
// a server stores them are held as one: all texts as 200, single as 5, 64-bit integers and decimals as 131,
// dates without a time as 7.
RecordsetRef ToRecordset(const JsonPlace& place);

}  // namespace salerpt::shell
