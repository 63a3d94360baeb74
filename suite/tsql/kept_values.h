// Values of correlated subqueries, kept by the columns of the outer row that they look at.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace salerpt::tsql {

// A batch may look the price of an item up for every line of the item. The tables that such a subquery reads
// stand still while its statement runs, so that the same outer columns give the same value: it is worked out
// once and kept until the next statement. Where hardly any value is asked for again, keeping ends.
// The translation writes
//   CASE ts_known(n, column, …) WHEN 1 THEN ts_known_value(n) ELSE ts_keep(n, (SELECT …)) END
// with a number n for each subquery of the statement.
class KeptValues {
 public:
  // Registers the three functions; the object must live as long as the connection uses them.
  void Register(sqlite3* connection);
  // Forgets everything: another statement begins.
  void Clear() { subqueries_.clear(); }

 private:
  struct Free {
    void operator()(sqlite3_value* value) const { sqlite3_value_free(value); }
  };
  using KeptValue = std::unique_ptr<sqlite3_value, Free>;
  struct Subquery {
    std::unordered_map<std::string, KeptValue> values;
    std::string key;  // of the row last asked for
    const sqlite3_value* found = nullptr;
    std::int64_t asked = 0;
    std::int64_t known = 0;
    bool pays = true;
  };

  Subquery& At(sqlite3_value* number);
  bool Find(Subquery& subquery, int count, sqlite3_value** columns);

  std::vector<Subquery> subqueries_;
};

}  // namespace salerpt::tsql
