#pragma once

#include <string>
#include <string_view>

#include "Domain/DomainRecords.h"
#include "Frame/Host/Classes.h"

// The statements of the domain tree, each as the dialect of the session takes it. A statement for a batch is
// closed with ";".

namespace zanrole {

// Reading.

/// All domains, parents first.
std::string SelectAllDomains();
/// The domains that own the operator or that he created, and all below them, parents first.
std::string SelectDomainsOf(int operatorOID);
/// The domains that the operator manages.
std::string SelectManagedDomains(int operatorOID);
/// Finds a row when a sibling bears the name, or when any other domain bears the code.
std::string SelectSameName(int parentID, int ownID, std::string_view name);
std::string SelectSameCode(int ownID, std::string_view code);
/// Finds a row when something stands in the domain; its creator does not count.
std::string SelectChildDomain(int id);
std::string SelectMember(int id);
std::string SelectLastSequence(int parentID);
std::string SelectSequence(int id);
std::string SelectPaths(int id);
/// `ID` and `ParentCode` of the domains with this path.
std::string SelectByFullName(std::string_view fullName);
/// `ID`, `ParentName` and `FullName` of the domain and all below it as their names now make them; each
/// FullName with a backslash behind it.
std::string SelectNewPaths(int id);
/// First column of the first row: the path of names of an organisation.
std::string SelectOrgPath(int djLsh);

// Writing.

/// Inserts the domain and gives it the next id. Its FullCode is made by the statement from ParentCode and the
/// id.
std::string InsertDomain(const TDomainRecord& domain);
/// Parameters DomainID and UserOID.
std::string InsertCreator();
/// Parameters AncestorID and DescendantID.
std::string InsertInherit();
/// All ancestors of ParentID become ancestors of DescendantID too (both are parameters).
std::string InsertInheritsOfParent();
std::string UpdateDomain(int id, const TDomainFields& fields, std::string_view fullName);
/// Names the domain's roles by the domain's path. `fullName` is that path.
std::string RenameRoles(int id, std::string_view fullName);
/// The rows of an empty domain, for a batch. Its rows of STDomainOAPermission and STDomainWebPermission stay.
TStringList DeleteDomainBatch(int id);
/// For a batch.
std::string UpdatePaths(int id, std::string_view parentName, std::string_view fullName);
std::string UpdateSequence(int id, int sequence);

}  // namespace zanrole
