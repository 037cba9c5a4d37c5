#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include "Frame/Host/Zandbs.h"

namespace zanhost {

/// One statement as it ran.
struct TTraceEntry {
  std::string_view Database;  ///< "data" or "system"
  std::string_view Text;      ///< as the module wrote it
  std::string_view Sent;      ///< as adapted, with the values that were bound; empty when that is the same
  const zanrole::TParams* Params;     ///< null when the statement has none
  std::int64_t Rows = 0;              ///< rows of the result, or rows that were changed
  std::chrono::microseconds Time{0};  ///< from the call to its return
  std::string_view Error;             ///< the engine's message; empty when the statement succeeded
  std::string_view ErrorKind;         ///< the engine's name for this kind of error, free of values
  std::int64_t RoundTrips = 0;        ///< how often a server was waited for; 0 without a server
};

/// A file with one line of JSON for each statement:
///   {"database","text","sent"(when it differs),"params":{name: value},"rows","trips"(on a server),"us",
///    "error"(when it failed)}
/// What could be a password is hidden: of a statement that touches passwords, literals, text parameters and
/// the message.
class TTrace {
 public:
  /// Opens the file, readable by its owner only, and adds to its end. Raises EZanError when it cannot be
  /// opened.
  explicit TTrace(const std::string& file);
  ~TTrace();
  TTrace(const TTrace&) = delete;
  TTrace& operator=(const TTrace&) = delete;

  /// Adds one line by one write, so that several processes may share a file. A line that cannot be written is
  /// lost: the trace never ends the operation that it watches.
  void Write(const TTraceEntry& entry) noexcept;

 private:
  int FFile;
};

/// The line that is written for an entry, without its line break.
std::string TraceLine(const TTraceEntry& entry);

}  // namespace zanhost
