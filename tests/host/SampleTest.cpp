#include "host/platform/Sample.h"

#include <gmock/gmock.h>

#include <fmt/format.h>

#include <map>
#include <memory>
#include <span>

#include "host/platform/Cipher.h"
#include "host/platform/Numbering.h"
#include "host/platform/Schema.h"
#include "host/query/DataUrl.h"
#include "tests/host/Rows.h"
#include "tests/host/SampleInvariants.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using testing::HasSubstr;
using zantest::Number;
using zantest::Text;

constexpr std::string_view kTables[] = {"STUsers",
                                        "STUserGroup",
                                        "STUserPasswordStrategy",
                                        "STPermission",
                                        "PartyH",
                                        "CompanyH",
                                        "DepartmentH",
                                        "PositionH",
                                        "PositionEntityH",
                                        "PositionMapH",
                                        "UserH",
                                        "STDomains",
                                        "STDomainMembers",
                                        "STDomainInherits",
                                        "STDomainPermission",
                                        "STDomainOAPermission",
                                        "STDomainWebPermission",
                                        "STFieldPermissionControl",
                                        "STFieldPermissionSet",
                                        "WebPermission",
                                        "OA_MenusH",
                                        "STOAPermission",
                                        "DocumentTempletH",
                                        "Tree",
                                        "ObjectRegister",
                                        "ExFunction",
                                        "MlDy",
                                        "DjDy",
                                        "XmDy",
                                        "CxDy",
                                        "CxXsDy",
                                        "ViewDy",
                                        "WebMenu"};

/// An installed database with a sample company.
class TSampleDatabase {
 public:
  explicit TSampleDatabase(int people, unsigned seed = 1) {
    zanhost::InstallSchema(*FDatabase);
    Result = zanhost::MakeSample(
        *FDatabase, {.People = people, .Seed = seed, .AdminPassword = "Geheim 密码", .Cipher = FCipher});
  }
  zanhost::TDatabase& operator*() { return *FDatabase; }
  zanhost::TSivCipher& Cipher() { return FCipher; }

  zanhost::TSampleResult Result;

 private:
  zantest::TTemporaryFolder FFolder;
  std::unique_ptr<zanhost::TDatabase> FDatabase =
      zanhost::OpenDatabase("sqlite:" + FFolder.Path().string(), zanhost::TOpenMode::CreateIfMissing);
  zanhost::TSivCipher FCipher{zanhost::TSivCipher::TKey{}};
};

TSampleDatabase& SharedSample(int people) {
  static std::map<int, std::unique_ptr<TSampleDatabase>> samples;
  auto& sample = samples[people];
  if (!sample) sample = std::make_unique<TSampleDatabase>(people);
  return *sample;
}

void ExpectKept(zanhost::TDatabase& database, std::span<const zantest::TSampleInvariant> invariants) {
  for (const auto& [rule, breakers] : invariants) {
    const auto query = database.GetQuery();
    query->SQL().SetText(std::string(breakers));
    query->Open();
    EXPECT_TRUE(query->Eof()) << rule << ", broken by " << query->Fields(0).AsString() << " and "
                              << query->DataSet().RowCount() - 1 << " more";
  }
}

// All rows of a table as one text; passwords and their like are left out.
std::string Content(zanhost::TDatabase& database, std::string_view table) {
  const auto query = database.GetQuery();
  query->SQL().SetText(fmt::format("select * from {} order by 1, 2", table));
  query->Open();
  std::string content;
  for (; !query->Eof(); query->Next())
    for (int field = 0; field < query->DataSet().FieldCount(); ++field)
      if (query->Fields(field).Name() != "Password") content += query->Fields(field).AsString() + "\x1f";
  return content;
}

class SampleOfSize : public testing::TestWithParam<int> {};

class TFailingCipher final : public zanrole::TCipher {
 public:
  std::string Encrypt(std::string_view) override { throw zanrole::ECipherError("no key"); }
  std::string Decrypt(std::string_view) override { throw zanrole::ECipherError("no key"); }
};

class EmptyInstallation : public testing::Test {
 protected:
  EmptyInstallation() { zanhost::InstallSchema(*FDatabase); }
  zantest::TTemporaryFolder FFolder;
  std::unique_ptr<zanhost::TDatabase> FDatabase =
      zanhost::OpenDatabase("sqlite:" + FFolder.Path().string(), zanhost::TOpenMode::CreateIfMissing);
  zanhost::TSivCipher FCipher{zanhost::TSivCipher::TKey{}};
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Sizes, SampleOfSize, testing::Values(5, 10, 120, 500, 3000));

TEST_P(SampleOfSize, OrganisationKeepsItsInvariants) {
  ExpectKept(*SharedSample(GetParam()), zantest::OrganisationInvariants());
}

