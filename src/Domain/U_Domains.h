#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>

#include "Domain/DomainRecords.h"
#include "Domain/U_DomainEdit.h"
#include "Frame/Consoles/ConsoleTitle.h"
#include "Frame/Consoles/DataSetList.h"
#include "Frame/Host/Forms.h"
#include "Frame/Host/Un_basefunc.h"
#include "Frame/Host/Zandbs.h"

namespace zanrole {

/// The console of the domain tree. Beside the tree stand the managers of the selected domain, or, on the root
/// node, the super users. Single in a session.
class TFormDomains final : public TBaseSubForm {
 public:
  /// Brings the console up for an administrator. Anyone else is told so, and the answer is false.
  static bool Execute(TBaseFunc& func);

  /// Upgrades the database first; raises when that fails.
  TFormDomains(TFormHost& host, TSubFormStyle style);

  std::string ClassName() const override { return "TFormDomains"; }
  void InitLngResources() override;
  void DoShow() override;
  void SetTitle(TBaseFunc& func);

  TGroup BarDomains{*this, nullptr, "BarDomains", TGroupRole::Bar};
  TAction ActRefresh{*this, &BarDomains, "ActRefresh"};
  TAction ActDomainNew{*this, &BarDomains, "ActDomainNew"};
  TAction ActDomainEdit{*this, &BarDomains, "ActDomainEdit"};
  TAction ActDomainDelete{*this, &BarDomains, "ActDomainDelete"};
  TAction ActDomainMoveUp{*this, &BarDomains, "ActDomainMoveUp"};
  TAction ActDomainMoveDown{*this, &BarDomains, "ActDomainMoveDown"};
  TAction ActExit{*this, &BarDomains, "ActExit"};
  TTreeView DomainTree{*this, nullptr, "DomainTree"};
  TGroup GroupAdmins{*this, nullptr, "GroupAdmins", TGroupRole::Column};
  TLabel LabelTitle{*this, &GroupAdmins, "LabelTitle"};
  TTabs PageControl{*this, &GroupAdmins, "PageControl"};
  TTab TabManagers{*this, &PageControl, "TabManagers"};
  TGroup BarManagers{*this, &TabManagers, "BarManagers", TGroupRole::Bar};
  TAction ActManagerRefresh{*this, &BarManagers, "ActManagerRefresh"};
  TListView ListViewManagers{*this, &TabManagers, "ListViewManagers"};
  TTab TabAdmin{*this, &PageControl, "TabAdmin"};
  TGroup BarAdmin{*this, &TabAdmin, "BarAdmin", TGroupRole::Bar};
  TAction ActAdminRefresh{*this, &BarAdmin, "ActAdminRefresh"};
  TListView ListViewAdmin{*this, &TabAdmin, "ListViewAdmin"};

 private:
  void ConnectTree();
  void ConnectLists();

  // The tree.
  void Refresh();
  void FetchOwnedDomains();
  void RefreshDomainsTree();
  /// Below its parent's node; below `root` when it is a top-level domain.
  void AddDomainNode(TTreeNode* root, TDomainRecord domain);
  /// Adds node and record.
  TTreeNode* ShowDomain(TTreeNode* parentNode, TDomainRecord domain);
  void DomainTreeChange();
  /// Null when nothing, or the root node, is selected.
  TDomainRecord* SelectedDomain();

  // Who may do what to the selected node. A manager's topmost domains lie on level 0: only the level above
  // him may change those.
  bool IsManagerNewAllowed() const;
  bool IsDomainEditAllowed() const;

  // Operations on the selected domain.
  void NewDomain();
  void EditDomain();
  void DeleteDomain();
  void MoveUp();
  void MoveDown();
  /// Exchanges two neighbours: `node` comes to stand before `other`.
  void ChangeDomainSequence(TTreeNode& node, TTreeNode& other);
  /// Rewrites the paths of a domain and all below it, and the names of their roles, after a change of its
  /// name.
  void PropagateDomainFullName(int domainID);
  /// What the person entered; nothing when he cancelled or left a required text blank.
  std::optional<TDomainFields> AskFields(TFormDomainEdit& dialog);
  /// A record of a new last child of `parentID`, still without an id.
  TDomainRecord PlaceBelow(int parentID, const TDomainFields& fields);
  /// False when the row cannot be found again. Sets the id and what is made of it.
  bool Insert(TDomainRecord& domain);
  /// The id of the newest row with the domain's path and parent; kNoDomain when there is none.
  int FindNewest(const TDomainRecord& domain);
  void InsertMembership(const TDomainRecord& domain);
  bool IsDomainEmpty(int domainID);
  /// Nothing when the row has gone.
  std::optional<int> ReadSequence(int domainID);

  // The people who administer.
  void RefreshDomainAdmin(int domainID, bool force);
  void RefreshAdministrators(bool force);
  void ReadManagers(int domainID);
  void ReadAdministrators();

  std::unique_ptr<TZANQuery> FQuery;
  std::unique_ptr<TZANQuery> FDetailQuery;
  TConsoleTitle FTitle;
  TDomainRecords CdsDomains;
  std::set<int> cdsOwnedDomains;
  /// Domain whose managers are listed.
  int FListedDomain = kNoDomain;
  TDataSet cdsManagerCache{"DomainID",    "OID",        "UserID",       "UserName",
                           "UserDesc",    "UnUsed",     "OwnedDomains", "AuthDomains",
                           "CreatorName", "CreateTime", "ModifierName", "ModifyTime"};
  TDataSet cdsAdminCache{"OID",         "UserID",     "UserName",     "UserDesc",  "UnUsed",
                         "CreatorName", "CreateTime", "ModifierName", "ModifyTime"};
  TDataSetList FManagerList;
  TDataSetList FAdminList;
};

}  // namespace zanrole
