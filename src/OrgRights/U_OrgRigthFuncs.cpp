#include "OrgRights/U_OrgRigthFuncs.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "Frame/Dialects.h"
#include "Frame/Session.h"
#include "OrgRights/U_OrgRigthStatements.h"

namespace zanrole {

namespace {

/// Whom or what a caller means: a name with its quotes, or a number.
struct TDesignator {
  bool IsName;
  std::string Value;

  /// The condition that finds it, from its beginning for numbers or the one for names.
  std::string Condition(const char* byNumber, const char* byName) const {
    return (IsName ? byName : byNumber) + Value;
  }
};

TDesignator Designate(const std::string& text) {
  const std::string trimmed = Trim(text);
  const bool quoted = trimmed.size() > 1 && trimmed.front() == '\'' && trimmed.back() == '\'';
  if (quoted) return {true, trimmed};
  return {false, std::to_string(StrToIntDef(trimmed, -1))};
}

TDesignator DesignateUser(const std::string& text) {
  if (Trim(text).empty()) return {false, TOrgRightFuncs::OrgUserOID()};
  return Designate(text);
}

std::string UserCondition(const std::string& user) {
  return DesignateUser(user).Condition("a.UserOID = ", "a.Name = ");
}

bool HasRow(const std::string& statement) {
  const auto query = TDbProviderFactory::GetQuery();
  OpenStatement(*query, statement);
  return !query->Eof();
}

std::string FirstValue(const std::string& statement) {
  const auto query = TDbProviderFactory::GetQuery();
  OpenStatement(*query, statement);
  return query->Eof() ? std::string{} : query->Fields(0).AsString();
}

bool NeedsDoubleQuotes(std::string_view value) {
  return std::any_of(value.begin(), value.end(),
                     [](char c) { return c == ',' || c == '"' || static_cast<unsigned char>(c) <= ' '; });
}

/// The values as comma text. A lone empty value stands in double quotes: it would otherwise be none.
std::string CommaText(const std::vector<std::string>& values) {
  if (values.size() == 1 && values.front().empty()) return "\"\"";
  std::string text;
  for (const std::string& value : values) {
    if (&value != &values.front()) text += ',';
    text += NeedsDoubleQuotes(value) ? '"' + StringReplace(value, "\"", "\"\"") + '"' : value;
  }
  return text;
}

std::string InBrackets(const std::vector<std::string>& values) {
  return values.empty() ? "(NULL)" : "(" + CommaText(values) + ")";
}

enum class TNulls { Skipped, ReadAsEmpty };

std::string ListOf(const std::string& statement, bool quoted, TNulls nulls) {
  const auto query = TDbProviderFactory::GetQuery();
  std::vector<std::string> values;
  for (OpenStatement(*query, statement); !query->Eof(); query->Next()) {
    const TField& field = query->Fields(0);
    if (nulls == TNulls::Skipped && field.IsNull()) continue;
    values.push_back(quoted ? QuotedStr(field.AsString()) : field.AsString());
  }
  return InBrackets(values);
}

}  // namespace

std::string TOrgRightFuncs::OrgUserOID() { return std::to_string(SystemInfo().LoginUserOID); }

// Members.

std::string TOrgRightFuncs::OrgDeptMembers(const std::string& user, const std::string& column, bool quoted) {
  return ListOf(NullFuncRewrite(SelectDeptMembers(UserCondition(user), column)), quoted, TNulls::Skipped);
}
std::string TOrgRightFuncs::OrgDeptMemberIDs(const std::string& user) {
  return OrgDeptMembers(user, "d.OID", /*quoted*/ false);
}
std::string TOrgRightFuncs::OrgDeptMemberCodes(const std::string& user) {
  return OrgDeptMembers(user, "d.UserID", /*quoted*/ true);
}
std::string TOrgRightFuncs::OrgDeptMemberNames(const std::string& user) {
  return OrgDeptMembers(user, "d.UserName", /*quoted*/ true);
}

std::string TOrgRightFuncs::OrgPositionMembers(const std::string& user, const std::string& column,
                                               bool quoted) {
  return ListOf(SelectPositionMembers(UserCondition(user), column), quoted, TNulls::Skipped);
}
std::string TOrgRightFuncs::OrgPositionMemberIDs(const std::string& user) {
  return OrgPositionMembers(user, "d.OID", /*quoted*/ false);
}
std::string TOrgRightFuncs::OrgPositionMemberCodes(const std::string& user) {
  return OrgPositionMembers(user, "d.UserID", /*quoted*/ true);
}
std::string TOrgRightFuncs::OrgPositionMemberNames(const std::string& user) {
  return OrgPositionMembers(user, "d.UserName", /*quoted*/ true);
}

// Is the user in it, or under it?

bool TOrgRightFuncs::OrgUserIsDeptMember(const std::string& user, const std::string& department) {
  return HasRow(
      SelectDeptOfMember(UserCondition(user), Designate(department).Condition("c.DjLsh = ", "c.Name = ")));
}

bool TOrgRightFuncs::OrgUserIsPositionMember(const std::string& user, const std::string& position) {
  const TDesignator designator = Designate(position);
  // A number is looked for in the same column each time.
  for (const char* byName : {"b.FullName = ", "b.Name = ", "b.Title = "}) {
    if (HasRow(SelectPositionOfMember(UserCondition(user), designator.Condition("b.DjLsh = ", byName))))
      return true;
  }
  return false;
}

bool TOrgRightFuncs::OrgUserIsUnderDept(const std::string& user, const std::string& department) {
  return HasRow(
      SelectDeptAbove(UserCondition(user), Designate(department).Condition("b.DjLsh = ", "b.Name = ")));
}

namespace {

bool IsAdministrator(const TDesignator& person) {
  return HasRow(SelectAdministrator(person.Condition(" and OID = ", " and UserName = ")));
}

}  // namespace

bool TOrgRightFuncs::OrgUserIsUnderling(const std::string& user, const std::string& superior) {
  const TDesignator second = Designate(superior);
  const bool userIsAdministrator = IsAdministrator(DesignateUser(user));
  const bool superiorIsAdministrator = IsAdministrator(second);
  if (!userIsAdministrator && superiorIsAdministrator) return true;
  return HasRow(SelectSuperior(UserCondition(user), second.Condition("UserOID = ", "Name = ")));
}

bool TOrgRightFuncs::OrgUserIsSuperior(const std::string& user, const std::string& underling) {
  return OrgUserIsUnderling(underling, user);
}

// Companies and their managers.

namespace {

std::string PersonCondition(const std::string& user) {
  return DesignateUser(user).Condition("UserOID = ", "Name = ");
}

std::string CompanyList(const std::string& statement, bool quoted) {
  return ListOf(statement, quoted, TNulls::ReadAsEmpty);
}

}  // namespace

std::string TOrgRightFuncs::OrgGetCompanySQL(const std::string& user, const std::string& column) {
  return SelectCompanies(PersonCondition(user), column);
}
std::string TOrgRightFuncs::OrgGetCompanyManagerSQL(const std::string& user, const std::string& column) {
  return SelectCompanyManagers(PersonCondition(user), column);
}

std::string TOrgRightFuncs::OrgCompanyID(const std::string& user) {
  return FirstValue(OrgGetCompanySQL(user, "b.DjLsh"));
}
std::string TOrgRightFuncs::OrgCompanyName(const std::string& user) {
  return FirstValue(OrgGetCompanySQL(user, "b.Name"));
}
std::string TOrgRightFuncs::OrgCompanyIDs(const std::string& user) {
  return CompanyList(OrgGetCompanySQL(user, "b.DjLsh"), /*quoted*/ false);
}
std::string TOrgRightFuncs::OrgCompanyNames(const std::string& user) {
  return CompanyList(OrgGetCompanySQL(user, "b.Name"), /*quoted*/ true);
}

std::string TOrgRightFuncs::OrgCompanyManagerID(const std::string& user) {
  return FirstValue(OrgGetCompanyManagerSQL(user, "c.UserOID"));
}
std::string TOrgRightFuncs::OrgCompanyManagerCode(const std::string& user) {
  return FirstValue(OrgGetCompanyManagerSQL(user, "c.Code"));
}
std::string TOrgRightFuncs::OrgCompanyManagerName(const std::string& user) {
  return FirstValue(OrgGetCompanyManagerSQL(user, "c.Name"));
}
std::string TOrgRightFuncs::OrgCompanyManagerIDs(const std::string& user) {
  return CompanyList(OrgGetCompanyManagerSQL(user, "c.UserOID"), /*quoted*/ false);
}
std::string TOrgRightFuncs::OrgCompanyManagerCodes(const std::string& user) {
  return CompanyList(OrgGetCompanyManagerSQL(user, "c.Code"), /*quoted*/ true);
}
std::string TOrgRightFuncs::OrgCompanyManagerNames(const std::string& user) {
  return CompanyList(OrgGetCompanyManagerSQL(user, "c.Name"), /*quoted*/ true);
}

// Names without a question behind them.

std::string TOrgRightFuncs::OrgSuperiorID(const std::string&) { return {}; }
std::string TOrgRightFuncs::OrgSuperiorIDs(const std::string&) { return {}; }
std::string TOrgRightFuncs::OrgSuperiorCode(const std::string&) { return {}; }
std::string TOrgRightFuncs::OrgSuperiorCodes(const std::string&) { return {}; }
std::string TOrgRightFuncs::OrgSuperiorName(const std::string&) { return {}; }
std::string TOrgRightFuncs::OrgSuperiorNames(const std::string&) { return {}; }
std::string TOrgRightFuncs::OrgDeptID(const std::string&) { return {}; }
std::string TOrgRightFuncs::OrgDeptIDs(const std::string&) { return {}; }
std::string TOrgRightFuncs::OrgDeptName(const std::string&) { return {}; }
std::string TOrgRightFuncs::OrgDeptNames(const std::string&) { return {}; }
std::string TOrgRightFuncs::OrgPositionID(const std::string&) { return {}; }
std::string TOrgRightFuncs::OrgPositionIDs(const std::string&) { return {}; }
std::string TOrgRightFuncs::OrgPositionName(const std::string&) { return {}; }
std::string TOrgRightFuncs::OrgPositionNames(const std::string&) { return {}; }
std::string TOrgRightFuncs::OrgPositionFullName(const std::string&) { return {}; }
std::string TOrgRightFuncs::OrgPositionFullNames(const std::string&) { return {}; }

}  // namespace zanrole
