#pragma once

#include <CLI/CLI.hpp>
#include <memory>

#include "host/worker/Installation.h"

namespace zanhost {

/// Adds the options that every command takes: --data, --domain, --user, --builder, --trace.
/// `options` must outlive the parsing.
void AddCommonOptions(CLI::App& command, TSessionOptions& options);

/// Raises EZanError unless --user or --builder says who the operator is.
void RequireOperator(const TSessionOptions& options);

/// Adds --language, the language of captions and messages.
void AddLanguageOption(CLI::App& command, TSessionOptions& options);

/// The operator as the log names him: the designer unless a user is named.
std::string OperatorNameOf(const TSessionOptions& options);

/// Writes the statements of a database to the file that was asked for, if one was, for as long as it lives.
class TTracing {
 public:
  /// `database` must outlive the object. Raises EZanError when the file cannot be opened.
  TTracing(TDatabase& database, const TSessionOptions& options);
  ~TTracing();
  TTracing(const TTracing&) = delete;
  TTracing& operator=(const TTracing&) = delete;

 private:
  TDatabase* FDatabase;
  std::unique_ptr<TTrace> FTrace;
};

}  // namespace zanhost
