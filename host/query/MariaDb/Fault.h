#pragma once

#include <string>

#include "host/query/MariaDb/Handles.h"

namespace zanhost {

/// A failed call of the server, on its way to become an EDatabaseError. Never leaves the engine.
struct TMariaDbFault {
  std::string Message;        ///< a sentence for a person, or the server's own message
  std::string Kind;           ///< number and state of the error, free of values
  bool QuotesValues = false;  ///< the message may repeat a piece of the statement
  bool ConnectionLost = false;
  bool Stopped = false;  ///< by a person, or by the limit of time
};

/// What a fault is told with.
struct TMariaDbFaultContext {
  std::string Server;
  std::string User;
  double BusySeconds = 0;
  double StatementSeconds = 0;
  bool Restricted = false;  ///< the user is meant to have few rights
};

/// One error of client or server, as they number and word it.
struct TMariaDbError {
  unsigned Number = 0;
  std::string State;
  std::string Text;
};

TMariaDbError ErrorOf(MYSQL* connection);
TMariaDbError ErrorOf(MYSQL_STMT* statement);

TMariaDbFault DescribeFault(const TMariaDbError& error, const TMariaDbFaultContext& context);

}  // namespace zanhost
