#include "OrgRights/U_OrgRigthStatements.h"

#include <initializer_list>

namespace zanrole {

namespace {

/// A line of a statement: its pieces as one text.
std::string Line(std::initializer_list<std::string_view> pieces) {
  std::string line;
  for (const std::string_view piece : pieces) line += piece;
  return line;
}

std::string Lines(std::initializer_list<std::string_view> lines) {
  std::string text;
  for (const std::string_view line : lines) {
    if (!text.empty()) text += "\r\n";
    text += line;
  }
  return text;
}

}  // namespace

// clang-format off

// A position counts up to the user's own highest rank in the department. Where none of his positions there
// has a rank, the comparison with null lets nobody in.
std::string SelectDeptMembers(std::string_view userCondition, std::string_view column) {
  return Lines({
      "with Depts as (",
      "select c.DjLsh DeptLsh, max(b.isHeadPosition) isHead",
      "from PartyH a",
      "left outer join PartyH b on a.Parent = b.DjLsh",
      "left outer join PartyH c on b.Parent = c.DjLsh",
      Line({"where a.Type = 'User' and a.isSTUser = 1 and ", userCondition}),
      "and b.Type = 'PositionEntity'",
      "and c.Type = 'Department'",
      "group by c.DjLsh",
      ")",
      Line({"select distinct ", column}),
      "from Depts a",
      "inner join PartyH b on a.DeptLsh = b.Parent and IsNull(b.isHeadPosition,0) <= a.isHead",
      "inner join PartyH c on b.DjLsh = c.Parent and c.isSTUser = 1",
      "left outer join STUsers d on c.UserOID = d.OID and d.UnUsed <> 1",
      "where b.Type = 'PositionEntity' and c.Type = 'User' "});
}

std::string SelectPositionMembers(std::string_view userCondition, std::string_view column) {
  return Lines({
      Line({"select distinct ", column}),
      "from PartyH a",
      "inner join PartyH b on a.Parent = b.DjLsh and b.Type = 'PositionEntity'",
      "inner join PartyH c on b.DjLsh = c.Parent and c.Type = 'User' and c.isSTUser = 1",
      "left outer join STUsers d on c.UserOID = d.OID and d.UnUsed <> 1",
      Line({"where a.Type = 'User' and a.isSTUser = 1 and ", userCondition})});
}

std::string SelectDeptOfMember(std::string_view userCondition, std::string_view departmentCondition) {
  return Lines({
      "select c.DjLsh",
      "from PartyH a",
      "inner join PartyH b on a.Parent = b.DjLsh and b.Type = 'PositionEntity'",
      "inner join PartyH c on b.Parent = c.DjLsh and c.Type = 'Department'",
      Line({"where a.Type = 'User' and a.isSTUser = 1 and ", userCondition, " and ", departmentCondition})});
}

std::string SelectPositionOfMember(std::string_view userCondition, std::string_view positionCondition) {
  return Lines({
      "select b.DjLsh",
      "from PartyH a",
      "inner join PartyH b on a.Parent = b.DjLsh and b.Type = 'PositionEntity'",
      Line({"where a.Type = 'User' and a.isSTUser = 1 and ", userCondition, " and ", positionCondition})});
}

std::string SelectDeptAbove(std::string_view userCondition, std::string_view departmentCondition) {
  return Lines({
      "with cte(DjLsh) as (",
      "select b.Parent DjLsh",
      "from PartyH a",
      "inner join PartyH b on a.Parent = b.DjLsh and b.Type = 'PositionEntity'",
      Line({"where a.Type = 'User' and a.isSTUser = 1 and ", userCondition}),
      "union all",
      "select a.Parent DjLsh",
      "from PartyH a",
      "inner join cte on a.DjLsh = cte.DjLsh",
      ")",
      "select b.DjLsh",
      "from cte",
      "inner join PartyH b on cte.DjLsh = b.DjLsh",
      Line({"where b.Type = 'Department' and ", departmentCondition})});
}

std::string SelectAdministrator(std::string_view accountCondition) {
  return Line({"select 1 from STUsers where IsAdministrator = 1 and UnUsed <> 1", accountCondition});
}

// The way up begins at the departments of the user's positions, one level higher where he is the head:
// nobody is his own superior.
std::string SelectSuperior(std::string_view userCondition, std::string_view superiorCondition) {
  return Lines({
      "with cte(DeptID) as (",
      "select case a.isHead when 1 then b.Parent else a.DeptID end DeptID",
      "from (",
      "select b.Parent DeptID, max(b.isHeadPosition) isHead",
      "from PartyH a",
      "inner join PartyH b on a.Parent = b.DjLsh and b.Type = 'PositionEntity'",
      Line({"where a.Type = 'User' and a.isSTUser = 1 and ", userCondition}),
      "group by b.Parent",
      ") a",
      "left outer join PartyH b on a.DeptID = b.DjLsh",
      "union all",
      "select a.Parent DeptID",
      "from PartyH a",
      "inner join cte on a.DjLsh = cte.DeptID",
      ")",
      "select d.DjLsh",
      "from cte",
      "inner join PartyH b on cte.DeptID = b.DjLsh",
      "and (b.Type = 'Department' or b.Type = 'Company')",
      "inner join PartyH c on b.DjLsh = c.Parent and ",
      "( (b.Type = 'Department' and c.Type = 'PositionEntity' and c.isHeadPosition = 1)",
      "or (b.Type = 'Company' and c.Type = 'User' and c.isSTUser = 1)",
      ")",
      "left outer join PartyH d on c.DjLsh = d.Parent and d.Type = 'User' and d.isSTUser = 1",
      Line({"where (b.Type = 'Department' and d.", superiorCondition}),
      ")",
      Line({"or (b.Type = 'Company' and c.", superiorCondition}),
      ")"});
}

namespace {

/// Everything above the rows of a person, and whether a head position was passed on the way there.
std::string WithAllAbove(std::string_view personCondition) {
  return Lines({
      "with cte(DjLsh, isHead) as (",
      "select Parent DjLsh, 0 isHead",
      "from PartyH",
      Line({"where Type = 'User' and isSTUser = 1 and ", personCondition}),
      "union all",
      "select a.Parent DjLsh",
      ", case when a.isHeadPosition > b.isHead then a.isHeadPosition else b.isHead end",
      "from PartyH a",
      "inner join cte b on a.DjLsh = b.DjLsh",
      ")"});
}

}  // namespace

std::string SelectCompanies(std::string_view personCondition, std::string_view column) {
  return Lines({
      WithAllAbove(personCondition),
      Line({"select ", column, ", max(cte.isHead) isHead"}),
      "from cte",
      "inner join PartyH b on cte.DjLsh = b.DjLsh",
      "where b.Type = 'Company' ",
      Line({"group by ", column}),
      "order by 2 desc, 1"});
}

std::string SelectCompanyManagers(std::string_view personCondition, std::string_view column) {
  return Lines({
      WithAllAbove(personCondition),
      Line({"select ", column, ", max(cte.isHead) isHead"}),
      "from cte",
      "inner join PartyH b on cte.DjLsh = b.DjLsh",
      "inner join PartyH c on b.DjLsh = c.Parent",
      "where b.Type = 'Company' and c.Type = 'User' and c.isSTUser = 1 and c.UserOID > 0 ",
      Line({"group by ", column}),
      "order by 2 desc, 1"});
}

// clang-format on

}  // namespace zanrole
