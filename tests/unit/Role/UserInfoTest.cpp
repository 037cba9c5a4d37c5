#include "Role/UserInfo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Frame/Now.h"
#include "tests/support/RecordingHost.h"

namespace zantest {
namespace {

using testing::ElementsAre;
using namespace zanrole;

std::vector<TUserInfo*> Users(const TUserList& list) { return {list.begin(), list.end()}; }

TEST(UserInfo, ANewRecordIsMadeByTheOperatorNowAndIsYetToBeInserted) {
  TRecordingHost host;
  const TDateTime before = Now();
  const TUserInfo user;
  EXPECT_EQ(user.Creator, 12);
  EXPECT_EQ(user.CreatorName, "操作员");
  EXPECT_GE(user.CreateTime, before);
  EXPECT_LE(user.CreateTime, Now());
  EXPECT_TRUE(user.newUser);
  EXPECT_FALSE(user.readRelate);
  EXPECT_EQ(user.oID, 0);
  EXPECT_EQ(user.uType, utUser);
  EXPECT_EQ(user.uState, usUsed);
}

TEST(UserInfo, InTheDesignerTheCreatorIsTheBuilder) {
  TRecordingHost host;
  host.Builder = true;
  const TUserInfo user;
  EXPECT_EQ(user.Creator, -1);
  EXPECT_EQ(user.CreatorName, "[ZanBuilder]");
}

TEST(UserInfo, WithoutAStrategyRowThePasswordNeedsNoResetMayBeChangedAndExpires) {
  TRecordingHost host;
  const TUserInfo user;
  EXPECT_FALSE(user.NeedReset);
  EXPECT_TRUE(user.CanModify);
  EXPECT_FALSE(user.NeverExpires);
}

TEST(UserInfo, AssignCopiesAllButNewUserAndReadRelateAndTheListsByReference) {
  TRecordingHost host;
  TUserInfo role;
  TUserInfo from;
  from.FParentList.Add(&role);
  from.oID = 7;
  from.ID = "li";
  from.Name = "李";
  from.FullName = "李全";
  from.Password = "secret";
  from.Office = "101";
  from.Phone = "12345";
  from.uType = utRole;
  from.uState = usUnposited;
  from.Describe = "d";
  from.newUser = false;
  from.readRelate = true;
  from.isAdministrator = true;
  from.Categories = "a\\b";
  from.Property1 = "p1";
  from.Property2 = "p2";
  from.NeedReset = true;
  from.CanModify = false;
  from.NeverExpires = true;
  from.DomainUserName = "domain";
  from.Creator = 99;
  from.CreateTime = TextToDateTime("2020-01-02 03:04:05");
  from.CreatorName = "creator";
  from.ModifierName = "modifier";
  from.ModifyTime = TextToDateTime("2021-01-02 03:04:05");

  TUserInfo to;
  to.FChildList.Add(&from);
  to.Assign(from);
  EXPECT_TRUE(to.newUser);
  EXPECT_FALSE(to.readRelate);
  EXPECT_THAT(Users(to.FParentList), ElementsAre(&role));
  EXPECT_EQ(to.FChildList.Count(), 0);
  EXPECT_EQ(to.oID, 7);
  EXPECT_EQ(to.ID, "li");
  EXPECT_EQ(to.Name, "李");
  EXPECT_EQ(to.FullName, "李全");
  EXPECT_EQ(to.Password, "secret");
  EXPECT_EQ(to.Office, "101");
  EXPECT_EQ(to.Phone, "12345");
  EXPECT_EQ(to.uType, utRole);
  EXPECT_EQ(to.uState, usUnposited);
  EXPECT_EQ(to.Describe, "d");
  EXPECT_TRUE(to.isAdministrator);
  EXPECT_EQ(to.Categories, "a\\b");
  EXPECT_EQ(to.Property1, "p1");
  EXPECT_EQ(to.Property2, "p2");
  EXPECT_TRUE(to.NeedReset);
  EXPECT_FALSE(to.CanModify);
  EXPECT_TRUE(to.NeverExpires);
  EXPECT_EQ(to.DomainUserName, "domain");
  EXPECT_EQ(to.Creator, 99);
  EXPECT_EQ(DateTimeToText(to.CreateTime), "2020-01-02 03:04:05");
  EXPECT_EQ(to.CreatorName, "creator");
  EXPECT_EQ(to.ModifierName, "modifier");
  EXPECT_EQ(DateTimeToText(to.ModifyTime), "2021-01-02 03:04:05");
}

TEST(UserInfo, KindsAndStatesAreShownByTheirWords) {
  TRecordingHost host;
  EXPECT_EQ(UserTypeText(utUser), "用户");
  EXPECT_EQ(UserTypeText(utRole), "角色");
  EXPECT_EQ(UserStateText(usUsed), "可用");
  EXPECT_EQ(UserStateText(usUnUsed), "不可用");
  EXPECT_EQ(UserStateText(usUnposited), "");
  EXPECT_EQ(UserStateText(usSuperior), "");
}

TEST(UserList, GivesItsUsersByPlaceAndDoesNotOwnThem) {
  TRecordingHost host;
  TUserInfo one;
  TUserInfo other;
  {
    TUserList list;
    list.Add(&one);
    list.Add(&other);
    list.Add(&one);
    EXPECT_EQ(list.Count(), 3);
    EXPECT_EQ(list.GetItem(1), &other);
    list.Remove(&one);
    EXPECT_THAT(Users(list), ElementsAre(&other));
    list.Clear();
    EXPECT_EQ(list.Count(), 0);
  }
  EXPECT_TRUE(one.newUser);
}

}  // namespace
}  // namespace zantest
