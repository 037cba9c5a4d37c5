#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/query/Database.h"

namespace zantest {

inline void Execute(zanhost::TDatabase& database, std::string_view statement) {
  const auto query = database.GetQuery();
  query->SQL().SetText(std::string(statement));
  query->ExecSQL();
}

/// A column of the first row; empty without one.
inline std::string Text(zanhost::TDatabase& database, std::string_view statement, int column = 0) {
  const auto query = database.GetQuery();
  query->SQL().SetText(std::string(statement));
  query->Open();
  return query->Fields(column).AsString();
}

/// The first column of the first row; 0 without one.
inline int Number(zanhost::TDatabase& database, std::string_view statement) {
  const auto query = database.GetQuery();
  query->SQL().SetText(std::string(statement));
  query->Open();
  return query->Fields(0).AsInteger();
}

/// The first column of every row.
inline std::vector<std::string> Texts(zanhost::TDatabase& database, std::string_view statement) {
  const auto query = database.GetQuery();
  query->SQL().SetText(std::string(statement));
  std::vector<std::string> values;
  for (query->Open(); !query->Eof(); query->Next()) values.push_back(query->Fields(0).AsString());
  return values;
}

}  // namespace zantest
