#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "host/query/Sqlite/Prepared.h"
#include "host/query/StatementReader.h"

namespace zanhost {

/// Single statements that come again with the same literals, by their text: a hit costs no look at the
/// tokens. A text is taken up when it comes twice before another one of its slot does, so that texts which
/// differ each time cost nothing here.
class TRepeatedTexts {
 public:
  struct TKnown {
    std::string Text;
    TStatementShape Shape;  ///< of Text
    std::shared_ptr<TSqlitePrepared> Statement;
  };

  /// Null when the text is not here. Lives until the next call of Note.
  const TKnown* Find(std::string_view text);
  /// Tells what the text of the last Find, which was not here, turned out to be.
  void Note(std::string_view text, const std::shared_ptr<TSqlitePrepared>& statement);

 private:
  struct TSlot {
    std::size_t LastHash = 0;  ///< of the text that came last and is not here
    TKnown Known;
  };

  static constexpr std::size_t kGreatestText = 2048;

  std::array<TSlot, 128> FSlots;
  std::size_t FHash = 0;  ///< of the text that Find looked for last
};

}  // namespace zanhost
