#include "Role/TolPermission.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/RecordingHost.h"
#include "tests/unit/Role/Lines.h"

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using namespace zanrole;

TZanValue Integer(int value) { return std::int64_t{value}; }

class ObjectRegistry : public testing::TestWithParam<TDialect> {
 protected:
  TRecordingHost Host{GetParam()};
  TTolPermission Permission;
};

INSTANTIATE_TEST_SUITE_P(EachDialect, ObjectRegistry,
                         testing::Values(TDialect::SqlServer, TDialect::Oracle, TDialect::MySql));

TEST_P(ObjectRegistry, AddObjectTakesTheLargestIdentityPlusOne) {
  Host.Answer("Select Max(ObjectID)", {"MOID"}, {{41}});
  EXPECT_EQ(Permission.AddObject(1, "采购单", 5), 42);
  ASSERT_EQ(Host.Statements.size(), 2u);
  EXPECT_EQ(Host.Statements[0].Text, "Select Max(ObjectID) as MOID From ObjectRegister");
  EXPECT_EQ(Host.Statements[0].Database, "system");
  EXPECT_EQ(Host.Statements[1].Text,
            "Insert Into ObjectRegister (ObjectID, TypeID, Object, OwnerID) "
            "Values (:ObjectID, :TypeID, :Object, :OwnerID)");
  EXPECT_EQ(Host.Statements[1].Database, "system");
  EXPECT_THAT(Host.Statements[1].Params,
              ElementsAre(Pair("ObjectID", Integer(42)), Pair("TypeID", Integer(1)),
                          Pair("Object", TZanValue("采购单")), Pair("OwnerID", Integer(5))));
}

TEST_P(ObjectRegistry, AddObjectOnAnEmptyRegistryGivesOne) {
  Host.Answer("Select Max(ObjectID)", {"MOID"}, {{std::monostate{}}});
  EXPECT_EQ(Permission.AddObject(7, "域管理", 3), 1);
}

TEST_P(ObjectRegistry, AddObjectOfAnUnknownTypeGivesMinusOneAndNoRow) {
  EXPECT_EQ(Permission.AddObject(3, "x", 0), -1);
  EXPECT_THAT(Host.Statements, IsEmpty());
}

TEST_P(ObjectRegistry, DeleteObjectAlsoDeletesFromTheLegacyTablePermission) {
  Permission.DeleteObject(42);
  EXPECT_THAT(Host.Texts(), ElementsAre("Delete From ObjectRegister Where ObjectID = :ObjectID",
                                        "Delete From Permission Where ObjectID = :ObjectID"));
  for (const TRecordedStatement& statement : Host.Statements) {
    EXPECT_EQ(statement.Database, "system");
    EXPECT_THAT(statement.Params, ElementsAre(Pair("ObjectID", Integer(42))));
  }
}

TEST_P(ObjectRegistry, DeleteObjectByNameFindsTheNumberFirst) {
  Host.Answer("Where TypeID = :TypeID", {"ObjectID", "Object", "OwnerID"}, {{8, " 采购单 ", 0}});
  Permission.DeleteObject(1, "采购单");
  ASSERT_EQ(Host.Statements.size(), 3u);
  EXPECT_EQ(Host.Statements[0].Text, "Select * From ObjectRegister Where TypeID = :TypeID");
  EXPECT_THAT(Host.Statements[0].Params, ElementsAre(Pair("TypeID", Integer(1))));
  EXPECT_THAT(Host.Statements[2].Params, ElementsAre(Pair("ObjectID", Integer(8))));
}

