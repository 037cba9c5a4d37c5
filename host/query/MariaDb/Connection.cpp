#include "host/query/MariaDb/Connection.h"

#include <fmt/format.h>

#include "host/query/MariaDb/Flavour.h"
#include "host/query/RestrictedDatabase.h"

namespace zanhost {

namespace {

constexpr unsigned kConnectSeconds = 10;
/// The client's own limit for one statement or row; the server's is what counts.
constexpr unsigned long kGreatestPacket = 1UL << 30;

// Texts compare byte by byte, a backslash is a character like any other, || joins texts. A statement sees
// what others have committed when it begins, so that inserts which read the tables they write to lock no
// ranges.
// clang-format off
constexpr std::string_view kConfigure =
    "set names utf8mb4 collate utf8mb4_nopad_bin,"
    " session sql_mode = '{2}',"
    " session tx_isolation = 'READ-COMMITTED',"
    " session autocommit = 1,"
    " session tx_read_only = {3},"
    " session innodb_lock_wait_timeout = {0},"
    " session lock_wait_timeout = {0},"
    " session max_statement_time = {1}";
// clang-format on

TMariaDbLimits LimitsOf(TAccess access) {
  TMariaDbLimits limits;
  if (access == TAccess::Restricted) limits.Statement = kRestrictedStatement;
  return limits;
}

}  // namespace

TMariaDbConnection::TMariaDbConnection(TMariaDbUrl url, TAccess access)
    : FUrl(std::move(url)), FAccess(access), FLimits(LimitsOf(access)), FHandle(Connect()) {
  Configure();
}

TMySqlHandle TMariaDbConnection::Connect() const {
  TMySqlHandle handle(mysql_init(nullptr));
  if (handle == nullptr) throw TMariaDbFault{"There is not enough memory for a connection.", "no memory"};
  const my_bool off = 0;
  const unsigned noLocalFiles = 0;
  mysql_options(handle.get(), MYSQL_OPT_CONNECT_TIMEOUT, &kConnectSeconds);
  mysql_options(handle.get(), MYSQL_SET_CHARSET_NAME, "utf8mb4");
  mysql_options(handle.get(), MYSQL_OPT_RECONNECT, &off);
  mysql_options(handle.get(), MYSQL_OPT_LOCAL_INFILE, &noLocalFiles);
  mysql_options(handle.get(), MYSQL_OPT_MAX_ALLOWED_PACKET, &kGreatestPacket);
  const bool local = !FUrl.Socket.empty();
  const unsigned protocol = local ? MYSQL_PROTOCOL_SOCKET : MYSQL_PROTOCOL_TCP;
  mysql_options(handle.get(), MYSQL_OPT_PROTOCOL, &protocol);
  const unsigned long severalStatements = IsRestricted() ? 0 : CLIENT_MULTI_STATEMENTS;
  const MYSQL* connected =
      mysql_real_connect(handle.get(), local ? nullptr : FUrl.Host.c_str(), FUrl.User.c_str(),
                         FUrl.Password.c_str(), nullptr, FUrl.Port, local ? FUrl.Socket.c_str() : nullptr,
                         CLIENT_FOUND_ROWS | CLIENT_MULTI_RESULTS | severalStatements);
  if (connected == nullptr) throw Describe(ErrorOf(handle.get()));
  return handle;
}

void TMariaDbConnection::Configure() {
  Exec(fmt::format(kConfigure, FLimits.Busy.count(), FLimits.Statement.count(),
                   MariaDbFlavourOf(FUrl.Dialect).SqlMode, IsRestricted() ? 1 : 0));
}

void TMariaDbConnection::SetLimits(TMariaDbLimits limits) {
  FLimits = limits;
  if (!IsLost()) Configure();
}

void TMariaDbConnection::EnsureConnected() {
  if (!IsLost()) return;
  FDatabase.clear();
  FGreatestText = 0;
  FHandle = Connect();
  Configure();
}

bool TMariaDbConnection::IsInTransaction() const {
  unsigned status = 0;
  mariadb_get_infov(FHandle.get(), MARIADB_CONNECTION_SERVER_STATUS, &status);
  return (status & SERVER_STATUS_IN_TRANS) != 0;
}

void TMariaDbConnection::DropIfGone() {
  if (IsLost() || std::chrono::steady_clock::now() - FLastUsed < FLimits.Believed || IsInTransaction())
    return;
  ++FRoundTrips;
  if (mysql_ping(Handle()) != 0) FHandle.reset();
}

void TMariaDbConnection::Release() noexcept {
  if (!IsLost() && !IsInTransaction()) FHandle.reset();
}

void TMariaDbConnection::Use(const std::string& database) {
  EnsureConnected();
  if (FDatabase == database) return;
  FDatabase.clear();
  ++FRoundTrips;
  if (mysql_select_db(Handle(), database.c_str()) != 0) Raise();
  FDatabase = database;
}

std::size_t TMariaDbConnection::GreatestText() {
  if (FGreatestText != 0) return FGreatestText;
  Send("select @@max_allowed_packet");
  const TMySqlResultHandle result(mysql_store_result(Handle()));
  if (result == nullptr) Raise();
  // The packet holds the kind of the command before the text.
  FGreatestText = std::stoul(mysql_fetch_row(result.get())[0]) - 1;
  return FGreatestText;
}

TMySqlStatementHandle TMariaDbConnection::Prepare(std::string_view text) {
  TMySqlStatementHandle statement(mysql_stmt_init(Handle()));
  if (statement == nullptr) Raise();
  const my_bool measured = 1;
  mysql_stmt_attr_set(statement.get(), STMT_ATTR_UPDATE_MAX_LENGTH, &measured);
  ++FRoundTrips;
  if (mysql_stmt_prepare(statement.get(), text.data(), text.size()) != 0) Raise(statement.get());
  return statement;
}

void TMariaDbConnection::Execute(MYSQL_STMT* statement) {
  ++FRoundTrips;
  if (mysql_stmt_execute(statement) != 0) Raise(statement);
}

void TMariaDbConnection::Send(std::string_view text) {
  ++FRoundTrips;
  if (mysql_real_query(Handle(), text.data(), text.size()) != 0) Raise();
}

bool TMariaDbConnection::NextResult() {
  const int state = mysql_next_result(Handle());
  if (state > 0) Raise();
  return state == 0;
}

void TMariaDbConnection::Exec(std::string_view text) {
  Send(text);
  do {
    const TMySqlResultHandle result(mysql_store_result(Handle()));
    if (result == nullptr && mysql_field_count(Handle()) != 0) Raise();
  } while (NextResult());
}

TTextRows TMariaDbConnection::Ask(const std::string& statement) {
  Send(statement);
  const TMySqlResultHandle result(mysql_store_result(Handle()));
  if (result == nullptr && mysql_field_count(Handle()) != 0) Raise();
  TTextRows rows;
  if (result == nullptr) return rows;
  while (const MYSQL_ROW cells = mysql_fetch_row(result.get())) {
    std::vector<std::string>& row = rows.emplace_back();
    for (unsigned i = 0; i < result->field_count; ++i) row.emplace_back(cells[i] != nullptr ? cells[i] : "");
  }
  return rows;
}

void TMariaDbConnection::Raise() { Raise(ErrorOf(Handle())); }

void TMariaDbConnection::Raise(MYSQL_STMT* statement) { Raise(ErrorOf(statement)); }

TMariaDbFault TMariaDbConnection::Describe(const TMariaDbError& error) const {
  return DescribeFault(error, {FUrl.Server(), FUrl.User, static_cast<double>(FLimits.Busy.count()),
                               static_cast<double>(FLimits.Statement.count()), IsRestricted()});
}

void TMariaDbConnection::Raise(const TMariaDbError& error) {
  TMariaDbFault fault = Describe(error);
  if (fault.ConnectionLost) FHandle.reset();
  throw fault;
}

void TMariaDbConnection::BeginStatement() {
  const std::lock_guard lock(FRunningMutex);
  FRunningThread = mysql_thread_id(Handle());
}

void TMariaDbConnection::EndStatement() noexcept {
  const std::lock_guard lock(FRunningMutex);
  FRunningThread = 0;
  FLastUsed = std::chrono::steady_clock::now();
  if (!FInterruptSent) return;
  FInterruptSent = false;
  // The interrupt may have come when the statement had ended already: this one takes it in its place.
  if (FHandle != nullptr) mysql_query(Handle(), "do 0");
}

void TMariaDbConnection::Interrupt() noexcept {
  const std::lock_guard lock(FRunningMutex);
  if (FRunningThread == 0) return;
  try {
    const TMySqlHandle killer = Connect();
    const std::string text = fmt::format("kill query {}", FRunningThread);
    FInterruptSent = mysql_query(killer.get(), text.c_str()) == 0;
  } catch (const TMariaDbFault&) {
    // A server that lets nobody in cannot be told; the limit of time ends the statement.
  }
}

TMariaDbTransaction::TMariaDbTransaction(TMariaDbConnection& connection) : FConnection(connection) {
  FConnection.Exec(kBeginTransaction);
}

TMariaDbTransaction::~TMariaDbTransaction() {
  if (FOpen && !FConnection.IsLost()) mysql_query(FConnection.Handle(), "rollback");
}

void TMariaDbTransaction::Commit() {
  FConnection.Exec(kCommitTransaction);
  FOpen = false;
}

}  // namespace zanhost
