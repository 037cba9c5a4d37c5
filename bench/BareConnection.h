#pragma once

#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zanbench {

/// A connection in SQLite's own interface on which each statement is prepared once, as the fastest program
/// would hold it.
class TBareConnection {
 public:
  explicit TBareConnection(const std::string& file) {
    sqlite3_open_v2(file.c_str(), &FConnection, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  }
  ~TBareConnection() {
    for (const auto& [text, statement] : FStatements) sqlite3_finalize(statement);
    sqlite3_close(FConnection);
  }
  TBareConnection(const TBareConnection&) = delete;
  TBareConnection& operator=(const TBareConnection&) = delete;

  /// The first column of all rows, each value followed by a comma. The parameter stands for every "?1".
  template <typename TParameter>
  std::string List(const std::string& text, const TParameter& parameter) {
    sqlite3_stmt* const statement = Bound(text, parameter);
    std::string list;
    while (sqlite3_step(statement) == SQLITE_ROW) list.append(Column(statement, 0)).append(",");
    sqlite3_reset(statement);
    return list;
  }
  /// The first columns of the first row; empty without a row.
  template <std::size_t Columns, typename TParameter>
  std::array<std::string, Columns> Row(const std::string& text, const TParameter& parameter) {
    sqlite3_stmt* const statement = Bound(text, parameter);
    std::array<std::string, Columns> row;
    if (sqlite3_step(statement) == SQLITE_ROW) {
      for (std::size_t i = 0; i < Columns; ++i) row[i] = Column(statement, static_cast<int>(i));
    }
    sqlite3_reset(statement);
    return row;
  }
  template <typename TParameter>
  std::string First(const std::string& text, const TParameter& parameter) {
    return Row<1>(text, parameter)[0];
  }

 private:
  static std::string_view Column(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return text == nullptr ? "" : text;
  }
  sqlite3_stmt* Bound(const std::string& text, std::string_view parameter) {
    sqlite3_stmt* const statement = Prepared(text);
    sqlite3_bind_text(statement, 1, parameter.data(), static_cast<int>(parameter.size()), SQLITE_STATIC);
    return statement;
  }
  sqlite3_stmt* Bound(const std::string& text, std::int64_t parameter) {
    sqlite3_stmt* const statement = Prepared(text);
    sqlite3_bind_int64(statement, 1, parameter);
    return statement;
  }
  sqlite3_stmt* Prepared(const std::string& text) {
    sqlite3_stmt*& statement = FStatements[&text];
    if (statement == nullptr)
      sqlite3_prepare_v3(FConnection, text.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    return statement;
  }

  sqlite3* FConnection = nullptr;
  /// By the address of the text: each is a constant of the program.
  std::unordered_map<const std::string*, sqlite3_stmt*> FStatements;
};

}  // namespace zanbench
