// What a host pays for each of the role functions of the loaded module, from the function's name to its
// answer, against the function's statements prepared once in SQLite's own interface; and how an answer about
// one person grows with the organisation. Both sides ask the same sample company in the same run.

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "bench/BareConnection.h"
#include "bench/BareStatement.h"
#include "bench/Measure.h"
#include "bench/SessionOfUser.h"
#include "host/platform/Sample.h"
#include "host/platform/Schema.h"
#include "host/query/DataUrl.h"

namespace {

using namespace zanhost;
using zanbench::TBareConnection;

/// Whom the questions are about.
struct TSubject {
  std::string Login;
  std::string Position;    ///< code of the position of the main post
  std::string Department;  ///< code of its department
};

constexpr const char* kSomePeople =
    "select u.code Login, p.Code Position, d.Code Department from UserH u "
    "inner join PartyH r on r.DjLsh = u.ObjID inner join PartyH p on p.DjLsh = r.Parent "
    "inner join PartyH d on d.DjLsh = p.Parent inner join PositionMapH m on m.PositionID = p.DjLsh "
    "inner join PositionMapH a on a.Djlsh = m.UpperPosition "
    "where m.MapID = 1 and a.PositionID > 0 order by u.DjLsh";

/// A sample company and a session of its super user.
class TCompany {
 public:
  explicit TCompany(int people) {
    const auto database = OpenDatabase(Url(), TOpenMode::CreateIfMissing);
    TSivCipher cipher(std::filesystem::path(FFolder.Path()) / "zanrole.key");
    InstallSchema(*database);
    FAdmin = MakeSample(*database, {.People = people, .AdminPassword = "not asked for", .Cipher = cipher})
                 .AdminLogin;
    Rows = Number(*database, "select count(*) from PartyH");
    ReadSubjects(*database);
    Session.emplace(Url(), FAdmin);
  }

  std::string File() const { return FFolder.Path() + "/zanrole.db"; }
  const TSubject& Subject(int call) const {
    return FSubjects[static_cast<std::size_t>(call) % FSubjects.size()];
  }

  int Rows = 0;
  std::optional<zanbench::TSessionOfUser> Session;

 private:
  std::string Url() const { return "sqlite:" + FFolder.Path(); }

  static int Number(TDatabase& database, const char* statement) {
    const auto query = database.GetQuery();
    query->SQL().SetText(statement);
    query->Open();
    return query->Fields(0).AsInteger();
  }

  /// Sixty-four people from all over the company.
  void ReadSubjects(TDatabase& database) {
    const auto query = database.GetQuery();
    query->SQL().SetText(kSomePeople);
    query->Open();
    const int step = std::max(1, query->DataSet().RowCount() / 64);
    for (int row = 0; row < query->DataSet().RowCount(); row += step) {
      query->DataSet().GoTo(row);
      FSubjects.push_back({query->FieldByName("Login").AsString(), query->FieldByName("Position").AsString(),
                           query->FieldByName("Department").AsString()});
    }
  }

