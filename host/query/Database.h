#pragma once

#include <string>
#include <string_view>

#include "Frame/Host/Zandbs.h"

namespace zanhost {

class TTrace;

/// The databases of one session: one connection, used by one thread at a time. It outlives its queries.
class TDatabase : public zanrole::TDatabaseServices {
 public:
  /// Writes a line for each statement from now on; null ends that. The trace is not owned and must outlive
  /// its use.
  virtual void SetTrace(TTrace* trace) = 0;

  /// Ends the statement that is running, which raises EDatabaseError; does nothing when none runs.
  /// May be called from any thread while the database lives.
  virtual void Interrupt() noexcept = 0;

  /// Runs a script statement by statement as it stands, with no adaptation; all of it or nothing as far as
  /// the engine can take definitions back. Raises EDatabaseError with the statement that failed.
  virtual void ExecScript(std::string_view script) = 0;

  /// Writes a consistent copy of all data to a new file while others go on working.
  /// Raises EDatabaseError, also when the file exists or the engine has no such means.
  virtual void BackupTo(const std::string& file) = 0;
};

}  // namespace zanhost