TEST_P(SampleOfSize, AccountsKeepTheirInvariants) {
  ExpectKept(*SharedSample(GetParam()), zantest::AccountInvariants());
}

TEST_P(SampleOfSize, DomainsKeepTheirInvariants) {
  ExpectKept(*SharedSample(GetParam()), zantest::DomainInvariants());
}

TEST_P(SampleOfSize, MenusAndRightsKeepTheirInvariants) {
  ExpectKept(*SharedSample(GetParam()), zantest::MenuInvariants());
}

TEST_P(SampleOfSize, EveryTableHoldsRows) {
  for (const std::string_view table : kTables)
    EXPECT_GT(Number(*SharedSample(GetParam()), fmt::format("select count(*) from {}", table)), 0) << table;
}

TEST_P(SampleOfSize, ResultTellsWhatWasMade) {
  TSampleDatabase& sample = SharedSample(GetParam());
  const zanhost::TSampleResult& result = sample.Result;
  EXPECT_GE(result.People, GetParam());
  EXPECT_EQ(result.People, Number(*sample, "select count(*) from UserH"));
  EXPECT_EQ(result.Companies, Number(*sample, "select count(*) from CompanyH"));
  EXPECT_EQ(result.Departments, Number(*sample, "select count(*) from DepartmentH"));
  EXPECT_EQ(result.Positions, Number(*sample, "select count(*) from PositionEntityH"));
  EXPECT_EQ(result.Users, Number(*sample, "select count(*) from STUsers where uGroup = 0"));
  EXPECT_EQ(result.Roles, Number(*sample, "select count(*) from STUsers where uGroup = 1"));
  EXPECT_EQ(result.Domains, Number(*sample, "select count(*) from STDomains"));
  EXPECT_EQ(result.MenuEntries, Number(*sample, "select count(*) from Tree"));
  EXPECT_EQ(result.Rights, Number(*sample, "select count(*) from STPermission"));
}

TEST_P(SampleOfSize, LoginsOfTheResultAreWhatTheySay) {
  TSampleDatabase& sample = SharedSample(GetParam());
  const auto kindOf = [&](const std::string& login) {
    return Number(*sample, fmt::format("select IsAdministrator + 10 * UnUsed + 100 * uGroup from STUsers "
                                       "where UserID = '{}'",
                                       login));
  };
  EXPECT_EQ(sample.Result.AdminLogin, "admin");
  EXPECT_EQ(kindOf(sample.Result.AdminLogin), 1);
  EXPECT_EQ(kindOf(sample.Result.ManagerLogin), 2);
  ASSERT_FALSE(sample.Result.UserLogin.empty());
  EXPECT_EQ(kindOf(sample.Result.UserLogin), 0);
}

TEST(Sample, MediumCompanyShowsWhatTheConsolesDistinguish) {
  TSampleDatabase& sample = SharedSample(500);
  for (const char* statement : {
           "select count(*) from UserH where ObjID = 0",
           "select count(*) from PartyH where Parent = -9",
           "select count(*) from PartyH a inner join PartyH b on a.Parent = b.DjLsh where b.Type = 'Company' "
           "and a.Type = 'Company'",
           "select count(*) from STUsers where UnUsed = 1",
           "select count(*) from STUsers where EmpowermentRight = 1",
           "select count(*) from STUsers where uGroup = 0 and IsAdministrator = 0 and UnUsed <> 1 and OID "
           "not in "
           "(select UserOID from STDomainMembers)",
           "select count(*) from STUsers where uGroup = 0 and UserID not in "
           "(select UserID from STUserPasswordStrategy)",
           "select count(*) from STUserPasswordStrategy where NeedReset = 1",
           "select count(*) from STUserPasswordStrategy where CanModify = 0",
           "select count(*) from Tree where NeedHide = 1",
           "select count(*) from STDomains where RelateOrg > 0 and NodeLevel > 0",
           "select count(*) from STDomainMembers a where MemberType = 2 and IsOwned = 1 and not exists "
           "(select 1 from STDomainMembers b where b.UserOID = a.UserOID and b.IsOwned = 0)",
           "select count(*) from STDomainMembers a inner join STDomainMembers b on a.UserOID = b.UserOID "
           "where a.MemberType = 0 and a.IsOwned = 1 and b.IsOwned = 0 and a.DomainID <> b.DomainID",
           "select count(*) from STPermission a inner join STUsers b on a.UserID = b.OID "
           "where b.uGroup = 1 and a.Permission = 0",
           "select count(*) from STPermission a inner join STUsers b on a.UserID = b.OID "
           "where b.uGroup = 0 and a.Permission = 0",
           "select count(*) from STPermission a inner join STUsers b on a.UserID = b.OID "
           "where b.uGroup = 0 and a.Permission = 1",
           "select count(*) from STUsers where uGroup = 0 and UserName glob '[A-Z]*'",
       })
    EXPECT_GT(Number(*sample, statement), 0) << statement;
}

