#include "host/query/Sqlite/SqliteDatabase.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "host/query/Redaction.h"
#include "host/query/Sqlite/Helpers.h"
#include "host/query/Sqlite/SqliteQuery.h"

namespace zanhost {

using zanrole::EDatabaseError;

namespace {

constexpr std::size_t kCachedStatements = 256;

std::string FileOfFolder(const std::string& folder) {
  return (std::filesystem::absolute(folder) / "zanrole.db").lexically_normal().string();
}

}  // namespace

TSqliteDatabase::TSqliteDatabase(const std::string& folder, TOpenMode mode, TAccess access)
    : FAccess(access), FConnection(FileOfFolder(folder), mode, access), FCache(kCachedStatements) {}

const TDialectFamily& TSqliteDatabase::Family() const { return SqliteFamily(); }

std::unique_ptr<zanrole::TZANQuery> TSqliteDatabase::GetQuery() {
  return std::make_unique<TSqliteQuery>(*this, "data");
}
std::unique_ptr<zanrole::TZANQuery> TSqliteDatabase::GetSysQuery() {
  return std::make_unique<TSqliteQuery>(*this, "system");
}

void TSqliteDatabase::ExecScript(std::string_view script) {
  const char* at = script.data();
  const char* const end = at + script.size();
  std::string_view statement;
  try {
    FConnection.BeginStatement();
    TSqliteTransaction transaction(FConnection);
    while (at < end) {
      sqlite3_stmt* handle = nullptr;
      const char* behind = end;
      statement = std::string_view(at, static_cast<std::size_t>(end - at));
      FConnection.Check(
          sqlite3_prepare_v2(FConnection.Handle(), at, static_cast<int>(end - at), &handle, &behind));
      const TStatementHandle prepared(handle);
      statement = std::string_view(at, static_cast<std::size_t>(behind - at));
      FConnection.BeginStatement();
      while (prepared != nullptr && FConnection.Step(prepared.get())) {
      }
      at = behind;
    }
    transaction.Commit();
  } catch (const TSqliteFault& fault) {
    throw EDatabaseError(fault.Message, RedactStatement(statement));
  }
}

void TSqliteDatabase::BackupTo(const std::string& file) {
  const int made = open(file.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (made < 0)
    throw EDatabaseError(fmt::format("The file '{}' cannot be made: {}.", file, std::strerror(errno)), {});
  close(made);
  try {
    FConnection.BeginStatement(std::chrono::hours(24));
    const TStatementHandle copy = FConnection.Prepare("vacuum into ?", false);
    FConnection.Check(sqlite3_bind_text(copy.get(), 1, file.c_str(), -1, SQLITE_STATIC));
    FConnection.Step(copy.get());
  } catch (const TSqliteFault& fault) {
    unlink(file.c_str());
    throw EDatabaseError(fault.Message, {});
  }
}

}  // namespace zanhost
