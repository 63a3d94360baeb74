#include "suite/tsql/functions.h"

#include <algorithm>
#include <array>
#include <exception>

#include "suite/tsql/decimal.h"
#include "suite/tsql/error.h"
#include "suite/tsql/session.h"

namespace salerpt::tsql {
namespace {

unsigned char Folded(char c) {
  return static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
}

std::string_view WithoutBlanks(std::string_view text) {
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

// The body of a definition travels as a template argument would; SQLite offers one pointer, which is the
// state. So each definition gets a small record that lives as long as the registration.
struct Registration {
  FunctionState* state;
  FunctionBody body;
};

void Dispatch(sqlite3_context* context, int count, sqlite3_value** values) {
  for (int i = 0; i < count; ++i) {
    if (sqlite3_value_type(values[i]) == SQLITE_NULL) {
      sqlite3_result_null(context);
      return;
    }
  }
  const auto* registration = static_cast<const Registration*>(sqlite3_user_data(context));
  try {
    registration->body(Call(context, count, values));
  } catch (const TsqlError& error) {
    ReportFailure(context, error.Number(), error.Description());
  } catch (const std::exception& error) {
    // Nothing may fly through SQLite; what is not ours is a failure of the engine.
    ReportFailure(context, kNotSupported, error.what());
  }
}

// ts_sum<scale>(x): adds decimals exactly. The scale comes as user data. SQLite keeps a pointer for each
// group; its memory is not aligned for the sum itself.
void SumStep(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  const int type = sqlite3_value_type(values[0]);
  if (type == SQLITE_NULL) return;
  auto** sum = static_cast<ExactSum**>(sqlite3_aggregate_context(context, sizeof(ExactSum*)));
  if (sum == nullptr) return;
  if (*sum == nullptr) *sum = new ExactSum(*static_cast<const int*>(sqlite3_user_data(context)));
  if (type == SQLITE_INTEGER) {
    (*sum)->AddInteger(sqlite3_value_int64(values[0]));
  } else {
    (*sum)->Add(sqlite3_value_double(values[0]));
  }
}

void SumFinal(sqlite3_context* context) {
  auto** sum = static_cast<ExactSum**>(sqlite3_aggregate_context(context, 0));
  if (sum == nullptr || *sum == nullptr) return;
  sqlite3_result_double(context, (*sum)->Result());
  delete *sum;
}

// ts_one(x): the value of the only row; a second row is an error.
void OneStep(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  auto** kept = static_cast<sqlite3_value**>(sqlite3_aggregate_context(context, sizeof(sqlite3_value*)));
  if (kept == nullptr) return;
  if (*kept != nullptr) {
    ReportFailure(context, 512, std::string(kSubqueryRowsText));
    return;
  }
  *kept = sqlite3_value_dup(values[0]);
}

void OneFinal(sqlite3_context* context) {
  auto** kept = static_cast<sqlite3_value**>(sqlite3_aggregate_context(context, 0));
  if (kept == nullptr || *kept == nullptr) return;
  sqlite3_result_value(context, *kept);
  sqlite3_value_free(*kept);
}

int Collate(void* /*unused*/, int size_a, const void* a, int size_b, const void* b) {
  return CompareTexts({static_cast<const char*>(a), static_cast<std::size_t>(size_a)},
                      {static_cast<const char*>(b), static_cast<std::size_t>(size_b)});
}

}  // namespace

std::string_view Call::Text(int index) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(values_[index]));
  return {text == nullptr ? "" : text, static_cast<std::size_t>(sqlite3_value_bytes(values_[index]))};
}

void Call::Return(std::string_view value) const {
  sqlite3_result_text64(context_, value.data(), value.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

FunctionState& Call::State() const {
  return *static_cast<const Registration*>(sqlite3_user_data(context_))->state;
}

void ReportFailure(sqlite3_context* context, int number, const std::string& text) {
  FunctionState* state = static_cast<const Registration*>(sqlite3_user_data(context))->state;
  if (!state->failure) state->failure = FunctionState::Failure{number, text};
  sqlite3_result_error(context, text.c_str(), static_cast<int>(text.size()));
}

void RegisterFunction(sqlite3* connection, FunctionState& state, const FunctionDefinition& definition) {
  int flags = SQLITE_UTF8 | SQLITE_INNOCUOUS;
  if (definition.pure) flags |= SQLITE_DETERMINISTIC;
  sqlite3_create_function_v2(connection, definition.name, definition.arguments, flags,
                             new Registration{&state, definition.body}, &Dispatch, nullptr, nullptr,
                             [](void* registration) { delete static_cast<Registration*>(registration); });
}

int CompareTexts(std::string_view a, std::string_view b) {
  a = WithoutBlanks(a);
  b = WithoutBlanks(b);
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    if (a[i] == b[i]) continue;
    const int difference = Folded(a[i]) - Folded(b[i]);
    if (difference != 0) return difference;
  }
  return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

void RegisterAggregates(sqlite3* connection, FunctionState& state) {
  static const std::array<int, kMaxSumScale + 1> kScales = {0, 1, 2,  3,  4,  5,  6,  7,
                                                            8, 9, 10, 11, 12, 13, 14, 15};
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_INNOCUOUS | SQLITE_DETERMINISTIC;
  for (const int& scale : kScales) {
    const std::string name = "ts_sum" + std::to_string(scale);
    sqlite3_create_function_v2(connection, name.c_str(), 1, kFlags, const_cast<int*>(&scale), nullptr,
                               &SumStep, &SumFinal, nullptr);
  }
  sqlite3_create_function_v2(connection, "ts_one", 1, kFlags, new Registration{&state, nullptr}, nullptr,
                             &OneStep, &OneFinal,
                             [](void* registration) { delete static_cast<Registration*>(registration); });
}

void RegisterFunctions(sqlite3* connection, FunctionState& state) {
  RegisterTextFunctions(connection, state);
  RegisterNumberFunctions(connection, state);
  RegisterDateFunctions(connection, state);
  RegisterAggregates(connection, state);
  state.kept.Register(connection);
  // Text columns carry NOCASE, which SQLite compares with the blanks at the end. The server does not; texts
  // without such blanks, as account sets hold them, sort the same either way, so indexes stay good.
  sqlite3_create_collation_v2(connection, "NOCASE", SQLITE_UTF8, nullptr, &Collate, nullptr);
}

}  // namespace salerpt::tsql