  zanbench::TFolder FFolder;
  std::string FAdmin;
  std::vector<TSubject> FSubjects;
};

// clang-format off
// The statements of the functions, with ?1 for the value.
const std::string kMainPost =
    "select parent from partyh where type='User' and (djlsh = (select objid from UserH where code=?1))";
const std::string kPostItself =
    "select parent as oid from partyh where type='User' and (djlsh = (select objid from UserH where code=?1))";
const std::string kDepartment = "select parent as oid from partyh where djlsh in ( " + kMainPost + ")";
const std::string kParentOfDepartment = "select parent from partyh where type = 'Department' and djlsh= ?1";
const std::string kNode = "select type,code,parent from partyh where djlsh = ?1";
const std::string kCodeOfNode = "select code from partyh where djlsh = ?1";
const std::string kNameOfNode = "select name from partyh where djlsh = ?1";
const std::string kCompanyName = "select name from partyh where type='Company' and code= ?1";
const std::string kCompanyOID = "select djlsh from partyh where type='Company' and code= ?1";
const std::string kPositionCode = "select code from partyh where djlsh in ( " + kMainPost + ")";
const std::string kPositionName = "select name from partyh where djlsh in ( " + kMainPost + ")";
const std::string kKindCode =
    "select code from PositionH where code in ( select PositionCode from PositionEntityH where ObjID in ( " + kMainPost + "))";
const std::string kKindName =
    "select name from PositionH where code in ( select PositionCode from PositionEntityH where ObjID in ( " + kMainPost + "))";
const std::string kHolders =
    "from PartyH where [type]='User' and(parent in (select objId from PositionEntityH where Code=?1))";
const std::string kHolderPeople = "select Djlsh as oid,Code,Name from UserH where Code in ( select code " + kHolders + ")";
const std::string kHolderCodes = "select code,name " + kHolders;
const std::string kHolderNames = "select name,code " + kHolders;
const std::string kManagerPost =
    "select p.djlsh as peoid,p.name as peName,p.type,pe.* from partyh p left join PositionEntityH pe on pe.objid = p.djlsh "
    "where (p.parent in (select djlsh from partyh where code=?1)) and (p.type='PositionEntity')and (pe.isManager =1)";
const std::string kPostHolderCodes = "select code,name from PartyH where [type]='User' and(parent=?1 )";
const std::string kPostHolderNames = "select name,code from PartyH where [type]='User' and(parent=?1 )";
const std::string kMainPostRow = "select ObjID from UserH where (code= ?1)";
const std::string kMainPostRows = "select ObjID from UserH where (code in (?1, 'nobody', 'no one'))";
const std::string kMapByName = "select MapId,PositionName from PositionMapH where (PositionID=-1)and (PositionName=?1)";
const std::string kSuperiors =
    "select code from partyH where parent in ( select MP.PositionId from PositionMapH MP where MP.PositionID >= 0 "
    "and MP.djlsh in ( SELECT LP.UpperPosition FROM PositionMapH LP WHERE LP.MapID = 1 AND LP.UpperPosition >= 0 "
    "AND LP.UpperPosition >= 0 and LP.PositionID in (select parent from partyh where code = ?1) )) ";
const std::string kUnderlings =
    "select code from partyH where parent in (select MP.PositionId from PositionMapH MP where MP.UpperPosition in ( "
    "SELECT LP.djlsh FROM PositionMapH LP WHERE (LP.MapID = 1) and (LP.PositionID in (select parent from partyh where code=?1)) ))";
const std::string kFirstParent = "select parent from partyh where code= ?1";
// clang-format on

constexpr const char* kMap = "行政汇报";

std::int64_t AsNumber(const std::string& text) { return std::stoll(text); }

std::string CompanyCode(TBareConnection& bare, const std::string& login) {
  const std::string department = bare.First(kDepartment, login);
  for (std::string parent = bare.First(kParentOfDepartment, AsNumber(department));;) {
    const auto node = bare.Row<3>(kNode, AsNumber(parent));
    if (node[0] == "Company") return node[1];
    parent = node[2];
  }
}

/// A function, its input, and the same question in the bare interface; every answer with a comma behind it.
struct TQuestion {
  const char* Function;
  const char* Input;
  std::string TSubject::*About;
  std::function<std::string(TBareConnection&, const std::string&)> Floor;
  bool SingleAnswer = true;
  bool OnMap = false;
};

using TFloor = std::function<std::string(TBareConnection&, const std::string&)>;

TFloor ListOf(const std::string& statement) {
  return
      [&statement](TBareConnection& bare, const std::string& value) { return bare.List(statement, value); };
}

TFloor OfDepartment(const std::string& statement) {
  return [&statement](TBareConnection& bare, const std::string& login) {
    return bare.List(statement, bare.First(kDepartment, login));
  };
}

TFloor OfCompany(const std::string& statement) {
  return [&statement](TBareConnection& bare, const std::string& login) {
    return bare.List(statement, CompanyCode(bare, login));
  };
}

TFloor OfManagerPost(const std::string& statement) {
  return [&statement](TBareConnection& bare, const std::string& code) {
    return bare.List(statement, AsNumber(bare.First(kManagerPost, code)));
  };
}

TFloor OnMap(const std::string& statement) {
  return [&statement](TBareConnection& bare, const std::string& login) {
    bare.First(kMapByName, kMap);
    return bare.List(statement, login);
  };
}

const TQuestion kQuestions[] = {
    {"RoleGetUserOID", "用户号", &TSubject::Login, ListOf(kMainPostRow)},
    {"RoleGetUserOIDS", "用户号集", &TSubject::Login, ListOf(kMainPostRows)},
    {"RoleDepartmentOID", "用户号", &TSubject::Login, ListOf(kDepartment)},
    {"RoleDepartmentCode", "用户号", &TSubject::Login, OfDepartment(kCodeOfNode)},
    {"RoleDepartmentName", "用户号", &TSubject::Login, OfDepartment(kNameOfNode)},
    {"RoleCompanyOID", "用户号", &TSubject::Login, OfCompany(kCompanyOID)},
    {"RoleCompanyCode", "用户号", &TSubject::Login,
     [](TBareConnection& bare, const std::string& login) { return CompanyCode(bare, login) + ","; }},
    {"RoleCompanyName", "用户号", &TSubject::Login, OfCompany(kCompanyName)},
    {"RolePositionEntityOID", "用户号", &TSubject::Login, ListOf(kPostItself)},
    {"RolePositionEntityCode", "用户号", &TSubject::Login, ListOf(kPositionCode)},
    {"RolePositionEntityName", "用户号", &TSubject::Login, ListOf(kPositionName)},
    {"RolePositionCode", "用户号", &TSubject::Login, ListOf(kKindCode)},
    {"RolePositionName", "用户号", &TSubject::Login, ListOf(kKindName)},
    {"RolePositionUserOIDs", "岗位号", &TSubject::Position, ListOf(kHolderPeople), false},
    {"RolePositionUserCodes", "岗位号", &TSubject::Position, ListOf(kHolderCodes), false},
    {"RolePositionUserNames", "岗位号", &TSubject::Position, ListOf(kHolderNames), false},
    {"RoleGetManagerCode", "ParentCode", &TSubject::Department, OfManagerPost(kPostHolderCodes)},
    {"RoleGetManagerName", "ParentCode", &TSubject::Department, OfManagerPost(kPostHolderNames)},
    {"RoleSuperiorEx", "当前用户", &TSubject::Login, OnMap(kSuperiors), true, true},
    {"RoleUnderlingEx", "当前用户", &TSubject::Login, OnMap(kUnderlings), false, true},
};

std::string Ask(TCompany& company, const TQuestion& question, int call) {
  std::string value = company.Subject(call).*question.About;
  if (question.Function == std::string_view("RoleGetUserOIDS")) value += ",nobody,no one";
  TNamedValues inputs{{question.Input, value}};
  if (question.OnMap) inputs.emplace_back("岗位关系图", kMap);
  return company.Session->Ask(question.Function, inputs);
}

/// Answers differ from company to company: what counts is that there is one.
std::string IsAnswered(const std::string& answer) { return answer.size() > 1 ? "answered" : "(empty)"; }

}  // namespace

