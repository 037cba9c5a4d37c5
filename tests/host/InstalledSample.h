#pragma once

#include <memory>

#include "host/platform/Sample.h"
#include "host/platform/Schema.h"
#include "host/query/DataUrl.h"
#include "host/worker/Worker.h"
#include "tests/host/Rows.h"
#include "tests/support/SessionDriver.h"
#include "tests/support/TemporaryFolder.h"

namespace zantest {

/// An installation with a small sample company, in a folder of its own.
class TInstalledSample {
 public:
  TInstalledSample()
      : FCipher(zanhost::KeyFileOf(FFolder.Path())),
        FDatabase(zanhost::OpenDatabase(Url(), zanhost::TOpenMode::CreateIfMissing)) {
    zanhost::InstallSchema(*FDatabase);
    Sample =
        zanhost::MakeSample(*FDatabase, {.People = 40, .AdminPassword = "not a secret", .Cipher = FCipher});
  }

  std::string Url() const { return "sqlite:" + FFolder.Path().string(); }
  const std::filesystem::path& Folder() const { return FFolder.Path(); }
  zanhost::TDatabase& Database() { return *FDatabase; }
  zanhost::TSessionOptions OptionsOf(const std::string& user) const {
    zanhost::TSessionOptions options;
    options.Data = Url();
    options.User = user;
    options.Builder = user.empty();
    return options;
  }

  zanhost::TSampleResult Sample;

 private:
  TTemporaryFolder FFolder;
  zanhost::TSivCipher FCipher;
  std::unique_ptr<zanhost::TDatabase> FDatabase;
};

}  // namespace zantest
