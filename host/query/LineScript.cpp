#include "host/query/LineScript.h"

#include "Frame/Host/Classes.h"
#include "host/query/Tokens.h"

namespace zanhost {

std::vector<std::string_view> SplitAtLines(std::string_view script, std::string_view word) {
  std::vector<std::string_view> pieces;
  const auto take = [&](std::string_view piece) {
    if (!Tokenize(piece).empty()) pieces.push_back(piece);
  };
  std::size_t from = 0;
  for (std::size_t at = 0; at < script.size();) {
    const std::size_t end = std::min(script.find('\n', at), script.size());
    if (zanrole::SameText(zanrole::Trim(script.substr(at, end - at)), word)) {
      take(script.substr(from, at - from));
      from = std::min(end + 1, script.size());
    }
    at = end + 1;
  }
  take(script.substr(from));
  return pieces;
}

}  // namespace zanhost
