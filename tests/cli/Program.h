#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace zantest {

/// What a run of the program left behind.
struct TRan {
  /// Exit status; 128 and the signal's number when it was killed.
  int Status = -1;
  std::string Out;
  std::string Err;
};

/// Runs zanhost with these words and this standard input, and waits for its end.
TRan RunProgram(const std::vector<std::string>& words, const std::string& input = {});

/// Runs zanhost at a terminal of its own and types `keys`, each after the program has asked for it with
/// `question`. `Out` is everything that the terminal showed.
struct TTyped {
  std::string Question;
  std::string Keys;
};
TRan RunAtTerminal(const std::vector<std::string>& words, const std::vector<TTyped>& typed);

/// A fresh installation with the sample company, made by the program itself.
class TSampleInstallation {
 public:
  explicit TSampleInstallation(int people = 20);
  std::string Url() const { return "sqlite:" + Folder().string(); }
  std::filesystem::path Folder() const { return FParent / "data"; }
  /// What `sample` said.
  const TRan& Made() const { return FMade; }
  /// Runs a command on this installation.
  TRan Run(std::vector<std::string> words, const std::string& input = {}) const;

 private:
  TTemporaryFolder FParent;
  TRan FMade;
};

}  // namespace zantest
