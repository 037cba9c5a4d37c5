#include "tests/conformance/scenario/Numbers.h"

namespace zantest {

void TNumbers::Name(const TOutlineLine& line, const std::string& name, int number) {
  if (!FNumbers.emplace(name, number).second) throw line.Error("there are two of the name " + name);
}

int TNumbers::Find(const TOutlineLine& line, const std::string& name, const char* what) const {
  const auto found = FNumbers.find(name);
  if (found == FNumbers.end()) throw line.Error(std::string("there is no ") + what + " " + name);
  return found->second;
}

std::string TNumbers::Filled(const TOutlineLine& line, const std::string& text) const {
  std::string filled;
  for (std::size_t at = 0; at < text.size();) {
    if (text[at] != '@') {
      filled += text[at++];
      continue;
    }
    const std::size_t end = std::min(text.find_first_of(",()' ", at), text.size());
    filled += std::to_string(Find(line, text.substr(at + 1, end - at - 1), "thing of the name"));
    at = end;
  }
  return filled;
}

}  // namespace zantest
