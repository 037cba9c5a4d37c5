#pragma once

#include <boost/json/object.hpp>
#include <cstdint>
#include <memory>
#include <optional>

#include "Frame/Host/Forms.h"

namespace zanhost {

/// The rows of a list, a grid or a tree as the protocol knows them: by index, each with an id. Trees are
/// flattened: the rows are the nodes whose parents are all open.
class TRowSource {
 public:
  virtual ~TRowSource() = default;
  virtual int Count() = 0;
  /// REQUIRES: 0 <= index < Count().
  virtual boost::json::object Row(int index) = 0;
  /// REQUIRES: 0 <= index < Count().
  virtual std::int64_t IdAt(int index) = 0;
  /// -1 when there is no such row, or it is not to be seen.
  virtual int IndexOf(std::int64_t id) = 0;
  /// Id of the row with the focus.
  virtual std::optional<std::int64_t> Focused() = 0;
};

/// The rows of a component; null for a kind that has none. The component must outlive the source.
std::unique_ptr<TRowSource> RowSourceOf(zanrole::TComponent& component);

}  // namespace zanhost
