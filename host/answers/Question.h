#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/platform/NamedValues.h"

namespace zanhost {

/// What may be asked of an answer process.
enum class TQuestionKind { Functions, Function, Call, Menus, Denied, Right, Holders };

/// One question, as the gateway has checked it.
struct TQuestion {
  /// Stands before the answer.
  std::int64_t Number = 0;
  TQuestionKind Kind = TQuestionKind::Functions;
  /// Whom it is about, or as whom a function is evaluated. Nobody in questions about functions and holders.
  std::string Login;
  /// "zh" or "en".
  std::string Language = "zh";
  /// The name of a function.
  std::string Function;
  /// The functions in the scope of the token, for questions about functions.
  std::vector<std::string> Scope;
  TNamedValues Inputs;
  /// The current domain of a call; the login has none without it.
  std::optional<int> Domain;
  /// An object is named by its identity, or by type and name.
  std::optional<int> ObjectID;
  std::string Type;
  std::string Object;
  std::string Operation;
  /// Of holders: those behind this OID, and how many at most.
  int After = -1;
  int Limit = 0;
};

/// The word that names the kind in a line.
std::string_view WordOf(TQuestionKind kind);

/// The line of a question, without its line break.
std::string QuestionLine(const TQuestion& question);

/// Raises EZanError for a line that QuestionLine would not write.
TQuestion ParseQuestion(std::string_view line);

}  // namespace zanhost
