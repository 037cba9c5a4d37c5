#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "host/gateway/Session.h"

namespace zanhost {

/// The sessions of a gateway by their cookie.
class TSessions {
 public:
  /// `log` must outlive the sessions; `files` is an existing folder for what they upload and make.
  TSessions(asio::any_io_executor executor, TSessionSettings settings, std::size_t limit,
            std::filesystem::path files, TLog& log);

  /// Opens a session and gives its secret for the cookie; nothing when there are too many, or after EndAll.
  std::optional<std::string> Open(TOperator who);
  /// The session of a cookie's secret, null when there is none or it has ended.
  std::shared_ptr<TLoginSession> Find(std::string_view secret) const;
  /// Watches for idle and stuck sessions and forgets those that are gone. Never ends by itself.
  TTask<> Watch();
  /// Ends every session and opens no more. Returns when no worker is left, which by then are killed when they
  /// are late.
  TTask<> EndAll(std::string_view reason);

 private:
  void ForgetGone();

  asio::any_io_executor FExecutor;
  TSessionSettings FSettings;
  std::size_t FLimit;
  std::filesystem::path FFiles;
  TLog& FLog;
  // The secret's digest is the key, so the time of a search tells nothing about secrets.
  std::map<std::string, std::shared_ptr<TLoginSession>> FSessions;
  std::uint64_t FOpened = 0;
  bool FHasEnded = false;
};

}  // namespace zanhost
