#include "host/platform/Numbering.h"

#include <algorithm>
#include <array>
#include <string>

namespace zanhost {

namespace {

// A counter of the organisation and the select of the highest number that its table holds.
struct TCounter {
  std::string_view Name;
  std::string_view HighestInUse;
};

// clang-format off
constexpr std::array kCounters{
    TCounter{"party",          "select max(DjLsh) from PartyH"},
    TCounter{"company",        "select max(Djlsh) from CompanyH"},
    TCounter{"department",     "select max(Djlsh) from DepartmentH"},
    TCounter{"positionentity", "select max(Djlsh) from PositionEntityH"},
    TCounter{"positionmap",    "select max(Djlsh) from PositionMapH"},
    TCounter{"user",           "select max(DjLsh) from UserH"},
};

// The table is asked at every draw: rows can come in past the counter (an import, a restored copy).
constexpr std::string_view kDrawHead =
    "insert into ZanCounter (Name, LastValue)\n"
    "values (:Name, coalesce((";
constexpr std::string_view kDrawTailSqlite =
    "), 0) + 1)\n"
    "on conflict (Name) do update set LastValue = max(LastValue + 1, excluded.LastValue)\n"
    "returning LastValue";
constexpr std::string_view kDrawTailMariaDb =
    "), 0) + 1)\n"
    "on duplicate key update LastValue = greatest(LastValue + 1, values(LastValue))\n"
    "returning LastValue";

// Holdlock keeps the place of the counter also while it is not there yet. The name stays out of the source: a
// column of the source would bring the database's collation, which is not that of the table.
constexpr std::string_view kDrawHeadSqlServer =
    "merge into ZanCounter with (holdlock) c\n"
    "using (select coalesce((";
constexpr std::string_view kDrawTailSqlServer =
    "), 0) + 1 Lowest) n\n"
    "on (c.Name = :Name)\n"
    "when matched then update\n"
    " set LastValue = case when c.LastValue >= n.Lowest then c.LastValue + 1 else n.Lowest end\n"
    "when not matched then insert (Name, LastValue) values (:Name, n.Lowest)\n"
    "output inserted.LastValue";

// No statement of Oracle changes a row and gives what it holds then: a function of the schema does both.
constexpr std::string_view kDrawHeadOracle =
    "select ZanNextNumber(:Name, coalesce((";
constexpr std::string_view kDrawTailOracle =
    "), 0) + 1) LastValue from dual";
// clang-format on

// The words around the select of the highest number in use.
struct TDrawStatement {
  std::string_view Head;
  std::string_view Tail;
};

TDrawStatement DrawStatementOf(TServerKind server) {
  switch (server) {
    case TServerKind::MariaDb:
      return {kDrawHead, kDrawTailMariaDb};
    case TServerKind::SqlServer:
      return {kDrawHeadSqlServer, kDrawTailSqlServer};
    case TServerKind::Oracle:
      return {kDrawHeadOracle, kDrawTailOracle};
    case TServerKind::Sqlite:
      break;
  }
  return {kDrawHead, kDrawTailSqlite};
}

// For a counter without a table.
std::string_view UnusedNumberOf(TServerKind server) {
  return server == TServerKind::Oracle ? "select 0 from dual" : "select 0";
}

std::string Folded(std::string_view name) {
  std::string folded(name);
  std::ranges::transform(folded, folded.begin(), [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  });
  return folded;
}

std::string DrawStatement(TServerKind server, std::string_view foldedName) {
  const auto counter = std::ranges::find(kCounters, foldedName, &TCounter::Name);
  const auto [head, tail] = DrawStatementOf(server);
  std::string statement(head);
  statement += counter == kCounters.end() ? UnusedNumberOf(server) : counter->HighestInUse;
  return statement += tail;
}

}  // namespace

int NewDjLsh(TDatabase& database, std::string_view name) {
  const std::string folded = Folded(name);
  const auto query = database.GetQuery();
  query->SQL().SetText(DrawStatement(database.Server(), folded));
  query->ParamByName("Name").AsString(folded);
  query->Open();
  return query->Fields(0).AsInteger();
}

}  // namespace zanhost
