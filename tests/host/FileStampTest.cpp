#include "host/platform/FileStamp.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <thread>

#include "host/platform/Files.h"
#include "tests/support/TemporaryFolder.h"

using namespace zanhost;
using namespace std::chrono_literals;

namespace {

class FileStamp : public testing::Test {
 protected:
  FileStamp() {
    ReplacePrivateFile(File(), "text");
    FBefore = StampOf(File());
  }
  std::filesystem::path File() const { return FFolder / "file"; }
  bool IsTheSame() const { return StampOf(File()) == FBefore; }

 private:
  zantest::TTemporaryFolder FFolder;
  std::optional<TFileStamp> FBefore;
};

}  // namespace

TEST_F(FileStamp, StaysWhileNothingHappens) { EXPECT_TRUE(IsTheSame()); }

TEST_F(FileStamp, DiffersWhenTheFileIsReplacedByOneOfItsSize) {
  ReplacePrivateFile(File(), "next");
  EXPECT_FALSE(IsTheSame());
}

TEST_F(FileStamp, DiffersWhenTheFileIsGivenToOthers) {
  std::this_thread::sleep_for(50ms);
  ASSERT_EQ(::chmod(File().c_str(), 0640), 0);
  EXPECT_FALSE(IsTheSame());
}

TEST_F(FileStamp, OfNoFileIsNothing) {
  std::filesystem::remove(File());
  EXPECT_EQ(StampOf(File()), std::nullopt);
}

TEST_F(FileStamp, OfWhatCannotBeLookedAtIsAFault) {
  EXPECT_THROW(StampOf(File() / "inside"), std::filesystem::filesystem_error);
}

TEST_F(FileStamp, IsSettledSomeTicksAfterTheLastWriting) {
  ReplacePrivateFile(File(), "next");
  EXPECT_FALSE(IsSettled(*StampOf(File())));
  std::this_thread::sleep_for(150ms);
  EXPECT_TRUE(IsSettled(*StampOf(File())));
}

TEST_F(FileStamp, OfAFileThatIsDatedBackIsNotSettled) {
  std::filesystem::last_write_time(File(), std::filesystem::file_time_type::clock::now() - 24h);
  EXPECT_FALSE(IsSettled(*StampOf(File())));
}
