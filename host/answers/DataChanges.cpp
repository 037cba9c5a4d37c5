#include "host/answers/DataChanges.h"

#include <utility>

namespace zanhost {

namespace {

constexpr std::chrono::seconds kLongestTold{1};

/// A number that changes with each commit of another connection.
constexpr const char* kVersion = "pragma data_version";

}  // namespace

TDataChanges::TDataChanges(TDatabase& database)
    : FDatabase(database), FTells(database.Server() == TServerKind::Sqlite) {
  Noticed();
}

bool TDataChanges::Noticed() {
  if (!FTells) return false;
  const std::unique_ptr<zanrole::TZANQuery> query = FDatabase.GetQuery();
  query->SQL().SetText(kVersion);
  query->Open();
  const int version = query->FieldByName("data_version").AsInteger();
  return std::exchange(FVersion, version) != version;
}

bool TDataChanges::IsTooOld(std::chrono::steady_clock::time_point read) const {
  return !FTells && std::chrono::steady_clock::now() - read > kLongestTold;
}

}  // namespace zanhost
