#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "host/platform/Files.h"
#include "tests/support/MariaDbServer.h"
#include "tests/support/TemporaryFolder.h"

// A disk that is full, for real: a small one in memory, which only the processes of the test see.

namespace {

/// Runs a script of bash that may mount; $DISK is an empty folder, $ZANHOST the program.
class FullDisk : public testing::Test {
 protected:
  void SetUp() override {
    if (std::system("unshare -rm true 2> /dev/null") != 0)
      GTEST_SKIP() << "this machine lets nobody mount a disk of his own (unshare -rm)";
  }

  /// Gives what the script wrote. A script that fails fails the test.
  std::string Run(const std::string& script) const {
    zanhost::ReplacePrivateFile(FFolder / "script", script);
    std::filesystem::create_directory(FFolder / "disk");
    ::setenv("DISK", (FFolder / "disk").c_str(), 1);
    ::setenv("REST", (FFolder / "rest").c_str(), 1);
    ::setenv("ZANHOST", ZANHOST, 1);
    const std::string command = "unshare -rm bash -eu " + (FFolder / "script").string() + " > " +
                                (FFolder / "out").string() + " 2>&1";
    const int status = std::system(command.c_str());
    std::string out = zanhost::ReadFile(FFolder / "out");
    EXPECT_EQ(status, 0) << out;
    return out;
  }

 private:
  zantest::TTemporaryFolder FFolder;
};

}  // namespace

TEST_F(FullDisk, OfTheEmbeddedDatabaseIsToldAndNothingStays) {
  const std::string out = Run(R"(
mount -t tmpfs -o size=1m none $DISK
"$ZANHOST" sample --data sqlite:$DISK/data --people 500 && exit 1
mount -o remount,size=100m $DISK
"$ZANHOST" sample --data sqlite:$DISK/data --people 50
)");
  EXPECT_THAT(out, testing::HasSubstr("zanrole.db' is full. Nothing was changed."));
  EXPECT_THAT(out, testing::HasSubstr("Made a sample company"));
}

TEST_F(FullDisk, ThatCanOnlyBeReadIsTold) {
  const std::string out = Run(R"(
mount -t tmpfs -o size=100m none $DISK
"$ZANHOST" sample --data sqlite:$DISK/data --people 20
mount -o remount,ro $DISK
"$ZANHOST" passwd admin --data sqlite:$DISK/data <<< new && exit 1
mount -o remount,rw $DISK
"$ZANHOST" passwd admin --data sqlite:$DISK/data <<< new
)");
  EXPECT_THAT(out, testing::HasSubstr("may be written"));
}

TEST_F(FullDisk, OfAServerIsToldAndNothingStays) {
  if (const std::string whyNot = zantest::WhyNoMariaDbServer(); !whyNot.empty()) GTEST_SKIP() << whyNot;
  const std::string out = Run(R"(
mount -t tmpfs -o size=400m none $DISK
trap 'kill $(jobs -p) 2> /dev/null || true' EXIT
mkdir $REST.tmp
# At its start a server removes the temporary tables of any other that works in the same folder.
own="--no-defaults --user=$(id -un) --datadir=$DISK/data --tmpdir=$REST.tmp --lower-case-table-names=1"
own="$own --innodb-log-file-size=4M"
mariadb-install-db $own --auth-root-authentication-method=normal --skip-test-db > /dev/null
start() {
  rm -f $DISK/s
  mariadbd $own --socket=$DISK/s --pid-file=$DISK/pid --skip-networking --innodb-buffer-pool-size=16M \
    > $REST.log 2>&1 &
  for i in $(seq 300); do [ -S $DISK/s ] && return; sleep 0.1; done
  exit 1
}
start
url="mysql://root@localhost/d?system=y&socket=$DISK/s&folder=$REST"
"$ZANHOST" schema --data "$url"
mount -o remount,size=$(($(df --block-size=1M --output=used $DISK | tail -1) + 3))m $DISK
"$ZANHOST" sample --data "$url" --people 20000 && exit 1
mount -o remount,size=800m $DISK
# The server may have given up where it could not write at all.
kill -0 $! 2> /dev/null || start
"$ZANHOST" sample --data "$url" --people 50
kill $!
wait $! || true
)");
  EXPECT_THAT(out, testing::HasSubstr("is full. Nothing was changed."));
  EXPECT_THAT(out, testing::HasSubstr("Made a sample company"));
}
