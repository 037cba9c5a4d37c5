#pragma once

#include <boost/json/array.hpp>
#include <map>

#include "host/worker/RowSource.h"

namespace zanhost {

/// What the client was told of the rows of one component: those in the range that it looks at.
class TRowsView {
 public:
  /// Rows that a client looks at until it says otherwise, and the most it can look at.
  static constexpr int kFirstRange = 60;
  static constexpr int kLongestRange = 500;

  explicit TRowsView(std::unique_ptr<TRowSource> source) : FSource(std::move(source)) {}

  TRowSource& Source() { return *FSource; }
  /// Index of a row: one that the client sees is found without asking the source. -1 when there is none.
  int IndexOf(std::int64_t id);

  /// The client looks at these rows from now on and has dropped all others.
  void Look(int first, int last);
  /// The client was told nothing yet.
  void Reset();
  /// The row is sent again even if it did not change.
  void ForgetRow(int index) { FSent.erase(index); }
  /// A person has put the focus there: the row need not be brought into sight.
  void NoteFocus(std::int64_t id) { FFocus = id; }

  /// Where a Shift click's range begins.
  std::optional<std::int64_t> Anchor;

  /// Appends `rows` for what differs from what was sent, and `reveal` when the program has moved the focus.
  void AppendChanges(int window, std::string_view name, boost::json::array& changes);

 private:
  /// Rows that end before the row `end`.
  void AppendRun(int window, std::string_view name, int end, boost::json::array items,
                 boost::json::array& changes) const;
  void AppendReveal(int window, std::string_view name, boost::json::array& changes);

  std::unique_ptr<TRowSource> FSource;
  int FFirst = 0;
  int FLast = kFirstRange - 1;
  /// -1: nothing was sent yet.
  int FTotal = -1;
  std::map<int, boost::json::object> FSent;
  std::optional<std::int64_t> FFocus;
};

}  // namespace zanhost
