#pragma once

#include <string_view>

#include "Frame/Host/Zandbs.h"

namespace zantest {

/// Name of the variable of the environment that holds the folder of the corpus.
inline constexpr char kCorpusFolder[] = "ZAN_CORPUS";

/// Adds a statement that the module has built to the corpus, once for each dialect, database and text. Each
/// test program writes a file of its own, anew when it starts: PROGRAM.jsonl, with one line for each
/// statement:
///   {"dialect","database","text","test"}
/// Does nothing when no folder is named.
void KeepInCorpus(zanrole::TDialect dialect, std::string_view database, std::string_view text);

/// While an object of this class lives, what the module sends does not enter the corpus: a test has given it
/// input that makes no statement, as `reason` says.
class TOutsideCorpus {
 public:
  explicit TOutsideCorpus(std::string_view reason);
  ~TOutsideCorpus();
  TOutsideCorpus(const TOutsideCorpus&) = delete;
  TOutsideCorpus& operator=(const TOutsideCorpus&) = delete;
};

}  // namespace zantest
