#pragma once

#include <string>
#include <unordered_map>

#include "Frame/Host/Forms.h"

namespace zanrole {

/// `ParentID` of a top-level domain; also the id of the tree's root node, which is no domain.
inline constexpr int kNoDomain = -1;

/// What a person enters of a domain.
struct TDomainFields {
  std::string Name;
  std::string Code;
  std::string Remark;
  /// Users of the domain and all below it; 0 for no limit.
  int UserLimit = 0;
  /// `DjLsh` of the organisation that the domain covers; 0 for none.
  int RelateOrg = 0;
};

/// One row of STDomains, and its place in the console's tree.
struct TDomainRecord : TDomainFields {
  int ID = kNoDomain;
  int ParentID = kNoDomain;
  int NodeLevel = 0;
  int Sequence = 0;
  /// Path of names, each preceded by a backslash: \A\B
  std::string FullName;
  /// Path of ids with a backslash at both ends: \3\17\ .
  std::string FullCode;
  /// The parent's FullCode; a backslash at the top.
  std::string ParentCode;
  /// The parent's FullName with a backslash behind it; a backslash at the top.
  std::string ParentName;
  /// Owned by the tree; null once the node has been deleted.
  TTreeNode* NodeHandle = nullptr;

  /// The part that a person enters.
  TDomainFields& Fields() { return *this; }
};

/// The domains that a console has read, by their ids.
class TDomainRecords {
 public:
  void Clear() { FRecords.clear(); }
  /// Takes the place of a record with the same id: the id of a deleted domain may be given again.
  /// The reference lives until Clear.
  TDomainRecord& Put(TDomainRecord record);
  /// Null when there is none.
  TDomainRecord* Find(int id);

 private:
  std::unordered_map<int, TDomainRecord> FRecords;
};

}  // namespace zanrole
