#include "Frame/MenuNode.h"

#include <gtest/gtest.h>

#include "tests/support/RecordingHost.h"
#include "tests/unit/Frame/AnyMenuFunc.h"

namespace zantest {
namespace {

using namespace zanrole;

class MenuNode : public testing::Test {
 protected:
  TMenuNode Read(const char* value) {
    TFuncInfo info;
    if (value != nullptr) info.InParams.Add({TFuncParamKind::None, "MenuNode", "", value});
    TAnyMenuFunc function;
    function.FuncInfo = &info;
    return ReadMenuNode(function);
  }
  TRecordingServices FServices;
  TRecordingHost FHost;
};

TEST_F(MenuNode, GivesObjectAndCaption) {
  const TMenuNode node = Read(R"({"ObjectID":17,"Caption":"域的管理"})");
  EXPECT_EQ(node.ObjectID, 17);
  EXPECT_EQ(node.Caption, "域的管理");
}

TEST_F(MenuNode, ThatIsNoJsonLeavesTheObjectUnknownAndTheNameAsCaption) {
  for (const char* value : {"no json", "", "[1,2]", "{\"ObjectID\":"}) {
    const TMenuNode node = Read(value);
    EXPECT_EQ(node.ObjectID, TMenuNode::UnknownObject) << value;
    EXPECT_EQ(node.Caption, "域管理") << value;
  }
}

TEST_F(MenuNode, ThatIsMissingLeavesTheObjectUnknown) { EXPECT_EQ(Read(nullptr).Caption, "域管理"); }

TEST_F(MenuNode, WithoutACaptionKeepsTheName) { EXPECT_EQ(Read(R"({"ObjectID":17})").Caption, "域管理"); }

TEST(BooleanParam, IsTrueForThreeWordsInAnyCase) {
  TFuncInfo info;
  info.InParams.Add({TFuncParamKind::YesNo, "只读模式", "", "", TFuncDataType::Boolean});
  for (const char* word : {"是", "true", "TRUE", "yes", "Yes"}) {
    info.InParams.find("只读模式")->Value = word;
    EXPECT_TRUE(IsParamTrue(info, "只读模式")) << word;
  }
  for (const char* word : {"", "否", "1", "no", "false"}) {
    info.InParams.find("只读模式")->Value = word;
    EXPECT_FALSE(IsParamTrue(info, "只读模式")) << word;
  }
  EXPECT_FALSE(IsParamTrue(info, "分级管理"));
}

}  // namespace
}  // namespace zantest
