#include "Role/ZanObjType.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/RecordingHost.h"
#include "tests/unit/Role/Lines.h"

namespace zantest {
namespace {

using testing::ElementsAre;
using namespace zanrole;

TEST(ZanObjTypeManager, TheTypeOfDocumentsIsOneAndThreeIsNoType) {
  const TRecordingHost host;
  const TZanObjTypeManager& manager = TZanObjTypeManager::Instance();
  ASSERT_NE(manager.GetType("单据"), nullptr);
  EXPECT_EQ(manager.GetType("单据")->TypeID(), 1);
  for (const int none : {0, 3, 4, 5, 6, 8, -1}) EXPECT_EQ(manager.GetType(none), nullptr) << none;
}

TEST(ZanObjTypeManager, OperationWordsStandInTheOrderOfRegistration) {
  const TRecordingHost host;
  const TZanObjTypeManager& manager = TZanObjTypeManager::Instance();
  EXPECT_THAT(Lines(manager.GetType(1)->Oprates()),
              ElementsAre("增加", "删除", "修改", "复制", "浏览", "预览", "打印", "列表预览", "列表打印",
                          "审核", "反审", "记账", "反记", "批审核", "批反审", "批记账", "批反记"));
  EXPECT_THAT(Lines(manager.GetType(2)->Oprates()),
              ElementsAre("打印", "Excel导出", "图表显示", "显示卡片", "显示方案"));
  EXPECT_THAT(Lines(manager.GetType(7)->Oprates()), ElementsAre("执行"));
}

TEST(ZanObjTypeManager, NamesCompareExactly) {
  const TRecordingHost host;
  const TZanObjTypeManager& manager = TZanObjTypeManager::Instance();
  EXPECT_EQ(manager.GetType("查询")->TypeID(), 2);
  EXPECT_EQ(manager.GetType("菜单")->TypeName(), "菜单");
  EXPECT_EQ(manager.GetType(" 菜单"), nullptr);
  EXPECT_EQ(manager.GetType(""), nullptr);
}

TEST(ZanObjTypeManager, IsOneInASessionAndAnotherInTheNext) {
  const TRecordingHost host;
  TZanObjTypeManager& first = TZanObjTypeManager::Instance();
  EXPECT_EQ(&first, &TZanObjTypeManager::Instance());
  first.Clear();
  EXPECT_EQ(TZanObjTypeManager::Instance().GetType(1), nullptr);
  const TRecordingHost other;
  EXPECT_NE(TZanObjTypeManager::Instance().GetType(1), nullptr);
}

TEST(ZanObjTypeManager, RegistersDoublesAndFindsTheFirst) {
  const TRecordingHost host;
  TZanObjTypeManager manager;
  manager.RegeistType("单据", std::make_unique<TZanObjType>("单据", 99));
  EXPECT_EQ(manager.GetType("单据")->TypeID(), 1);
  EXPECT_NE(manager.GetType(99), nullptr);
}

TEST(ZanObjType, BeginsWithoutOperations) {
  const TZanObjType type("报表", 9);
  EXPECT_EQ(type.TypeName(), "报表");
  EXPECT_EQ(type.Oprates().Count(), 0);
}

}  // namespace
}  // namespace zantest
