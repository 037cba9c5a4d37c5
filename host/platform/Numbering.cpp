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
// clang-format on

std::string Folded(std::string_view name) {
  std::string folded(name);
  std::ranges::transform(folded, folded.begin(), [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  });
  return folded;
}

std::string DrawStatement(TServerKind server, std::string_view foldedName) {
  const auto counter = std::ranges::find(kCounters, foldedName, &TCounter::Name);
  std::string statement(kDrawHead);
  statement += counter == kCounters.end() ? std::string_view("0") : counter->HighestInUse;
  return statement += server == TServerKind::MariaDb ? kDrawTailMariaDb : kDrawTailSqlite;
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
