#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "host/gateway/Coroutines.h"

namespace zanhost {

struct TPasswordChange {
  std::string Data;
  /// Empty for none.
  std::filesystem::path Trace;
  std::string Login;
  std::string Password;
};

/// Stores a new password as the program's own `passwd` command does, in a child: the gateway never loads the
/// module, which knows how passwords are stored. The password goes over the child's standard input. Gives
/// nothing when it was stored, otherwise why not. Raises std::system_error when the child cannot be started.
TTask<std::optional<std::string>> ChangePassword(asio::any_io_executor executor, TPasswordChange change);

}  // namespace zanhost
