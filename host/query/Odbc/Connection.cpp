#include "host/query/Odbc/Connection.h"

namespace zanhost {

TOdbcConnection::TOdbcConnection(TOdbcUrl url, TOdbcConnector connector)
    : FUrl(std::move(url)), FConnector(connector) {
  Connect();
  FDatabase = Ask(std::string(FServer->DatabaseInUse)).at(0).at(0);
  FData = FUrl.Data.empty() ? FDatabase : FUrl.Data;
  FSystem = FUrl.System.empty() ? FData : FUrl.System;
}

void TOdbcConnection::Connect() {
  FDatabase.clear();
  FLink.reset();
  FLost = true;
  try {
    FLink = FConnector(FUrl.Connection);
  } catch (TOdbcError& error) {
    // Not every driver has a state of its own for a server that does not answer.
    if (error.State == "HY000") error.State = "08001";
    throw;
  }
  FLost = false;
  FServer = &FindOdbcServer(FLink->ProductName());
  Configure();
}

void TOdbcConnection::Configure() {
  for (const std::string& settings : FServer->SessionSettings(FLimits)) Exec(settings);
}

void TOdbcConnection::SetLimits(TOdbcLimits limits) {
  FLimits = limits;
  if (!FLost) Configure();
}

void TOdbcConnection::Use(const std::string& database) {
  if (FLost) Connect();
  if (FDatabase == database) return;
  FDatabase.clear();
  Exec(FServer->UseDatabase(database));
  FDatabase = database;
}

void TOdbcConnection::BeginTransaction() { FLink->BeginTransaction(); }

void TOdbcConnection::EndTransaction(bool keep) {
  ++FRoundTrips;
  FLink->EndTransaction(keep);
}

std::unique_ptr<TOdbcStatement> TOdbcConnection::NewStatement() {
  auto statement = FLink->NewStatement();
  if (FServer->DriverLimitsTime) statement->SetTimeLimit(FLimits.Statement);
  return statement;
}

void TOdbcConnection::Exec(const std::string& text) { Ask(text); }

void TOdbcConnection::ExecToTheEnd(std::string_view text) {
  ++FRoundTrips;
  FLink->NewStatement()->Execute(std::string(text));
}

TTextRows TOdbcConnection::Ask(const std::string& text) {
  const auto statement = NewStatement();
  Running(*statement, [&] { statement->Execute(text); });
  const TOdbcAnswer answer = statement->ReadAnswer(/*wanted*/ true);
  const TTokens tokens = Tokenize(text);
  while (FServer->MayHaveSeveralAnswers(tokens) && statement->NextAnswer()) statement->ReadAnswer(false);
  TTextRows rows;
  for (std::size_t cell = 0; cell < answer.Cells.Size(); ++cell) {
    if (cell % answer.Columns.size() == 0) rows.emplace_back();
    rows.back().push_back(answer.Cells.AsString(cell));
  }
  return rows;
}

TOdbcFault TOdbcConnection::Describe(const TOdbcError& error) {
  TOdbcFaultContext context{FUrl.Server(), FUrl.User(), FUrl.Password, FLimits, {}};
  if (FServer != nullptr) context.Troubles = FServer->Troubles;
  TOdbcFault fault = DescribeOdbcFault(error, context);
  if (fault.ConnectionLost) FLost = true;
  return fault;
}

void TOdbcConnection::BeginRun() {
  const std::lock_guard lock(FRunMutex);
  FInRun = true;
}

void TOdbcConnection::EndRun() noexcept {
  const std::lock_guard lock(FRunMutex);
  FInRun = false;
  if (!FInterrupted) return;
  FInterrupted = false;
  if (FLost || FServer->TakeLateInterrupt.empty()) return;
  try {
    // The interrupt may have come when the statement had ended already: this one takes it in its place.
    ExecToTheEnd(FServer->TakeLateInterrupt);
  } catch (const TOdbcError&) {
    // It was taken.
  }
}

void TOdbcConnection::Interrupt() noexcept {
  const std::lock_guard lock(FRunMutex);
  if (!FInRun) return;
  FInterrupted = true;
  if (FAtServer != nullptr) FAtServer->Cancel();
}

TOdbcConnection::TRunning::TRunning(TOdbcConnection& connection, TOdbcStatement& statement)
    : FConnection(connection) {
  const std::lock_guard lock(FConnection.FRunMutex);
  if (FConnection.FInterrupted) throw TOdbcFault{"The statement was cancelled.", "cancelled"};
  FConnection.FAtServer = &statement;
  ++FConnection.FRoundTrips;
}

TOdbcConnection::TRunning::~TRunning() {
  const std::lock_guard lock(FConnection.FRunMutex);
  FConnection.FAtServer = nullptr;
}

TOdbcTransaction::TOdbcTransaction(TOdbcConnection& connection) : FConnection(connection) {
  const std::string_view begin = FConnection.Server().Transaction.Begin;
  if (begin.empty()) {
    FConnection.BeginTransaction();
  } else {
    FConnection.Exec(std::string(begin));
  }
}

TOdbcTransaction::~TOdbcTransaction() {
  if (!FOpen || FConnection.IsLost()) return;
  try {
    End(/*keep*/ false);
  } catch (const TOdbcError&) {
    // The server takes back what belongs to a connection that ends.
    FConnection.NoteLost();
  }
}

void TOdbcTransaction::Commit() {
  End(/*keep*/ true);
  FOpen = false;
}

void TOdbcTransaction::End(bool keep) {
  const TOdbcTransactionTexts& texts = FConnection.Server().Transaction;
  if (texts.Begin.empty()) {
    FConnection.EndTransaction(keep);
  } else {
    FConnection.ExecToTheEnd(keep ? texts.Keep : texts.Undo);
  }
}

}  // namespace zanhost
