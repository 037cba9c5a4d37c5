#pragma once

#include <chrono>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace spdlog {
class logger;
}

namespace zanhost {

/// One operation that a person or a caller asked for. No field may hold a password.
struct TOperation {
  /// Tells the logins of one day apart; never a cookie.
  std::string Session;
  /// Login name of the operator; empty before a login.
  std::string Operator;
  std::string Name;
  /// "ok", or in words what went wrong.
  std::string Outcome;
  std::chrono::milliseconds Took{};
};

/// The log of an installation, FOLDER/log/zanhost.log: one line for each operation. Several processes may
/// write the same file; each line reaches it whole.
class TLog {
 public:
  /// Makes the folder when it is missing. Raises zanrole::EZanError when the file cannot be written.
  explicit TLog(const std::filesystem::path& folder);
  ~TLog();
  TLog(const TLog&) = delete;
  TLog& operator=(const TLog&) = delete;

  void Write(const TOperation& operation);

 private:
  std::shared_ptr<spdlog::logger> FLogger;
};

/// What the log says of a fault: of a failed statement the engine's message alone, since the statement may
/// carry a password.
std::string OutcomeOf(const std::exception& fault);

}  // namespace zanhost
