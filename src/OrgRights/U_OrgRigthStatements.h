#pragma once

#include <string>
#include <string_view>

namespace zanrole {

// The statements of the organisation rights queries. A condition is "column = value", as U_OrgRigthFuncs
// makes it of what the caller says.

/// People of the departments of the user `a`, by position `b`, person `c` and account `d`.
std::string SelectDeptMembers(std::string_view userCondition, std::string_view column);
/// People of the positions of the user `a`, by position `b`, person `c` and account `d`.
std::string SelectPositionMembers(std::string_view userCondition, std::string_view column);
/// The department `c` if the user `a` holds a position in it.
std::string SelectDeptOfMember(std::string_view userCondition, std::string_view departmentCondition);
/// The position `b` if the user `a` holds it.
std::string SelectPositionOfMember(std::string_view userCondition, std::string_view positionCondition);
/// The department `b` if it lies on the way up from the positions of the user `a`.
std::string SelectDeptAbove(std::string_view userCondition, std::string_view departmentCondition);
/// The administrator in use whose account meets the condition, which brings its " and " along.
std::string SelectAdministrator(std::string_view accountCondition);
/// The heads and company managers above the user `a` who meet `superiorCondition`. The condition names its
/// column without a table.
std::string SelectSuperior(std::string_view userCondition, std::string_view superiorCondition);
/// The companies `b` above the person's row. The condition names its column without a table.
std::string SelectCompanies(std::string_view personCondition, std::string_view column);
/// The managers `c` with an account of the companies `b` above the person's row.
std::string SelectCompanyManagers(std::string_view personCondition, std::string_view column);

}  // namespace zanrole
