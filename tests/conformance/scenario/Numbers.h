#pragma once

#include <map>
#include <string>

#include "tests/conformance/scenario/Outline.h"

namespace zantest {

/// Which number each thing of a scenario got: accounts and roles by login, nodes and domains by code, posts
/// as "login:position", protected objects by name.
class TNumbers {
 public:
  /// Raises EScenarioError when the name is given away already.
  void Name(const TOutlineLine& line, const std::string& name, int number);
  /// Raises EScenarioError, telling `what` is unknown, when nothing bears the name.
  int Find(const TOutlineLine& line, const std::string& name, const char* what) const;
  bool Knows(const std::string& name) const { return FNumbers.contains(name); }
  /// The text with each @name replaced by its number. Raises EScenarioError for an unknown name.
  std::string Filled(const TOutlineLine& line, const std::string& text) const;

 private:
  std::map<std::string, int> FNumbers;
};

}  // namespace zantest
