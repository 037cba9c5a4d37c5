#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/worker/FunctionCall.h"

// The walk of the module's table, and functions by name.

namespace zantest {
namespace {

using namespace zanrole;
using zanhost::CallFunction;
using zanhost::TCallOutcome;
using zanhost::THostFuncManager;

std::vector<std::string> ran;

/// Answers its input "In" in capitals-by-brackets in "Out".
class TSystemEcho : public TSysBaseFunc {
 public:
  std::string FuncName() const override { return "Echo"; }
  std::string FuncDescription() const override { return "Echoes"; }
  std::unique_ptr<TFuncInfo> NewFuncInfo() const override {
    auto info = TSysBaseFunc::NewFuncInfo();
    info->InParams.Add({TFuncParamKind::None, "In", "", "default", TFuncDataType::String});
    info->OutParams.Add({TFuncParamKind::None, "Out", "", "", TFuncDataType::String});
    return info;
  }
  bool Execute() override {
    ran.push_back("system " + std::to_string(OpenStyle));
    std::string text = FuncInfo->InParams.find("In")->Value;
    if (const TFuncParam* const extra = FuncInfo->InParams.find("Extra")) text += "+" + extra->Value;
    FuncInfo->OutParams.find("Out")->Value = "[" + text + "]";
    return text != "false";
  }
};

class TMenuEcho : public TMenuBaseFunc {
 public:
  std::string FuncName() const override { return "Echo"; }
  std::string FuncDescription() const override { return "A menu function of the same name"; }
  bool Execute() override {
    const TFuncParam* const node = FuncInfo->InParams.find("MenuNode");
    ran.push_back("menu " + std::to_string(OpenStyle) + (node != nullptr ? " " + node->Value : ""));
    return true;
  }
};

class TAnotherEcho : public TSystemEcho {};

template <typename TFunction>
std::unique_ptr<TBaseFunc> Make() {
  return std::make_unique<TFunction>();
}

const TFuncClass kClasses[] = {
    {"TSystemEcho", TFuncType::System, &Make<TSystemEcho>},
    {"TMenuEcho", TFuncType::Menu, &Make<TMenuEcho>},
    {"TAnotherEcho", TFuncType::System, &Make<TAnotherEcho>},
};

class FuncManagerTest : public testing::Test {
 protected:
  FuncManagerTest() {
    ran.clear();
    FModule.FuncClasses = [](std::size_t* count) {
      *count = std::size(kClasses);
      return &kClasses[0];
    };
  }
  zanhost::TModule FModule;
  THostFuncManager Manager{FModule};
};

TEST_F(FuncManagerTest, FamiliesAreKeptApart) {
  const TFuncInfo* const system = Manager.FindFuncInfo("Echo", TFuncType::System);
  const TFuncInfo* const menu = Manager.FindFuncInfo("Echo", TFuncType::Menu);
  ASSERT_NE(system, nullptr);
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(system->InParams.Count(), 1);
  EXPECT_EQ(menu->InParams.Count(), 0);
  EXPECT_EQ(Manager.FindFuncInfo("Echo", TFuncType::Linked), nullptr);
  EXPECT_EQ(Manager.FindFuncInfo("echo", TFuncType::System), nullptr);
}

TEST_F(FuncManagerTest, ANameThatIsTakenIsReportedAndTheFirstStays) {
  EXPECT_EQ(Manager.Functions().size(), 2U);
  EXPECT_EQ(Manager.Find("Echo", TFuncType::System)->ClassName, "TSystemEcho");
  EXPECT_THAT(Manager.Duplicates(),
              testing::ElementsAre("TAnotherEcho is left out: TSystemEcho has the name Echo already"));
}

TEST_F(FuncManagerTest, ByNameAMenuFunctionComesFirst) {
  EXPECT_TRUE(Manager.RunFuncName("Echo", 3));
  EXPECT_FALSE(Manager.RunFuncName("Missing", 3));
  EXPECT_THAT(ran, testing::ElementsAre("menu 3"));
}

TEST_F(FuncManagerTest, ACopyOfADescriptionFindsItsFunctionAndTheSharedOneStaysAsItIs) {
  const TFuncInfo* const shared = Manager.FindFuncInfo("Echo", TFuncType::System);
  TFuncInfo copy;
  copy.Assign(*shared);
  copy.InParams.find("In")->Value = "x";
  EXPECT_TRUE(Manager.RunFunc(copy, nullptr, 3));
  EXPECT_EQ(copy.OutParams.find("Out")->Value, "[x]");
  EXPECT_EQ(shared->InParams.find("In")->Value, "default");
  EXPECT_EQ(shared->OutParams.find("Out")->Value, "");
  TFuncInfo nobodys;
  EXPECT_FALSE(Manager.RunFunc(nobodys, nullptr, 3));
}

TEST_F(FuncManagerTest, ACallKeepsDefaultsAndPassesOnWhatIsNotDeclared) {
  const TCallOutcome plain = CallFunction(Manager, "Echo", {});
  EXPECT_TRUE(plain.Result);
  EXPECT_THAT(plain.Out, testing::ElementsAre(testing::Pair("Out", "[default]")));
  const TCallOutcome more = CallFunction(Manager, "Echo", {{"In", "a"}, {"Extra", "b"}});
  EXPECT_THAT(more.Out, testing::ElementsAre(testing::Pair("Out", "[a+b]")));
  EXPECT_THAT(more.Undeclared, testing::ElementsAre("Extra"));
  EXPECT_FALSE(CallFunction(Manager, "Echo", {{"In", "false"}}).Result);
}

TEST_F(FuncManagerTest, AFunctionThatIsMissingIsAFault) {
  EXPECT_THROW(CallFunction(Manager, "Missing", {}), EZanError);
  EXPECT_THROW(zanhost::RunMenuFunction(Manager, "Missing", 0, {}), EZanError);
}

TEST_F(FuncManagerTest, AMenuFunctionGetsItsStyleAndItsNode) {
  zanhost::RunMenuFunction(Manager, "Echo", 0, {{"MenuNode", "{}"}});
  EXPECT_THAT(ran, testing::ElementsAre("menu 0 {}"));
}

}  // namespace
}  // namespace zantest
