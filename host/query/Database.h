#pragma once

#include <string>
#include <string_view>

#include "Frame/Host/Zandbs.h"
#include "host/query/DialectFamily.h"

namespace zanhost {

class TTrace;

/// Which server runs the statements. The host's own statements go by it, those of the module by the dialect:
/// a server may be used in the dialect of another one.
enum class TServerKind { Sqlite, MariaDb, SqlServer, Oracle };

/// The databases of one session: one connection, used by one thread at a time. It outlives its queries.
class TDatabase : public zanrole::TDatabaseServices {
 public:
  /// The dialect that the module speaks here; from it comes what a host's databases offer for a dialect.
  virtual const TDialectFamily& Family() const = 0;

  virtual TServerKind Server() const = 0;

  zanrole::TDialect Dialect() const final { return Family().Dialect; }
  std::string ServerType() const final { return std::string(Family().ServerType); }
  std::unique_ptr<zanrole::TDBFieldHelper> GetDBFieldHelper() final { return Family().FieldHelper(); }
  std::unique_ptr<zanrole::TDBParamHelper> GetDBParamHelper() final { return Family().ParamHelper(); }
  std::unique_ptr<zanrole::TDBObjectHelper> GetDBObjectHelper() final { return Family().ObjectHelper(); }
  std::unique_ptr<zanrole::TDBTypesHelper> GetDBTypesHelper() final { return Family().TypesHelper(); }
  std::unique_ptr<zanrole::TDBFunctionsHelper> GetDBFunctionsHelper() final {
    return Family().FunctionsHelper();
  }
  std::unique_ptr<zanrole::TSelectSQLHelper> GetSelectSQLHelper() final { return Family().SelectHelper(); }

  /// Writes a line for each statement from now on; null ends that. The trace is not owned and must outlive
  /// its use.
  virtual void SetTrace(TTrace* trace) = 0;

  /// Ends the statement that is running, which raises EDatabaseError; does nothing when none runs.
  /// May be called from any thread while the database lives.
  virtual void Interrupt() noexcept = 0;

  /// To be called when nothing will be asked for a while: gives back what is held of a server, unless a
  /// transaction is open. The next statement takes it again.
  virtual void ReleaseIdle() noexcept {}

  /// Runs a script statement by statement as it stands, with no adaptation; all of it or nothing as far as
  /// the engine can take definitions back. Raises EDatabaseError with the statement that failed.
  virtual void ExecScript(std::string_view script) = 0;

  /// Writes a consistent copy of all data to a new file while others go on working.
  /// Raises EDatabaseError, also when the file exists or the engine has no such means.
  virtual void BackupTo(const std::string& file) = 0;
};

}  // namespace zanhost
