#pragma once

#include <string>
#include <string_view>

#include "Frame/Host/Zandbs.h"

namespace zantest {

/// Name of the variable of the environment that holds the folder of the corpus.
inline constexpr char kCorpusFolder[] = "ZAN_CORPUS";

/// Adds a statement that the module has built to the corpus, once for each dialect, database and text. Each
/// test program writes a file of its own, anew when it starts: PROGRAM.jsonl, with one line for each
/// statement:
///   {"dialect","database","text","test","refused"(the reason, when there is one)}
/// Does nothing when no folder is named.
void KeepInCorpus(zanrole::TDialect dialect, std::string_view database, std::string_view text);

/// While an object of this class lives, statements that contain `part` go into the corpus with a mark: every
/// server refuses them, for the reason that is told. The test has given the module input that makes no
/// statement, or the module's text is a faulty one.
class TRefusedStatements {
 public:
  TRefusedStatements(std::string part, std::string reason);
  ~TRefusedStatements();
  TRefusedStatements(const TRefusedStatements&) = delete;
  TRefusedStatements& operator=(const TRefusedStatements&) = delete;
};

}  // namespace zantest
