#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "Frame/Host/Zandbs.h"

namespace zanhost {

/// One entry of the platform's menu.
struct TMenuEntry {
  int ObjectID = 0;
  std::string Caption;
  /// Name of the menu function that the entry runs; empty when it runs none.
  std::string Function;
  std::vector<TMenuEntry> Children;
};

/// May this object be run?
using TIsMenuAllowed = std::function<bool(int objectID)>;

/// Reads the table `Tree` and gives its top entries: without hidden ones and what is below them, without
/// entries that are not allowed, and without folders that are empty then. A folder itself needs no right.
/// Raises EDatabaseError.
std::vector<TMenuEntry> ReadMenu(zanrole::TDatabaseServices& databases, const TIsMenuAllowed& isAllowed);

/// The name in the first line "函数NAME(...)" of an entry's functions; empty when there is none.
std::string MenuFunctionName(std::string_view functions);

}  // namespace zanhost