TEST(Sample, PasswordOfTheSuperUserIsBoundToHisLogin) {
  TSampleDatabase& sample = SharedSample(10);
  const std::string stored = Text(*sample, "select Password from STUsers where UserID = 'admin'");
  EXPECT_EQ(sample.Cipher().Decrypt(stored), "admin:Geheim 密码");
}

TEST(Sample, OtherPasswordsAreNeitherKnownNorEqual) {
  TSampleDatabase first(5);
  TSampleDatabase second(5);
  const std::string statement =
      fmt::format("select Password from STUsers where UserID = '{}'", first.Result.UserLogin);
  const std::string password = first.Cipher().Decrypt(Text(*first, statement));
  EXPECT_THAT(password, testing::StartsWith(first.Result.UserLogin + ":"));
  EXPECT_GT(password.size(), first.Result.UserLogin.size() + 20);
  EXPECT_NE(password, second.Cipher().Decrypt(Text(*second, statement)));
}

TEST(Sample, SameSeedGivesTheSameRows) {
  TSampleDatabase first(60, 7);
  TSampleDatabase second(60, 7);
  for (const std::string_view table : kTables)
    EXPECT_EQ(Content(*first, table), Content(*second, table)) << table;
}

TEST(Sample, OtherSeedGivesOtherRows) {
  TSampleDatabase first(60, 7);
  TSampleDatabase second(60, 8);
  EXPECT_NE(Content(*first, "UserH"), Content(*second, "UserH"));
}

TEST(Sample, CountersGoOnAboveTheRows) {
  TSampleDatabase sample(10);
  EXPECT_EQ(zanhost::NewDjLsh(*sample, "Party"), Number(*sample, "select max(DjLsh) + 1 from PartyH"));
  EXPECT_EQ(zanhost::NewDjLsh(*sample, "user"), Number(*sample, "select max(DjLsh) + 1 from UserH"));
  EXPECT_EQ(zanhost::NewDjLsh(*sample, "PositionMap"),
            Number(*sample, "select max(Djlsh) + 1 from PositionMapH"));
}

TEST(Sample, SecondRunIsRefusedAndChangesNothing) {
  TSampleDatabase sample(10);
  const std::string before = Content(*sample, "PartyH");
  try {
    zanhost::MakeSample(*sample, {.People = 10, .AdminPassword = "x", .Cipher = sample.Cipher()});
    FAIL() << "a second sample was made";
  } catch (const zanrole::EZanError& error) {
    EXPECT_THAT(error.what(), HasSubstr("holds data already"));
  }
  EXPECT_EQ(Content(*sample, "PartyH"), before);
}

TEST_F(EmptyInstallation, RowOfAnyConsoleRefusesTheSample) {
  zantest::Execute(*FDatabase, "insert into STDomains (ID, Name) values (1, 'A')");
  EXPECT_THROW(zanhost::MakeSample(*FDatabase, {.AdminPassword = "x", .Cipher = FCipher}),
               zanrole::EZanError);
  EXPECT_EQ(Number(*FDatabase, "select count(*) from PartyH"), 0);
}

TEST_F(EmptyInstallation, FailureLeavesNothingBehindAndTheDatabaseUsable) {
  TFailingCipher failing;
  EXPECT_THROW(zanhost::MakeSample(*FDatabase, {.People = 10, .AdminPassword = "x", .Cipher = failing}),
               zanrole::ECipherError);
  for (const std::string_view table : kTables)
    EXPECT_EQ(Number(*FDatabase, fmt::format("select count(*) from {}", table)), 0) << table;
  zanhost::MakeSample(*FDatabase, {.People = 10, .AdminPassword = "x", .Cipher = FCipher});
  EXPECT_GT(Number(*FDatabase, "select count(*) from PartyH"), 0);
}

TEST_F(EmptyInstallation, OptionsOutOfBoundsAreRefused) {
  const auto make = [&](int people, std::string password) {
    zanhost::MakeSample(*FDatabase,
                        {.People = people, .AdminPassword = std::move(password), .Cipher = FCipher});
  };
  EXPECT_THROW(make(zanhost::kFewestPeople - 1, "x"), zanrole::EZanError);
  EXPECT_THROW(make(2'000'000, "x"), zanrole::EZanError);
  EXPECT_THROW(make(10, ""), zanrole::EZanError);
}
