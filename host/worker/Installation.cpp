#include "host/worker/Installation.h"

#include <fmt/format.h>

#include "host/platform/InstalledData.h"

namespace zanhost {

namespace {

constexpr std::string_view kFolderScheme = "sqlite:";

std::unique_ptr<TDatabase> Open(const std::string& dataUrl, TTrace* trace) {
  std::unique_ptr<TDatabase> database = OpenInstalledData(dataUrl);
  if (trace != nullptr) database->SetTrace(trace);
  return database;
}

std::unique_ptr<TTrace> OpenTrace(const std::filesystem::path& file) {
  return file.empty() ? nullptr : std::make_unique<TTrace>(file.string());
}

}  // namespace

std::filesystem::path FolderOfData(const std::string& dataUrl) {
  if (!dataUrl.starts_with(kFolderScheme))
    throw zanrole::EZanError(fmt::format("'{}' names no folder of an installation", dataUrl));
  return dataUrl.substr(kFolderScheme.size());
}

TInstallation::TInstallation(const TSessionOptions& options)
    : FFolder(FolderOfData(options.Data)),
      FTrace(OpenTrace(options.Trace)),
      FDatabase(Open(options.Data, FTrace.get())),
      FSettings(FFolder, "zanhost.ini"),
      FLog(FFolder),
      FCipher(KeyFileOf(FFolder)),
      FServices(FCipher),
      FModule(LoadModule(options.Module.empty() ? ModuleBesideProgram() : options.Module), FServices) {
  FResources.SetLanguage(options.Language);
}

}  // namespace zanhost
