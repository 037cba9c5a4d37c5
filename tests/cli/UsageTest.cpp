#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/platform/Files.h"
#include "tests/cli/Program.h"

using testing::HasSubstr;
using testing::IsEmpty;
using zantest::RunProgram;
using zantest::TRan;

namespace {

const std::vector<std::string> kCommands = {"serve",  "sample", "schema", "functions",         "call",
                                            "script", "passwd", "backup", "restricted-account"};

}  // namespace

TEST(Usage, HelpNamesEveryCommand) {
  const TRan ran = RunProgram({"--help"});
  EXPECT_EQ(ran.Status, 0);
  for (const std::string& command : kCommands) EXPECT_THAT(ran.Out, HasSubstr("\n  " + command + " "));
  EXPECT_THAT(ran.Out, testing::Not(HasSubstr("worker")));
}

TEST(Usage, HelpOfEachCommandHasTheCommonOptionsAndExamples) {
  for (const std::string& command : kCommands) {
    const TRan ran = RunProgram({command, "--help"});
    EXPECT_EQ(ran.Status, 0) << command;
    for (const char* option :
         {"--data", "--domain", "--user", "--builder", "--trace", "Examples:", "zanhost "})
      EXPECT_THAT(ran.Out, HasSubstr(option)) << command;
  }
}

TEST(Usage, NoCommandOrAnUnknownOneIsWrongUsage) {
  for (const std::vector<std::string>& words : {std::vector<std::string>{},
                                                {"nonsense"},
                                                {"call"},
                                                {"backup"},
                                                {"restricted-account"},
                                                {"passwd"},
                                                {"schema", "--people", "3"},
                                                {"call", "F", "--domain", "abc"},
                                                {"sample", "--people", "many"},
                                                {"serve", "--tls-cert", "c.pem"}}) {
    const TRan ran = RunProgram(words);
    EXPECT_EQ(ran.Status, 2) << testing::PrintToString(words);
    EXPECT_THAT(ran.Out, IsEmpty());
    EXPECT_THAT(ran.Err, testing::StartsWith("zanhost: "));
  }
}

TEST(Usage, WrongDataIsOneSentenceForEveryCommand) {
  const zantest::TTemporaryFolder parent;
  const std::string missing = "sqlite:" + (parent / "missing").string();
  for (const std::vector<std::string>& words : {std::vector<std::string>{"serve", "--listen", "127.0.0.1:0"},
                                                {"functions"},
                                                {"script", "--builder"},
                                                {"passwd", "admin"},
                                                {"backup", (parent / "copy").string()}}) {
    std::vector<std::string> all = words;
    all.insert(all.end(), {"--data", missing});
    const TRan ran = RunProgram(all);
    EXPECT_NE(ran.Status, 0) << words[0];
    EXPECT_LE(ran.Status, 2) << words[0];
    EXPECT_THAT(ran.Err, testing::StartsWith("zanhost: ")) << words[0];
    EXPECT_EQ(std::count(ran.Err.begin(), ran.Err.end(), '\n'), 1) << ran.Err;
    EXPECT_FALSE(std::filesystem::exists(parent / "missing")) << words[0];
  }
}

TEST(Usage, UnknownFormOfDataIsSaid) {
  for (const char* command : {"schema", "sample", "functions"}) {
    const TRan ran = RunProgram({command, "--data", "postgres:here"});
    EXPECT_EQ(ran.Status, 1) << command;
    EXPECT_THAT(ran.Err, HasSubstr("postgres:here"));
  }
}

TEST(Usage, FolderThatCannotBeMadeIsSaid) {
  const zantest::TTemporaryFolder parent;
  zanhost::ReplacePrivateFile(parent / "file", "in the way");
  const TRan ran = RunProgram({"schema", "--data", "sqlite:" + (parent / "file" / "d").string()});
  EXPECT_EQ(ran.Status, 1);
  EXPECT_THAT(ran.Err, testing::StartsWith("zanhost: "));
}

TEST(Usage, KeyThatIsOpenToOthersStopsTheProgram) {
  const zantest::TSampleInstallation sample;
  std::filesystem::permissions(sample.Folder() / "zanrole.key",
                               std::filesystem::perms::owner_read | std::filesystem::perms::others_read);
  const TRan ran = sample.Run({"functions"});
  EXPECT_EQ(ran.Status, 1);
  EXPECT_THAT(ran.Err, HasSubstr("chmod 600"));
}
