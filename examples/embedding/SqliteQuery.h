#pragma once

#include <sqlite3.h>

#include "Frame/Host/Zandbs.h"

using namespace zanrole;

/// A query object over SQLite's C interface. It sends statements as the module wrote them.
class TSqliteQuery final : public TZANQuery {
 public:
  explicit TSqliteQuery(sqlite3* database) : FDatabase(database) {}
  void Open() override { Run(); }
  void ExecSQL() override { Run(); }

 private:
  [[noreturn]] void Fail() { throw EDatabaseError(sqlite3_errmsg(FDatabase), SQL().Text()); }

  void Run() {
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(FDatabase, SQL().Text().c_str(), -1, &prepared, nullptr) != SQLITE_OK) Fail();
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(prepared, &sqlite3_finalize);
    for (const TParam& param : Params()) Bind(prepared, param);
    std::vector<std::string> columns;
    const int width = sqlite3_column_count(prepared);
    for (int i = 0; i < width; ++i) columns.emplace_back(sqlite3_column_name(prepared, i));
    TZanCells cells;
    int step = sqlite3_step(prepared);
    for (; step == SQLITE_ROW; step = sqlite3_step(prepared))
      for (int i = 0; i < width; ++i) AddCell(cells, prepared, i);
    if (step != SQLITE_DONE) Fail();
    DataSet().Load(columns, std::move(cells));
  }

  /// A null is bound already. Truths and numbers of these questions are integers.
  static void Bind(sqlite3_stmt* statement, const TParam& param) {
    const int place = sqlite3_bind_parameter_index(statement, (":" + param.Name()).c_str());
    if (std::holds_alternative<std::int64_t>(param.Value()))
      sqlite3_bind_int64(statement, place, std::get<std::int64_t>(param.Value()));
    else if (!std::holds_alternative<std::monostate>(param.Value()))
      sqlite3_bind_text(statement, place, ValueAsString(param.Value()).c_str(), -1, SQLITE_TRANSIENT);
  }

  static void AddCell(TZanCells& cells, sqlite3_stmt* statement, int column) {
    const int type = sqlite3_column_type(statement, column);
    if (type == SQLITE_NULL) return cells.AddNull();
    if (type == SQLITE_INTEGER) return cells.AddInteger(sqlite3_column_int64(statement, column));
    cells.AddText(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
  }
  sqlite3* FDatabase;
};
