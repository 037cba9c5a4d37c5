#include "host/platform/HostServices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/platform/Cipher.h"
#include "host/platform/JsonObject.h"

using testing::ElementsAre;
using testing::Pair;

namespace {

zanhost::TJsonMembers MembersOf(std::string_view text) {
  return zanhost::ParseJsonObject(text).value_or(zanhost::TJsonMembers{{"no", "object"}});
}

}  // namespace

TEST(MenuNodeJson, GivesScalarsAsTextInTheirOrder) {
  EXPECT_THAT(
      MembersOf(R"({"ObjectID":1201,"Caption":"域管理 \"A\" 𠀀","Open":true,"Width":1.5,"None":null})"),
      ElementsAre(Pair("ObjectID", "1201"), Pair("Caption", "域管理 \"A\" 𠀀"), Pair("Open", "true"),
                  Pair("Width", testing::StartsWith("1.5")), Pair("None", "")));
}

TEST(MenuNodeJson, LeavesNestedValuesOut) {
  EXPECT_THAT(MembersOf(R"({"List":[1,2],"Object":{"ObjectID":9},"ObjectID":-1})"),
              ElementsAre(Pair("ObjectID", "-1")));
}

TEST(MenuNodeJson, TextThatIsNoObjectGivesNothing) {
  for (const char* text :
       {"", "abc", "[1]", "12", "\"x\"", "null", "{", "{\"a\":1} x", "{a:1}", "{\"a\":\xFF}"})
    EXPECT_FALSE(zanhost::ParseJsonObject(text).has_value()) << text;
}

TEST(MenuNodeJson, DeepNestingIsRefusedAndDoesNotCrash) {
  EXPECT_FALSE(zanhost::ParseJsonObject("{\"a\":" + std::string(100000, '[') + "}").has_value());
}

TEST(HostServices, OffersTheContractOfItsBuildAndThePlatformsServices) {
  zanhost::TSivCipher cipher(zanhost::TSivCipher::TKey{});
  zanhost::THostServicesImpl services(cipher);
  EXPECT_EQ(services.ContractVersion(), zanrole::kContractVersion);
  EXPECT_EQ(&services.Cipher(), &cipher);
  EXPECT_EQ(services.StrToMIME64("admin\t\tx"), "YWRtaW4JCXg=");
  EXPECT_EQ(services.MIME64ToStr("YWRtaW4JCXg="), "admin\t\tx");
  EXPECT_THROW(services.MIME64ToStr("密"), zanrole::EConvertError);
  EXPECT_TRUE(services.ParseJsonObject("{}").has_value());
}
