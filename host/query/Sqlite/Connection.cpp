#include "host/query/Sqlite/Connection.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <thread>

#include "host/query/RestrictedDatabase.h"
#include "host/query/Sqlite/Functions.h"

namespace zanhost {

namespace {

/// How many of SQLite's instructions run between two looks at the clock.
constexpr int kInstructionsBetweenChecks = 20'000;
/// The same where one of them may be a call that somebody made as costly as he could.
constexpr int kRestrictedInstructionsBetweenChecks = 100;

[[noreturn]] void RaiseOpening(const std::string& message) { throw zanrole::EDatabaseError(message, {}); }

/// For the whole process, before its first connection. The library's account of its memory stands behind one
/// lock, for which all connections would wait; nobody reads it.
void ConfigureLibrary() {
  [[maybe_unused]] static const int done = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
}

void MakeFolder(const std::filesystem::path& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error)
    RaiseOpening(fmt::format("The folder '{}' cannot be made: {}.", folder.string(), error.message()));
}

/// An empty file that only its owner reads; SQLite gives its side files the same rights.
void MakeFile(const std::string& file) {
  const int made = open(file.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (made >= 0) {
    close(made);
  } else if (errno != EEXIST) {
    RaiseOpening(fmt::format("The database '{}' cannot be made: {}.", file, std::strerror(errno)));
  }
}

void SeeThatFileExists(const std::filesystem::path& file) {
  if (!std::filesystem::is_directory(file.parent_path()))
    RaiseOpening(
        fmt::format("There is no folder '{}' and so no database in it.", file.parent_path().string()));
  if (!std::filesystem::exists(file))
    RaiseOpening(fmt::format("There is no database in the folder '{}': the file '{}' is missing.",
                             file.parent_path().string(), file.filename().string()));
}

}  // namespace

TSqliteConnection::TSqliteConnection(const std::string& file, TOpenMode mode, TAccess access) : FFile(file) {
  ConfigureLibrary();
  if (mode == TOpenMode::MustExist) {
    SeeThatFileExists(file);
  } else {
    MakeFolder(std::filesystem::path(file).parent_path());
    MakeFile(file);
  }
  if (std::filesystem::is_directory(file))
    RaiseOpening(fmt::format("'{}' is a folder, not a database.", file));
  try {
    Open(mode, access);
    Configure();
    if (access == TAccess::Restricted) Restrict();
  } catch (const TSqliteFault& fault) {
    RaiseOpening(fault.Message);
  }
}

void TSqliteConnection::Open(TOpenMode mode, TAccess access) {
  const int use = access == TAccess::Restricted ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
  const int create = mode == TOpenMode::CreateIfMissing ? SQLITE_OPEN_CREATE : 0;
  sqlite3* handle = nullptr;
  const int code = sqlite3_open_v2(FFile.c_str(), &handle, use | SQLITE_OPEN_NOMUTEX | create, nullptr);
  FHandle.reset(handle);
  Check(code);
}

void TSqliteConnection::Configure() {
  BeginStatement();
  sqlite3_extended_result_codes(Handle(), 1);
  sqlite3_busy_handler(Handle(), OnBusy, this);
  sqlite3_progress_handler(Handle(), kInstructionsBetweenChecks, OnProgress, this);
  // A name in double quotes that no column has is an error, not a text.
  sqlite3_db_config(Handle(), SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(Handle(), SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  // Statements are kept for other values: none is planned, or planned anew, for the values it has at first.
  sqlite3_db_config(Handle(), SQLITE_DBCONFIG_ENABLE_QPSG, 1, nullptr);
  Check(RegisterFunctions(Handle()));
  if (sqlite3_db_readonly(Handle(), "main") == 0) SwitchToWriteAheadLog();
  // What is acknowledged survives a loss of power.
  Exec("pragma synchronous = full");
  // KiB: questions about a large organisation find the upper levels of its tables in memory.
  Exec("pragma cache_size = -32768");
  // Patterns compare exactly, as = does.
  Exec("pragma case_sensitive_like = on");
}

void TSqliteConnection::Restrict() {
  Exec("pragma query_only = on");
  FLimits.Statement = kRestrictedStatement;
  FLimits.ResultValues = kRestrictedValues;
  FLimits.ResultBytes = kRestrictedBytes;
  sqlite3_progress_handler(Handle(), kRestrictedInstructionsBetweenChecks, OnProgress, this);
  FRestriction.emplace(Handle(), TableNames());
}

std::set<std::string> TSqliteConnection::TableNames() {
  const TStatementHandle list = Prepare("select name from sqlite_master where type = 'table'", false);
  std::set<std::string> names;
  while (Step(list.get())) names.emplace(reinterpret_cast<const char*>(sqlite3_column_text(list.get(), 0)));
  return names;
}

void TSqliteConnection::SwitchToWriteAheadLog() {
  // Where two sessions switch a new file at once SQLite tells one of them at once that it is busy, without
  // asking the busy handler, so the waiting is done here.
  int code = SQLITE_OK;
  int tries = 0;
  do {
    code = sqlite3_exec(Handle(), "pragma journal_mode = wal", nullptr, nullptr, nullptr);
  } while ((code & 0xff) == SQLITE_BUSY && KeepWaiting(tries++));
  Check(code);
}

void TSqliteConnection::BeginStatement(std::chrono::milliseconds limit) {
  FStatementLimit = limit;
  FClockStarted = false;
  FOutOfTime = false;
  FInterrupted.store(false, std::memory_order_relaxed);
  if (FRestriction) FRestriction->ForgetReason();
}

TStatementHandle TSqliteConnection::Prepare(std::string_view text, bool persistent) {
  sqlite3_stmt* prepared = nullptr;
  const char* behind = nullptr;
  Check(sqlite3_prepare_v3(Handle(), text.data(), static_cast<int>(text.size()),
                           persistent ? SQLITE_PREPARE_PERSISTENT : 0, &prepared, &behind));
  TStatementHandle statement(prepared);
  if (statement == nullptr) throw TSqliteFault{"There is no statement.", "no statement"};
  if (behind != text.data() + text.size())
    throw TSqliteFault{"There is more behind the end of the statement.", "more than one statement"};
  return statement;
}

bool TSqliteConnection::Step(sqlite3_stmt* statement) {
  const int code = sqlite3_step(statement);
  if (code == SQLITE_ROW) return true;
  if (code != SQLITE_DONE) Check(code);
  return false;
}

void TSqliteConnection::Exec(const char* text) {
  Check(sqlite3_exec(Handle(), text, nullptr, nullptr, nullptr));
}

void TSqliteConnection::Check(int code) {
  if (code != SQLITE_OK) throw DescribeFault(Handle(), code, Context());
}

void TSqliteConnection::Interrupt() noexcept {
  FInterrupted = true;
  sqlite3_interrupt(FHandle.get());
}

bool TSqliteConnection::KeepWaiting(int tries) {
  const TClock::time_point now = TClock::now();
  if (tries == 0) FWaitingSince = now;
  if (FInterrupted || now - FWaitingSince >= FLimits.Busy) return false;
  std::this_thread::sleep_for(std::chrono::milliseconds(std::min(1 + tries, 20)));
  return true;
}

bool TSqliteConnection::KeepRunning() {
  if (FInterrupted) return false;
  const TClock::time_point now = TClock::now();
  if (!FClockStarted) FRunningSince = now;
  FClockStarted = true;
  FOutOfTime = now - FRunningSince >= FStatementLimit;
  return !FOutOfTime;
}

TFaultContext TSqliteConnection::Context() const {
  const auto seconds = [](std::chrono::milliseconds time) {
    return std::chrono::duration<double>(time).count();
  };
  return {.File = FFile,
          .BusySeconds = seconds(FLimits.Busy),
          .StatementSeconds = seconds(FStatementLimit),
          .Interrupted = FInterrupted.load(),
          .OutOfTime = FOutOfTime,
          .Refusal = FRestriction ? FRestriction->Reason() : std::string()};
}

TSqliteTransaction::TSqliteTransaction(TSqliteConnection& connection) : FConnection(connection) {
  FConnection.Exec("begin immediate");
}

TSqliteTransaction::~TSqliteTransaction() {
  // SQLite has taken the transaction back itself after some faults.
  if (FOpen && sqlite3_get_autocommit(FConnection.Handle()) == 0)
    sqlite3_exec(FConnection.Handle(), "rollback", nullptr, nullptr, nullptr);
}

void TSqliteTransaction::Commit() {
  FConnection.Exec("commit");
  FOpen = false;
}

}  // namespace zanhost
