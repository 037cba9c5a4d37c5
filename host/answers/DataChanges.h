#pragma once

#include <chrono>
#include <memory>

#include "host/query/Database.h"

namespace zanhost {

/// Tells until when what was read from a database may still be told. The embedded database says at once
/// whether another client has committed; a server would have to be asked for more than what is spared, so
/// what was read from one is told for a second at most.
class TDataChanges {
 public:
  /// `database` must outlive the object.
  explicit TDataChanges(TDatabase& database);

  /// Was anything committed by others since the last call? Always false on a server. Raises EDatabaseError.
  bool Noticed();
  /// Is what was read then too old to be told now?
  bool IsTooOld(std::chrono::steady_clock::time_point read) const;

 private:
  TDatabase& FDatabase;
  bool FTells;
  int FVersion = 0;
};

}  // namespace zanhost
