#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/query/DataUrl.h"

namespace zanhost {

/// The rows of a statement as texts, nulls as empty ones; no rows for one that gives none.
using TTextRows = std::vector<std::vector<std::string>>;

/// What is looked at when a session connects: whether server and databases are as the host needs them.
struct TInspection {
  std::function<TTextRows(const std::string& statement)> Ask;
  std::string Server;  ///< for messages
  std::string User;
  std::vector<std::string> Databases;  ///< data and system
  TOpenMode Mode;
};

}  // namespace zanhost
