// The tree of the console of the domain tree: reading it, and what is done to the selected domain.

#include <algorithm>

#include "Domain/DomainStatements.h"
#include "Domain/U_DomainFuncsImp.h"
#include "Domain/U_Domains.h"
#include "Frame/Commlib.h"
#include "Frame/Dialects.h"
#include "Frame/Messages.h"
#include "Frame/Session.h"

namespace zanrole {

namespace {

constexpr const char* kRootPath = "\\";

std::string WithBackslash(std::string path) {
  if (!path.ends_with('\\')) path += '\\';
  return path;
}

std::string WithoutBackslash(std::string path) {
  if (path.ends_with('\\')) path.pop_back();
  return path;
}

std::string NodeText(const TDomainFields& domain) {
  return domain.Code.empty() ? domain.Name : domain.Name + " (" + domain.Code + ")";
}

TDomainRecord ReadDomain(TZANQuery& query) {
  const auto text = [&query](const char* name) { return query.FieldByName(name).AsString(); };
  const auto number = [&query](const char* name) { return query.FieldByName(name).AsInteger(); };
  TDomainRecord domain;
  domain.ID = number("ID");
  domain.Code = text("Code");
  domain.Name = text("Name");
  domain.Remark = text("Remark");
  domain.ParentID = number("ParentID");
  domain.NodeLevel = number("NodeLevel");
  domain.Sequence = number("Sequence");
  domain.FullName = text("FullName");
  domain.FullCode = text("FullCode");
  domain.ParentCode = text("ParentCode");
  domain.ParentName = text("ParentName");
  domain.UserLimit = number("UserLimit");
  domain.RelateOrg = number("RelateOrg");
  return domain;
}

}  // namespace

void TFormDomains::Refresh() {
  FetchOwnedDomains();
  RefreshDomainsTree();
}

void TFormDomains::FetchOwnedDomains() {
  OpenStatement(*FQuery, SelectManagedDomains(OperatorOID()));
  cdsOwnedDomains.clear();
  for (; !FQuery->Eof(); FQuery->Next()) cdsOwnedDomains.insert(FQuery->Fields(0).AsInteger());
}

void TFormDomains::RefreshDomainsTree() {
  const bool seesAll = isBuilder() || SystemInfo().IsSuperUser;
  OpenStatement(*FQuery, seesAll ? SelectAllDomains() : SelectDomainsOf(OperatorOID()));
  CdsDomains.Clear();
  DomainTree.Clear();
  TTreeNode* const root = seesAll ? DomainTree.Add(nullptr, ResString("域"), kNoDomain) : nullptr;
  if (root != nullptr) root->Icon = "root";
  for (; !FQuery->Eof(); FQuery->Next()) AddDomainNode(root, ReadDomain(*FQuery));
  if (DomainTree.Roots().empty()) {
    DomainTreeChange();
    return;
  }
  TTreeNode* const first = DomainTree.Roots().front().get();
  DomainTree.SetExpanded(first, true);
  DomainTree.Select(first);
}

void TFormDomains::AddDomainNode(TTreeNode* root, TDomainRecord domain) {
  TTreeNode* parentNode = root;
  if (domain.ParentID != kNoDomain) {
    const TDomainRecord* const parent = CdsDomains.Find(domain.ParentID);
    parentNode = parent != nullptr ? parent->NodeHandle : nullptr;
  }
  ShowDomain(parentNode, std::move(domain));
}

TTreeNode* TFormDomains::ShowDomain(TTreeNode* parentNode, TDomainRecord domain) {
  TTreeNode* const node = DomainTree.Add(parentNode, NodeText(domain), domain.ID);
  node->Icon = "domain";
  domain.NodeHandle = node;
  CdsDomains.Put(std::move(domain));
  return node;
}

TDomainRecord* TFormDomains::SelectedDomain() {
  const TTreeNode* const node = DomainTree.Selected();
  return node != nullptr ? CdsDomains.Find(static_cast<int>(node->Data)) : nullptr;
}

void TFormDomains::DomainTreeChange() {
  const TTreeNode* const node = DomainTree.Selected();
  const TDomainRecord* const domain = SelectedDomain();
  const bool isRoot = node != nullptr && node->Data == kNoDomain && node->Level() == 0;
  LabelTitle.Text = domain != nullptr ? domain->FullName : kRootPath;
  TabAdmin.Visible = isRoot;
  TabManagers.Visible = !isRoot;
  PageControl.ActivePage = isRoot ? TabAdmin.Name() : TabManagers.Name();
  if (isRoot)
    RefreshAdministrators(/*force*/ false);
  else
    RefreshDomainAdmin(node != nullptr ? static_cast<int>(node->Data) : kNoDomain, /*force*/ false);
}

std::optional<TDomainFields> TFormDomains::AskFields(TFormDomainEdit& dialog) {
  if (dialog.ShowModal() != mrOk) return std::nullopt;
  TDomainFields fields = dialog.Fields();
  fields.Name = Trim(fields.Name);
  fields.Code = Trim(fields.Code);
  if (const char* fault = BlankFieldFault(fields)) {
    VeshShowMessage(ResString(fault));
    return std::nullopt;
  }
  return fields;
}

void TFormDomains::NewDomain() {
  TTreeNode* const parentNode = DomainTree.Selected();
  if (parentNode == nullptr) return;
  const TDomainRecord* const parent = SelectedDomain();
  const int parentID = parent != nullptr ? parent->ID : kNoDomain;
  TFormDomainEdit dialog(FormHost(), kNoDomain, parentID, parent != nullptr ? parent->FullName : kRootPath);
  const std::optional<TDomainFields> fields = AskFields(dialog);
  if (!fields) return;

  TDomainRecord domain = PlaceBelow(parentID, *fields);
  if (!Insert(domain)) {
    VeshShowMessage(ResString("新建失败!"));
    return;
  }
  InsertMembership(domain);
  DomainTree.Select(ShowDomain(parentNode, std::move(domain)));
}

TDomainRecord TFormDomains::PlaceBelow(int parentID, const TDomainFields& fields) {
  TDomainRecord domain;
  domain.Fields() = fields;
  OpenStatement(*FQuery, SelectLastSequence(parentID));
  domain.Sequence = (FQuery->Eof() ? 0 : FQuery->Fields(0).AsInteger()) + 1;
  // The parent as it is now, not as the tree shows it.
  OpenStatement(*FQuery, SelectPaths(parentID));
  if (FQuery->Eof()) {
    domain.ParentCode = domain.ParentName = kRootPath;
  } else {
    domain.ParentID = parentID;
    domain.ParentCode = FQuery->FieldByName("FullCode").AsString();
    domain.ParentName = WithBackslash(FQuery->FieldByName("FullName").AsString());
    domain.NodeLevel = FQuery->FieldByName("NodeLevel").AsInteger() + 1;
  }
  domain.FullName = domain.ParentName + domain.Name;
  return domain;
}

bool TFormDomains::Insert(TDomainRecord& domain) {
  ExecStatement(*FQuery, InsertDomain(domain));
  domain.ID = FindNewest(domain);
  domain.FullCode = domain.ParentCode + std::to_string(domain.ID) + "\\";
  return domain.ID != kNoDomain;
}

int TFormDomains::FindNewest(const TDomainRecord& domain) {
  OpenStatement(*FQuery, SelectByFullName(domain.FullName));
  int newest = kNoDomain;
  for (; !FQuery->Eof(); FQuery->Next()) {
    // A name may hold backslashes, so that domains of different parents can have one path.
    if (FQuery->FieldByName("ParentCode").AsString() == domain.ParentCode)
      newest = std::max(newest, FQuery->FieldByName("ID").AsInteger());
  }
  return newest;
}

void TFormDomains::InsertMembership(const TDomainRecord& domain) {
  const auto prepare = [this](const std::string& statement) {
    FQuery->Close();
    FQuery->SQL().SetText(statement);
  };
  prepare(InsertCreator());
  FQuery->ParamByName("DomainID").AsInteger(domain.ID);
  FQuery->ParamByName("UserOID").AsInteger(OperatorOID());
  FQuery->ExecSQL();

  prepare(InsertInherit());
  FQuery->ParamByName("AncestorID").AsInteger(domain.ID);
  FQuery->ParamByName("DescendantID").AsInteger(domain.ID);
  FQuery->ExecSQL();

  if (domain.ParentID == kNoDomain) return;
  prepare(InsertInheritsOfParent());
  FQuery->ParamByName("DescendantID").AsInteger(domain.ID);
  FQuery->ParamByName("ParentID").AsInteger(domain.ParentID);
  FQuery->ExecSQL();
}

void TFormDomains::EditDomain() {
  TDomainRecord* const domain = SelectedDomain();
  if (domain == nullptr) return;
  TFormDomainEdit dialog(FormHost(), domain->ID, domain->ParentID, domain->FullName);
  dialog.SetFields(*domain);
  const std::optional<TDomainFields> fields = AskFields(dialog);
  if (!fields) return;

  const bool isRenamed = fields->Name != domain->Name;
  const std::string fullName = WithBackslash(domain->ParentName) + fields->Name;
  ExecStatement(*FQuery, UpdateDomain(domain->ID, *fields, fullName));
  ExecStatement(*FQuery, RenameRoles(domain->ID, fullName));
  domain->Fields() = *fields;
  domain->FullName = fullName;
  if (isRenamed) PropagateDomainFullName(domain->ID);
  DomainTree.Selected()->Text = NodeText(*domain);
  DomainTreeChange();
}

void TFormDomains::PropagateDomainFullName(int domainID) {
  OpenStatement(*FQuery, SelectNewPaths(domainID));
  TStringList batch;
  for (; !FQuery->Eof(); FQuery->Next()) {
    const int id = FQuery->FieldByName("ID").AsInteger();
    const std::string parentName = FQuery->FieldByName("ParentName").AsString();
    const std::string fullName = WithoutBackslash(FQuery->FieldByName("FullName").AsString());
    batch.Add(UpdatePaths(id, parentName, fullName));
    batch.Add(RenameRoles(id, fullName) + ";");
    if (TDomainRecord* const domain = CdsDomains.Find(id)) {
      domain->ParentName = parentName;
      domain->FullName = fullName;
    }
  }
  RunBatch(*FQuery, batch);
}

void TFormDomains::DeleteDomain() {
  TDomainRecord* const domain = SelectedDomain();
  if (domain == nullptr) return;
  const std::string fullName = WithoutBackslash(domain->FullName);
  if (!IsDomainEmpty(domain->ID)) {
    VeshShowMessageFmt(ResString("域“%s”不为空，无法删除! \r\n请先删除所有下级域及管理员、角色、用户。"),
                       {fullName});
    return;
  }
  if (!AskYesNo(TZanResEx::resBySystem("系统提示"), Format(ResString("确实要删除域“%s”吗?"), {fullName})))
    return;
  RunBatch(*FQuery, DeleteDomainBatch(domain->ID));
  domain->NodeHandle = nullptr;
  DomainTree.Delete(DomainTree.Selected());
}

bool TFormDomains::IsDomainEmpty(int domainID) {
  for (const std::string& statement : {SelectChildDomain(domainID), SelectMember(domainID)}) {
    OpenStatement(*FQuery, statement);
    if (!FQuery->Eof()) return false;
  }
  return true;
}

void TFormDomains::MoveUp() {
  TTreeNode* const node = DomainTree.Selected();
  TTreeNode* const before = node != nullptr ? node->PrevSibling() : nullptr;
  if (before != nullptr) ChangeDomainSequence(*node, *before);
}

void TFormDomains::MoveDown() {
  TTreeNode* const node = DomainTree.Selected();
  TTreeNode* const behind = node != nullptr ? node->NextSibling() : nullptr;
  if (behind != nullptr) ChangeDomainSequence(*behind, *node);
}

void TFormDomains::ChangeDomainSequence(TTreeNode& node, TTreeNode& other) {
  DomainTree.MoveBefore(&node, &other);
  const int id = static_cast<int>(node.Data);
  const int otherID = static_cast<int>(other.Data);
  const std::optional<int> sequence = ReadSequence(id);
  const std::optional<int> otherSequence = ReadSequence(otherID);
  if (!sequence || !otherSequence) return;
  TStringList batch;
  batch.Add(UpdateSequence(id, *otherSequence));
  batch.Add(UpdateSequence(otherID, *sequence));
  RunBatch(*FQuery, batch);
}

std::optional<int> TFormDomains::ReadSequence(int domainID) {
  OpenStatement(*FQuery, SelectSequence(domainID));
  if (FQuery->Eof()) return std::nullopt;
  return FQuery->FieldByName("Sequence").AsInteger();
}

}  // namespace zanrole
