#include "Frame/RunFunction.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/RecordingHost.h"

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace zanrole;

TEST(RunMenuFunction, RunsAKnownFunctionFromACopyOfItsDescription) {
  TRecordingHost host;
  host.KnownFunctions = {"组织机构展示图"};
  RunMenuFunction("组织机构展示图");
  EXPECT_THAT(host.RunFunctions, ElementsAre("(by description)"));
}

TEST(RunMenuFunction, AMissingFunctionIsNoError) {
  TRecordingHost host;
  RunMenuFunction("组织机构展示图");
  EXPECT_THAT(host.RunFunctions, IsEmpty());
  EXPECT_THAT(host.Messages, IsEmpty());
}

class TForeignRunner final : public TRunHostFunction {
 public:
  bool Run(std::string_view name, std::string_view argument, int first, int second, int third,
           std::string& /*result*/) override {
    Calls.push_back(std::string(name) + "|" + std::string(argument) + "|" +
                    std::to_string(first + second + third));
    return true;
  }
  std::vector<std::string> Calls;
};

class TForeignHost final : public TRecordingHost {
 public:
  TRunHostFunction* RunHostFunction() override { return &Runner; }
  TForeignRunner Runner;
};

TEST(RunMenuFunction, InsideAForeignHostThatHostRunsIt) {
  TForeignHost host;
  host.KnownFunctions = {"组织机构展示图"};
  RunMenuFunction("组织机构展示图");
  EXPECT_THAT(host.Runner.Calls, ElementsAre("组织机构展示图||0"));
  EXPECT_THAT(host.RunFunctions, IsEmpty());
}

}  // namespace
}  // namespace zantest
