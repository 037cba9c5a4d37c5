#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "host/platform/Cipher.h"
#include "host/platform/HostServices.h"
#include "host/platform/Log.h"
#include "host/platform/Resources.h"
#include "host/platform/Settings.h"
#include "host/query/Database.h"
#include "host/query/Trace.h"
#include "host/worker/Module.h"

namespace zanhost {

/// Which installation a session works on, and as whom. The fields are options of the command line.
struct TSessionOptions {
  /// --data
  std::string Data;
  /// --user; not looked at when Builder is set.
  std::string User;
  /// --builder: the platform's designer in place of a user.
  bool Builder = false;
  /// --domain: the login's current domain.
  std::optional<int> Domain;
  /// --trace; empty for none.
  std::filesystem::path Trace;
  /// --language: "zh" or "en".
  std::string Language = "zh";
  /// The module's file; empty for the one beside the program.
  std::filesystem::path Module;
};

/// What one process has opened of an installation: database, key, texts and module.
class TInstallation {
 public:
  /// Raises EZanError with a sentence for the person when something of it is missing.
  explicit TInstallation(const TSessionOptions& options);
  TInstallation(const TInstallation&) = delete;
  TInstallation& operator=(const TInstallation&) = delete;

  TDatabase& Database() { return *FDatabase; }
  TResources& Resources() { return FResources; }
  const TSettings& Settings() const { return FSettings; }
  TLog& Log() { return FLog; }
  /// Null when nothing is traced.
  TTrace* Trace() { return FTrace.get(); }
  const TModule& Module() const { return FModule.Symbols(); }

 private:
  std::filesystem::path FFolder;
  std::unique_ptr<TTrace> FTrace;
  std::unique_ptr<TDatabase> FDatabase;
  TSettings FSettings;
  TLog FLog;
  TResources FResources;
  TSivCipher FCipher;
  THostServicesImpl FServices;
  TModuleInUse FModule;
};

}  // namespace zanhost
