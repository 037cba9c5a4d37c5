#pragma once

#include <chrono>
#include <span>
#include <string>
#include <string_view>

#include "host/query/Odbc/Link.h"

namespace zanhost {

/// A failed call, on its way to become an EDatabaseError. Never leaves the engine.
struct TOdbcFault {
  std::string Message;        ///< a sentence for a person, or the server's own message
  std::string Kind;           ///< state and number of the error, free of values
  bool QuotesValues = false;  ///< the message may repeat a piece of the statement
  bool ConnectionLost = false;
};

/// Troubles that have a sentence of their own; every other error is told in the server's words.
enum class TOdbcTrouble {
  None,
  Lost,
  Unreachable,
  NoEntry,
  TooManyConnections,
  Busy,
  Deadlock,
  Cancelled,
  TooSlow,
  DiskFull,
  ReadOnly,
  DoubleKey,      ///< told with the server's words, which repeat the key; no key holds a password
  RepeatsNoText,  ///< told in the server's words, which hold no piece of the statement's values
};

/// What a server means by one of its numbers.
struct TOdbcTroubleNumber {
  long Number;
  TOdbcTrouble Trouble;
};

/// When to give up.
struct TOdbcLimits {
  /// How long a session waits for another one that writes to the same rows.
  std::chrono::seconds Busy{5};
  /// How long one statement may run.
  std::chrono::seconds Statement{30};
};

/// What a fault is told with.
struct TOdbcFaultContext {
  std::string Server;
  std::string User;
  std::string Password;  ///< taken out of every message
  TOdbcLimits Limits;
  /// The numbers of the server, empty before it is known which it is.
  std::span<const TOdbcTroubleNumber> Troubles;
};

TOdbcFault DescribeOdbcFault(const TOdbcError& error, const TOdbcFaultContext& context);

}  // namespace zanhost
