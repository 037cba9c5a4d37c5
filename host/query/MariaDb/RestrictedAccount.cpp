#include "host/query/MariaDb/RestrictedAccount.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <map>
#include <utility>

#include "Frame/Host/Classes.h"
#include "host/query/MariaDb/Checks.h"
#include "host/query/SecretColumns.h"
#include "host/query/Tokens.h"

namespace zanhost {

namespace {

// The first version that can give a right to everybody.
constexpr std::pair kPublicRights{10, 11};

// clang-format off
constexpr char kReadColumns[] =
    "select c.table_name, c.column_name from information_schema.columns c"
    " inner join information_schema.tables t on t.table_schema = c.table_schema and t.table_name = c.table_name"
    " where c.table_schema = database() and t.table_type = 'BASE TABLE'"
    " order by c.table_name, c.ordinal_position";
// clang-format on

/// A line of `show grants`: "GRANT rights ON object TO account …". A role has no object.
class TGrant {
 public:
  /// `line` outlives the object.
  explicit TGrant(const std::string& line)
      : FTokens(Tokenize(line)),
        FOn(FindOuterWord(FTokens, "on", 0, FTokens.size())),
        FTo(FindOuterWord(FTokens, "to", 0, FTokens.size())) {}

  bool GivesNothing() const { return HasRights("usage"); }

  bool OnlyReads(const std::vector<std::string>& databases) const {
    const auto isObject = [&](const std::string& database) {
      return FOn + 1 < FTo && FTokens[FOn + 1].IsName() &&
             zanrole::SameText(FTokens[FOn + 1].Name(), database);
    };
    return HasRights("select") && std::any_of(databases.begin(), databases.end(), isObject);
  }

  /// Without the account, and what the server may tell of its password.
  std::string Shown() const {
    return TokensToText({FTokens.begin(), FTokens.begin() + static_cast<std::ptrdiff_t>(FTo)});
  }

 private:
  /// Nothing but this right, for some columns or all, and not to be handed on.
  bool HasRights(std::string_view right) const {
    const bool mayHandOn = FindOuterWord(FTokens, "option", FTo, FTokens.size()) != FTokens.size();
    if (FOn >= FTo || mayHandOn || !FTokens.front().IsWord("grant")) return false;
    for (std::size_t at = 1; at < FOn; ++at) {
      if (FTokens[at].IsOperator("("))
        at = ClosingBracket(FTokens, at);
      else if (!FTokens[at].IsWord(right))
        return false;
    }
    return true;
  }

  TTokens FTokens;
  std::size_t FOn;
  std::size_t FTo;
};

[[noreturn]] void Refuse(const TInspection& inspection, const std::string& what) {
  throw zanrole::EDatabaseError(
      fmt::format("The user '{}' of the database server {} {}. A restricted account has the rights that this "
                  "prints, and no others: zanhost restricted-account --data URL --account NAME",
                  inspection.User, inspection.Server, what),
      {});
}

void InspectGrants(const TInspection& inspection, const std::string& question) {
  for (const std::vector<std::string>& row : inspection.Ask(question)) {
    const TGrant grant(row.at(0));
    if (!grant.GivesNothing() && !grant.OnlyReads(inspection.Databases))
      Refuse(inspection, fmt::format("may do more than read tables of this program ({})", grant.Shown()));
  }
}

/// The server shows an account the columns on which it has a right.
void InspectColumns(const TInspection& inspection, const std::string& database) {
  const TTextRows columns =
      inspection.Ask("select table_name, column_name from information_schema.columns where table_schema = " +
                     zanrole::QuotedStr(database));
  for (const std::vector<std::string>& row : columns)
    if (IsSecretColumn(row[0], row[1]))
      Refuse(inspection, fmt::format("may read {}.{}, which may hold a password", row[0], row[1]));
}

using TColumns = std::vector<std::string>;

std::map<std::string, TColumns> ReadTables(zanrole::TZANQuery& query) {
  std::map<std::string, TColumns> tables;
  query.SQL().SetText(kReadColumns);
  for (query.Open(); !query.Eof(); query.Next())
    tables[query.Fields(0).AsString()].push_back(query.Fields(1).AsString());
  return tables;
}

/// What a select is granted on: "" for all columns of the table, "(a, b)" when some are secret.
std::string GrantedColumns(const std::string& table, const TColumns& columns) {
  TColumns granted;
  for (const std::string& column : columns)
    if (!IsSecretColumn(table, column)) granted.push_back(QuotedMariaDbName(column));
  return granted.size() == columns.size() ? "" : fmt::format(" ({})", fmt::join(granted, ", "));
}

std::string DatabaseInUse(zanrole::TZANQuery& query) {
  query.SQL().SetText("select database()");
  query.Open();
  return query.Fields(0).AsString();
}

std::string QuotedAccount(const std::string& account) {
  const std::size_t at = account.rfind('@');
  if (at == std::string::npos) return zanrole::QuotedStr(account);
  return zanrole::QuotedStr(account.substr(0, at)) + "@" + zanrole::QuotedStr(account.substr(at + 1));
}

void AppendGrants(std::vector<std::string>& grants, zanrole::TZANQuery& query, const std::string& account) {
  const std::string database = QuotedMariaDbName(DatabaseInUse(query));
  for (const auto& [table, columns] : ReadTables(query))
    grants.push_back(fmt::format("grant select{} on {}.{} to {}", GrantedColumns(table, columns), database,
                                 QuotedMariaDbName(table), QuotedAccount(account)));
}

}  // namespace

void InspectRestrictedAccount(const TInspection& inspection) {
  InspectGrants(inspection, "show grants");
  if (MariaDbVersion(inspection.Ask("select @@version").at(0).at(0)) >= kPublicRights)
    InspectGrants(inspection, "show grants for public");
  for (const std::string& database : inspection.Databases) InspectColumns(inspection, database);
}

std::vector<std::string> RestrictedAccountGrants(TDatabase& database, const std::string& account) {
  if (database.Server() == TServerKind::Sqlite)
    throw zanrole::EZanError("The embedded database needs no account: its file is opened for reading only.");
  if (database.Server() != TServerKind::MariaDb)
    throw zanrole::EZanError("A restricted account is made on a MariaDB server only.");
  std::vector<std::string> grants;
  const auto data = database.GetQuery();
  const auto system = database.GetSysQuery();
  AppendGrants(grants, *data, account);
  if (DatabaseInUse(*data) != DatabaseInUse(*system)) AppendGrants(grants, *system, account);
  return grants;
}

}  // namespace zanhost