TEST_P(ObjectRegistry, GetObjectsInfoTrimsNamesAndOrdersByIdentity) {
  Host.Answer("Where TypeID", {"ObjectID", "Object", "OwnerID"}, {{9, "b ", 2}, {4, " a", 1}, {12, "c", 3}});
  std::optional<TTypeDef> type = Permission.FindType(2);
  ASSERT_TRUE(type);
  EXPECT_FALSE(type->ReadObjects);
  Permission.GetObjectsInfo(*type);
  EXPECT_TRUE(type->ReadObjects);
  ASSERT_EQ(type->Objects.size(), 3u);
  EXPECT_EQ(type->Objects[0].ID, 4);
  EXPECT_EQ(type->Objects[0].Name, "a");
  EXPECT_EQ(type->Objects[0].SID, 1);
  EXPECT_EQ(type->Objects[1].ID, 9);
  EXPECT_EQ(type->Objects[2].ID, 12);
}

TEST_P(ObjectRegistry, GetObjectIDByNameComparesExactlyAndGivesMinusOneForNone) {
  Host.AlwaysAnswer("Where TypeID", {"ObjectID", "Object", "OwnerID"}, {{9, "Orders", 0}, {4, "orders", 0}});
  EXPECT_EQ(Permission.GetObjectIDByName("Orders", 2), 9);
  EXPECT_EQ(Permission.GetObjectIDByName("orders", 2), 4);
  EXPECT_EQ(Permission.GetObjectIDByName("ORDERS", 2), -1);
  EXPECT_EQ(Permission.GetObjectIDByName("Orders", 3), -1);
}

TEST_P(ObjectRegistry, GetObjectByIndexGivesNothingForAnUnknownTypeOrPastTheEnd) {
  Host.AlwaysAnswer("Where TypeID", {"ObjectID", "Object", "OwnerID"}, {{9, "b", 0}, {4, "a", 0}});
  EXPECT_EQ(Permission.GetObjectByIndex(1, 2)->ID, 9);
  EXPECT_FALSE(Permission.GetObjectByIndex(2, 2));
  EXPECT_FALSE(Permission.GetObjectByIndex(-1, 2));
  EXPECT_FALSE(Permission.GetObjectByIndex(0, 3));
}

TEST(TypeTable, AnUnknownTypeIsAnsweredWithoutAFault) {
  TRecordingHost host;
  const TTolPermission permission;
  EXPECT_FALSE(permission.FindType(3));
  EXPECT_EQ(permission.GetOprateCount(3), 0);
  EXPECT_EQ(permission.GetOprateName(0, 3), "");
  EXPECT_EQ(permission.GetOpratesByTypeName("报表"), nullptr);
  EXPECT_EQ(permission.GetTypeIDByName("报表"), -1);
  EXPECT_THAT(host.Statements, IsEmpty());
}

TEST(TypeTable, GivesTheOperationsOfATypeByPlaceAndByName) {
  const TRecordingHost host;
  const TTolPermission permission;
  EXPECT_EQ(permission.GetOprateCount(1), 17);
  EXPECT_EQ(permission.GetOprateName(0, 1), "增加");
  EXPECT_EQ(permission.GetOprateName(16, 1), "批反记");
  EXPECT_EQ(permission.GetOprateName(17, 1), "");
  EXPECT_EQ(permission.GetOprateName(-1, 1), "");
  EXPECT_EQ(permission.GetTypeIDByName("菜单"), 7);
}

TEST(TypeTable, TheListOfOperationsIsTheOneOfTheTypeAndNoCopy) {
  const TRecordingHost host;
  const TTolPermission permission;
  const TStringList* list = permission.GetOpratesByTypeName("查询");
  EXPECT_EQ(list, permission.FindType(2)->Oprates);
  EXPECT_EQ(list, permission.FindType(2)->Oprates);
}

TEST(TypeDef, PlacesAnObjectBeforeTheFirstThatIsNotSmaller) {
  TTypeDef type;
  type.Place({5, 0, "five"});
  type.Place({9, 0, "nine"});
  type.Place({5, 0, "another five"});
  type.Place({0, 0, "new"});
  std::vector<std::string> names;
  for (const TSubDef& object : type.Objects) names.push_back(object.Name);
  EXPECT_THAT(names, ElementsAre("new", "another five", "five", "nine"));
}

}  // namespace
}  // namespace zantest
