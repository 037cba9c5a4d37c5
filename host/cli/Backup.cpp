#include <fmt/format.h>

#include <filesystem>

#include "host/cli/Commands.h"
#include "host/cli/CommonOptions.h"
#include "host/cli/LoggedOperation.h"
#include "host/platform/Cipher.h"
#include "host/platform/InstalledData.h"
#include "host/query/DataUrl.h"

namespace zanhost {

namespace {

constexpr char kExamples[] = R"(Examples:
  zanhost backup /backup/zanrole-2024-05-01.db --data sqlite:data

The copy is of one moment and may be made while the server runs. Keep the key file FOLDER/zanrole.key as well,
apart from the copy: stored passwords cannot be checked without it. To go back, stop the server and put the copy
in the place of FOLDER/zanrole.db, without the files zanrole.db-wal and zanrole.db-shm.)";

struct TBackupCommand {
  TSessionOptions Common;
  std::string File;
};

int BackUpAndTell(const TBackupCommand& command) {
  const std::unique_ptr<TDatabase> database = OpenInstalledData(command.Common.Data);
  return RunLogged(command.Common, "backup", [&] {
    database->BackupTo(command.File);
    fmt::print("Copied {} to {} ({} bytes). The key is apart: {}\n", ShownDataUrl(command.Common.Data),
               command.File, std::filesystem::file_size(command.File),
               KeyFileOf(FolderOfData(command.Common.Data)).string());
    return 0;
  });
}

}  // namespace

void AddBackupCommand(CLI::App& program, TRun& run) {
  CLI::App* const command =
      program.add_subcommand("backup", "Copy the database to a file while others use it");
  command->footer(kExamples);
  const auto options = std::make_shared<TBackupCommand>();
  AddCommonOptions(*command, options->Common);
  command->add_option("FILE", options->File, "The copy; must not exist yet")->required();
  command->callback([options, &run] { run = [options] { return BackUpAndTell(*options); }; });
}

}  // namespace zanhost
