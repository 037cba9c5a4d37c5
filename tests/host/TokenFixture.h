#pragma once

#include <gtest/gtest.h>

#include <string>

#include "host/platform/TokenFile.h"
#include "host/platform/TokenIssue.h"
#include "host/platform/Tokens.h"
#include "tests/support/TemporaryFolder.h"

namespace zantest {

/// A folder of an installation in which nothing stands yet, and a time that stands still.
class TTokenFixture : public testing::Test {
 protected:
  using TTime = std::chrono::system_clock::time_point;

  static zanhost::TTokenRequest Request(const std::string& name) {
    return {name, kNow + std::chrono::days(90), {{"*"}, {"menus"}, {"li"}}, 100};
  }

  zanhost::TNewToken Add(const std::string& name) { return zanhost::AddToken(Folder(), Request(name), kNow); }

  const std::filesystem::path& Folder() const { return FFolder.Path(); }

  static inline const TTime kNow = std::chrono::system_clock::from_time_t(1800000000);

 private:
  TTemporaryFolder FFolder;
};

}  // namespace zantest
