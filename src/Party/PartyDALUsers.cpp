#include "Frame/Dialects.h"
#include "Party/PartyDAL.h"
#include "Party/QueryCloser.h"

namespace zanrole {

namespace {

// clang-format off

constexpr const char* kRoles =
    "select OID,UserID,UserName,UserDesc,Categories from stusers where uGroup=1 and UnUsed <> 1";

constexpr const char* kUsers =
    "select OID, UserID, UserName, UserDesc, Categories from STUsers where uGroup = 0 and UnUsed <> 1";

constexpr const char* kUsersWithDepartment = "select a.*, c.LongName UserDept from (";

// Of several rows of one person the higher main post counts.
constexpr const char* kDepartmentOfUsers = R"() a
 left outer join (
   select code, max(objID) objID
   from UserH
   group by code
 ) b on a.UserID = b.Code
 left outer join PartyH c on b.objID = c.DjLsh)";

constexpr const char* kDepartments =
    "select a.DjLsh, a.Code, a.Name, a.Title, a.Parent, a.LongName Remark from PartyH a "
    "where a.Type='Department' and a.IsActive=1 order by Code ";

// Above 0 keeps out the recycle bin and the rows of users of the system without a position.
constexpr const char* kPeople =
    "select a.DjLsh, a.Code, a.Name, a.Title, a.Parent, a.LongName Remark from PartyH a "
    "where a.Type='User' and a.IsActive=1 and a.Parent > 0";

// clang-format on

/// " and " and the condition, trimmed; empty for none.
std::string AndRange(std::string_view range) {
  const std::string condition = Trim(range);
  return condition.empty() ? "" : " and " + condition;
}

/// The first 200 characters of the text.
std::string Fitting(const std::string& text) {
  constexpr int kCharacters = 200;
  int characters = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool starts = (static_cast<unsigned char>(text[at]) & 0xC0U) != 0x80U;
    if (starts && ++characters > kCharacters) return text.substr(0, at);
  }
  return text;
}

/// Holds back what shows a data set while it is filled.
class TControlsDisabled {
 public:
  explicit TControlsDisabled(TDataSet& dataSet) : FDataSet(dataSet) { FDataSet.DisableControls(); }
  ~TControlsDisabled() { FDataSet.EnableControls(); }
  TControlsDisabled(const TControlsDisabled&) = delete;
  TControlsDisabled& operator=(const TControlsDisabled&) = delete;

 private:
  TDataSet& FDataSet;
};

/// Replaces the rows of `dataSet` by what the statement gives in its columns, and stands on the first.
void Refill(TDataSet& dataSet, TZANQuery& query, const std::string& statement) {
  const TControlsDisabled whileFilling(dataSet);
  const TQueryCloser whenRead(query);
  dataSet.EmptyTable();
  for (OpenStatement(query, statement); !query.Eof(); query.Next()) {
    dataSet.Append();
    dataSet.FieldByName("OID").SetValue(std::int64_t{query.FieldByName("OID").AsInteger()});
    for (const char* column : {"UserID", "UserName", "UserDesc", "Categories", "UserDept"}) {
      if (const TField* field = query.FindField(column))
        dataSet.FieldByName(column).SetValue(Fitting(Trim(field->AsString())));
    }
  }
  dataSet.First();
}

}  // namespace

TPartyDAL::TUserList& TPartyDAL::GetUserList() {
  if (!FUserList) {
    FUserList.emplace();
    LoadUsers("");
  }
  return *FUserList;
}

TPartyDAL::TRoleList& TPartyDAL::GetRoleList() {
  if (!FRoleList) {
    FRoleList.emplace();
    LoadRoles();
  }
  return *FRoleList;
}

void TPartyDAL::LoadRoles() { Refill(FRoleDataSet, *FQuery, kRoles); }

void TPartyDAL::LoadUsers(std::string_view UserRange) {
  Refill(FUserDataSet, *FQuery, kUsersWithDepartment + (kUsers + AndRange(UserRange)) + kDepartmentOfUsers);
}

void TPartyDAL::LoadRoleOfOrganization() { OpenStatement(*FRoleOfOrganizationQuery, kDepartments); }

void TPartyDAL::LoadUserOfOrganization(std::string_view UserRange) {
  OpenStatement(*FUserOfOrganizationQuery, kPeople + AndRange(UserRange) + " order by a.Code ");
}

}  // namespace zanrole
