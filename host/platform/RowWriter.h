#pragma once

#include <initializer_list>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "host/query/Database.h"

namespace zanhost {

/// A query on the database that holds the table: definitions and menus lie in the system database.
std::unique_ptr<zanrole::TZANQuery> QueryOfTable(TDatabase& database, std::string_view table);

/// Inserts rows of one table one by one, by one prepared statement.
class TRowWriter {
 public:
  /// The database must outlive the writer.
  TRowWriter(TDatabase& database, std::string_view table, std::initializer_list<std::string_view> columns);
  /// REQUIRES: one value for each column. Raises EDatabaseError.
  void Add(std::initializer_list<zanrole::TZanValue> values);

 private:
  std::unique_ptr<zanrole::TZANQuery> FQuery;
};

/// A truth as the tables store it, 1 or 0.
inline zanrole::TZanValue Flag(bool truth) { return truth ? 1 : 0; }

/// Rows of a table of two numbers. Raises EDatabaseError.
void WritePairs(TDatabase& database, std::string_view table, std::string_view first, std::string_view second,
                const std::vector<std::pair<int, int>>& pairs);

}  // namespace zanhost
