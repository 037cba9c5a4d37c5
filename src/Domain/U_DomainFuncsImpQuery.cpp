#include "Domain/U_DomainFuncsImpQuery.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "Frame/Commlib.h"
#include "Frame/Dialects.h"
#include "Frame/Session.h"

namespace zanrole {

std::string QueryList(std::string statement) {
  const auto query = TDbProviderFactory::GetQuery();
  std::string list;
  for (OpenStatement(*query, std::move(statement)); !query->Eof(); query->Next()) {
    const std::string value = query->Fields(0).AsString();
    if (!value.empty()) list.append(value).append(",");
  }
  if (!list.empty()) list.pop_back();
  return list;
}

std::string QueryValue(std::string statement) {
  const auto query = TDbProviderFactory::GetQuery();
  OpenStatement(*query, std::move(statement));
  return query->Eof() ? std::string{} : query->Fields(0).AsString();
}

bool QueryExists(std::string statement) {
  const auto query = TDbProviderFactory::GetQuery();
  OpenStatement(*query, std::move(statement));
  return !query->Eof();
}

TCurrentDomain& CurrentDomain() { return TSession::Current().Slot<TCurrentDomain>(); }

namespace {

// clang-format off
constexpr const char* kCurrent = " select ID DomainID from STDomains where ID = %s";
constexpr const char* kCreated = " select DomainID from STDomainMembers where MemberType = 3 and UserOID = %d";
constexpr const char* kOwn =
    " select DomainID from STDomainMembers where IsOwned = 1 and MemberType <> 3 and UserOID = %d";
constexpr const char* kAuth    = " select DomainID from STDomainMembers where IsOwned = 0 and UserOID = %d";

constexpr const char* kCurrentForUnknownWords = "select ID DomainID from STDomains where ID = %s";
// clang-format on

constexpr const char* kNoDomains = "-10000";

bool Names(const TStringList& words, std::initializer_list<const char*> keyword) {
  return std::any_of(keyword.begin(), keyword.end(),
                     [&](const char* spelling) { return words.IndexOf(spelling) != TStringList::NotFound; });
}

std::string UnionOfScope(const TStringList& words) {
  const int oid = SystemInfo().LoginUserOID;
  std::string branches;
  const auto add = [&](const std::string& branch) {
    if (!branches.empty()) branches += " union all ";
    branches += branch;
  };
  if (Names(words, {"当前域", "Current"})) add(Format(kCurrent, {CurrentDomain().Text}));
  if (Names(words, {"创建域", "Created"})) add(Format(kCreated, {oid}));
  if (Names(words, {"所属域", "Own"})) add(Format(kOwn, {oid}));
  if (Names(words, {"域范围", "Auth"})) add(Format(kAuth, {oid}));
  if (branches.empty()) add(Format(kCurrentForUnknownWords, {CurrentDomain().Text}));
  return branches;
}

}  // namespace

std::string ResolveDomainScope(std::string_view scope) {
  const std::string trimmed = Trim(scope);
  TStringList words;
  words.SetCommaText(trimmed.empty() ? "当前域" : trimmed);
  const std::string ids = QueryList(Format("select distinct DomainID from (%s) a", {UnionOfScope(words)}));
  return ids.empty() ? kNoDomains : ids;
}

}  // namespace zanrole
