#include "host/worker/Installation.h"

#include "host/platform/InstalledData.h"
#include "host/query/DataUrl.h"

namespace zanhost {

namespace {

std::unique_ptr<TDatabase> Open(const std::string& dataUrl, TTrace* trace) {
  std::unique_ptr<TDatabase> database = OpenInstalledData(dataUrl);
  if (trace != nullptr) database->SetTrace(trace);
  return database;
}

std::unique_ptr<TTrace> OpenTrace(const std::filesystem::path& file) {
  return file.empty() ? nullptr : std::make_unique<TTrace>(file.string());
}

}  // namespace

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
