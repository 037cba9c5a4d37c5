#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/query/Adaptation.h"
#include "host/query/DialectFamily.h"

namespace zanhost {

/// The dialect in which a MariaDB server is used, with all that goes with it.
struct TMariaDbFlavour {
  const TDialectFamily& (*Family)();
  /// Setting of the session.
  std::string_view SqlMode;
  /// What makes the statements fit the server.
  std::span<const TAdaptationRule> (*Rules)();
  /// A batch is one statement of the server, sent in one call; otherwise its statements are sent one by one.
  bool BatchIsBlock;
  /// The statements of a script, as they are sent.
  std::vector<std::string> (*ScriptStatements)(std::string_view script);
  /// Stored routines that the statements call, in each of both databases.
  std::span<const std::string_view> Routines;
};

/// REQUIRES: MySql or Oracle.
const TMariaDbFlavour& MariaDbFlavourOf(zanrole::TDialect dialect);

}  // namespace zanhost
