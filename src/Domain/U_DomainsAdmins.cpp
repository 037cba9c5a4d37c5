// The lists of managers and super users of the console of the domain tree.

#include <unordered_map>

#include "Domain/DomainAdminStatements.h"
#include "Domain/U_Domains.h"
#include "Frame/Dialects.h"

namespace zanrole {

namespace {

/// Names of a manager's domains, joined by ", ".
struct TDomainNames {
  std::string Owned;
  std::string Auth;
};

void AddName(std::string& names, const std::string& name) {
  if (!names.empty()) names += ", ";
  names += name;
}

std::unordered_map<int, TDomainNames> DomainNamesByManager(TZANQuery& query) {
  std::unordered_map<int, TDomainNames> names;
  for (; !query.Eof(); query.Next()) {
    TDomainNames& own = names[query.FieldByName("UserOID").AsInteger()];
    const bool isOwned = query.FieldByName("IsOwned").AsInteger() == 1;
    AddName(isOwned ? own.Owned : own.Auth, query.FieldByName("FullName").AsString());
  }
  return names;
}

std::string CreatorText(TZANQuery& query) {
  const std::string name = query.FieldByName("CreatorName").AsString();
  const int creator = query.FieldByName("Creator").AsInteger();
  return creator > 0 ? name + "(" + std::to_string(creator) + ")" : name;
}

std::string TimeText(const TField& field) {
  return field.IsNull() ? std::string() : DateTimeToText(field.AsDateTime());
}

/// Adds a record of the account on which the query stands.
void AppendAccount(TDataSet& cache, TZANQuery& query) {
  cache.Append();
  for (const char* name : {"OID", "UserID", "UserName", "UserDesc", "UnUsed", "ModifierName"})
    cache.FieldByName(name).SetValue(query.FieldByName(name).Value());
  cache.FieldByName("CreatorName").SetValue(CreatorText(query));
  for (const char* name : {"CreateTime", "ModifyTime"})
    cache.FieldByName(name).SetValue(TimeText(query.FieldByName(name)));
}

}  // namespace

void TFormDomains::RefreshDomainAdmin(int domainID, bool force) {
  FListedDomain = domainID;
  FManagerList.Refresh();
  if (force || ListViewManagers.RowCount() == 0) {
    ReadManagers(domainID);
    FManagerList.Refresh();
  }
  FManagerList.SelectFirst();
}

void TFormDomains::ReadManagers(int domainID) {
  OpenStatement(*FQuery, SelectManagers(domainID));
  OpenStatement(*FDetailQuery, SelectDomainsOfManagers(domainID));
  std::unordered_map<int, TDomainNames> names = DomainNamesByManager(*FDetailQuery);
  while (cdsManagerCache.Locate("DomainID", {domainID})) cdsManagerCache.Delete();
  for (; !FQuery->Eof(); FQuery->Next()) {
    AppendAccount(cdsManagerCache, *FQuery);
    const TDomainNames& own = names[FQuery->FieldByName("OID").AsInteger()];
    cdsManagerCache.FieldByName("DomainID").SetValue(domainID);
    cdsManagerCache.FieldByName("OwnedDomains").SetValue(own.Owned);
    cdsManagerCache.FieldByName("AuthDomains").SetValue(own.Auth);
  }
}

void TFormDomains::RefreshAdministrators(bool force) {
  if (force || cdsAdminCache.IsEmpty()) ReadAdministrators();
  FAdminList.Refresh();
  FAdminList.SelectFirst();
}

void TFormDomains::ReadAdministrators() {
  OpenStatement(*FQuery, SelectAdministrators());
  cdsAdminCache.EmptyTable();
  for (; !FQuery->Eof(); FQuery->Next()) AppendAccount(cdsAdminCache, *FQuery);
}

}  // namespace zanrole
