#include "Frame/Session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Frame/Package.h"
#include "tests/support/RecordingHost.h"

namespace zantest {
namespace {

using testing::ElementsAre;
using namespace zanrole;

std::vector<std::string>& Ended() {
  static std::vector<std::string> names;
  return names;
}

struct TFirst {
  ~TFirst() { Ended().push_back("first"); }
  int Value = 0;
};

struct TSecond {
  ~TSecond() {
    // Finalisation may ask the session, which no longer offers what has ended.
    Ended().push_back(TSession::Current().FindSlot<TSecond>() == nullptr ? "second"
                                                                         : "second, still offered");
  }
};

TEST(Session, GivesOneObjectOfATypeForItsWholeLife) {
  const TRecordingHost host;
  TSession::Current().Slot<TFirst>().Value = 5;
  EXPECT_EQ(TSession::Current().Slot<TFirst>().Value, 5);
}

TEST(Session, FreesWhatItHoldsInReverseOrderOfCreationWhileItIsCurrent) {
  Ended().clear();
  {
    const TRecordingHost host;
    TSession::Current().Slot<TFirst>();
    TSession::Current().Slot<TSecond>();
  }
  EXPECT_THAT(Ended(), ElementsAre("second", "first"));
}

struct TLateUser {
  ~TLateUser() { TSession::Current().Slot<TFirst>(); }
};

TEST(Session, FreesWhatItsFinalisationMakes) {
  Ended().clear();
  {
    const TRecordingHost host;
    TSession::Current().Slot<TLateUser>();
  }
  EXPECT_THAT(Ended(), ElementsAre("first"));
}

TEST(Session, IsNoLongerCurrentOnceItHasEndedAndLeavesAnotherCurrent) {
  TRecordingHost host;
  TSession* const ended = ZanroleSessionCreate(&host);
  TSession* const other = ZanroleSessionMakeCurrent(ended);
  ZanroleSessionDestroy(ended);
  EXPECT_EQ(ZanroleSessionMakeCurrent(other), nullptr);

  ZanroleSessionDestroy(ZanroleSessionCreate(&host));
  EXPECT_EQ(&TSession::Current(), other);
}

TEST(Session, TwoSessionsShareNothing) {
  TRecordingHost first;
  first.Session().Slot<TFirst>().Value = 1;
  {
    TRecordingHost second;
    EXPECT_EQ(&TSession::Current(), &second.Session());
    EXPECT_EQ(second.Session().FindSlot<TFirst>(), nullptr);
  }
  EXPECT_EQ(&TSession::Current(), &first.Session());
}

TEST(Session, WithoutOneTheModuleRefuses) {
  TSession* const before = TSession::MakeCurrent(nullptr);
  EXPECT_THROW(TSession::Current(), EAssertionFailed);
  TSession::MakeCurrent(before);
}

TEST(Session, RecordsTheOperatorOfTheLoginOrTheDesigner) {
  TRecordingHost host;
  EXPECT_EQ(OperatorOID(), 12);
  EXPECT_EQ(OperatorName(), "操作员");
  host.Builder = true;
  EXPECT_EQ(OperatorOID(), -1);
  EXPECT_EQ(OperatorName(), "[ZanBuilder]");
}

TEST(Package, RefusesAHostOfAnotherContractVersion) {
  TRecordingServices services;
  EXPECT_TRUE(ZanroleSetHostServices(&services));
  services.Version = kContractVersion + 1;
  EXPECT_FALSE(ZanroleSetHostServices(&services));
}

TEST(Package, EveryFunctionClassAnswersForItself) {
  std::size_t count = 0;
  const TFuncClass* classes = ZanroleFuncClasses(&count);
  ASSERT_GT(count, 0U);
  std::set<std::string> classNames;
  for (std::size_t i = 0; i < count; ++i) {
    EXPECT_TRUE(classNames.insert(classes[i].ClassName).second) << classes[i].ClassName;
    const auto function = classes[i].Create();
    EXPECT_FALSE(function->FuncName().empty()) << classes[i].ClassName;
    EXPECT_FALSE(function->FuncDescription().empty()) << classes[i].ClassName;
    EXPECT_NE(function->NewFuncInfo(), nullptr) << classes[i].ClassName;
  }
}

TEST(Package, ASystemFunctionWhoseDescriptionLacksItsParametersReturnsTrueAndLeavesNoOutput) {
  std::size_t count = 0;
  const TFuncClass* classes = ZanroleFuncClasses(&count);
  TRecordingHost host;
  int parameterless = 0;
  for (std::size_t i = 0; i < count; ++i) {
    if (classes[i].Type != TFuncType::System) continue;
    const auto function = classes[i].Create();
    if (function->NewFuncInfo()->InParams.Count() > 0) continue;
    TFuncInfo empty;
    function->FuncInfo = &empty;
    EXPECT_TRUE(function->Execute()) << classes[i].ClassName;
    EXPECT_EQ(empty.OutParams.Count(), 0);
    ++parameterless;
  }
  EXPECT_GT(parameterless, 0);
  EXPECT_TRUE(host.Statements.empty());
}

}  // namespace
}  // namespace zantest