int main() {
  TCompany company(/*people*/ 500);
  zanbench::TReport report("Role functions", zanbench::SqliteEngine());
  {
    TBareConnection bare(company.File());
    for (const TQuestion& question : kQuestions) {
      report.Compare(
          question.Function, 1.3, [&](int call) { return Ask(company, question, call); },
          [&](int call) { return question.Floor(bare, company.Subject(call).*question.About); });
    }
    // All levels fail in the database wherever somebody is found. What remains is who has nobody: one
    // statement.
    report.Compare(
        "RoleSuperiorAllEx of nobody", 1.3,
        [&](int) {
          return company.Session->Ask("RoleSuperiorAllEx", {{"当前用户", "nobody"}, {"岗位关系图", kMap}});
        },
        [&](int) { return bare.First(kFirstParent, "nobody") + ","; });
    report.Compare(
        "RoleUnderlingAllEx of nobody", 1.3,
        [&](int) {
          return company.Session->Ask("RoleUnderlingAllEx", {{"当前用户", "nobody"}, {"岗位关系图", kMap}});
        },
        [&](int) { return bare.First(kFirstParent, "nobody") + ","; });
  }
  TCompany small(/*people*/ 6500);
  TCompany large(/*people*/ 65000);
  std::printf("an organisation of %d rows against one of %d rows\n", large.Rows, small.Rows);
  for (const TQuestion& question : kQuestions) {
    if (!question.SingleAnswer) continue;
    report.Compare(
        std::string(question.Function) + ", 10 times the rows", 1.3,
        [&](int call) { return IsAnswered(Ask(large, question, call)); },
        [&](int call) { return IsAnswered(Ask(small, question, call)); });
  }
  return report.Finish();
}
