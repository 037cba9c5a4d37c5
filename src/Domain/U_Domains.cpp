#include "Domain/U_Domains.h"

#include "Domain/U_DomainFuncsImp.h"
#include "Frame/Commlib.h"
#include "Frame/Consoles/SingleConsole.h"
#include "Frame/Dialects.h"
#include "Frame/Messages.h"
#include "Frame/Un_UpgradeDB.h"

namespace zanrole {

namespace {

std::string DisabledText(const TZanValue& unUsed) {
  return ValueAsInteger(unUsed) == 1 ? ResString("已禁用") : std::string();
}

std::vector<TDataSetColumn> ManagerColumns() {
  return {
      {"名称", "UserName", 110},       {"帐号", "UserID", 130},         {"禁用", "UnUsed", 64, DisabledText},
      {"描述", "UserDesc", 140},       {"域范围", "AuthDomains", 200},  {"创建人", "CreatorName", 110},
      {"创建时间", "CreateTime", 165}, {"修改人", "ModifierName", 100}, {"修改时间", "ModifyTime", 165}};
}

std::vector<TDataSetColumn> AdminColumns() {
  return {
      {"名称", "UserName", 110},       {"帐号", "UserID", 130},        {"禁用", "UnUsed", 64, DisabledText},
      {"描述", "UserDesc", 140},       {"创建人", "CreatorName", 110}, {"创建时间", "CreateTime", 165},
      {"修改人", "ModifierName", 100}, {"修改时间", "ModifyTime", 165}};
}

}  // namespace

bool TFormDomains::Execute(TBaseFunc& func) {
  if (!CheckOperatorIsAdmin()) {
    VeshShowMessage(ResString("您不是管理员，无法执行该操作！"));
    return false;
  }
  OpenSingleConsole<TFormDomains>(func);
  return true;
}

TFormDomains::TFormDomains(TFormHost& host, TSubFormStyle style)
    : TBaseSubForm(host, style),
      FQuery(TDbProviderFactory::GetQuery()),
      FDetailQuery(TDbProviderFactory::GetQuery()),
      FManagerList(ListViewManagers, cdsManagerCache, "OID", ManagerColumns()),
      FAdminList(ListViewAdmin, cdsAdminCache, "OID", AdminColumns()) {
  TUpgradeDB::Execute();
  ConnectTree();
  ConnectLists();
  InitLngResources();
}

void TFormDomains::ConnectTree() {
  const auto connect = [](TAction& action, const char* icon, const char* shortCut, auto run) {
    action.Icon = icon;
    action.ShortCut = shortCut;
    action.OnExecute = std::move(run);
  };
  connect(ActRefresh, "refresh", "F5", [this] { Refresh(); });
  connect(ActDomainNew, "new", "Ins", [this] { NewDomain(); });
  connect(ActDomainEdit, "edit", "F2", [this] { EditDomain(); });
  connect(ActDomainDelete, "delete", "Del", [this] { DeleteDomain(); });
  connect(ActDomainMoveUp, "up", "Alt+Up", [this] { MoveUp(); });
  connect(ActDomainMoveDown, "down", "Alt+Down", [this] { MoveDown(); });
  connect(ActExit, "exit", "", [this] { Close(); });
  ActDomainNew.Separator = ActDomainMoveUp.Separator = ActExit.Separator = true;

  const auto selected = [this] { return DomainTree.Selected(); };
  ActDomainNew.EnabledRule = [selected] { return selected() != nullptr; };
  ActDomainEdit.EnabledRule = [this] { return IsDomainEditAllowed(); };
  ActDomainDelete.EnabledRule = [this] { return IsDomainEditAllowed(); };
  ActDomainMoveUp.EnabledRule = [this, selected] {
    return IsDomainEditAllowed() && selected()->PrevSibling() != nullptr;
  };
  ActDomainMoveDown.EnabledRule = [this, selected] {
    return IsDomainEditAllowed() && selected()->NextSibling() != nullptr;
  };
  DomainTree.OnChange = [this] { DomainTreeChange(); };
  DomainTree.OnActivate = [this](TTreeNode&) {
    if (IsDomainEditAllowed()) EditDomain();
  };
}

void TFormDomains::ConnectLists() {
  ActManagerRefresh.Icon = ActAdminRefresh.Icon = "refresh";
  ActManagerRefresh.EnabledRule = [this] { return DomainTree.Selected() != nullptr; };
  ActManagerRefresh.OnExecute = [this] { RefreshDomainAdmin(FListedDomain, /*force*/ true); };
  ActAdminRefresh.OnExecute = [this] { RefreshAdministrators(/*force*/ true); };
  FManagerList.Icon = "manager";
  FAdminList.Icon = "user";
  FManagerList.Filter = [this](int row) {
    constexpr int kDomainID = 0;
    return ValueAsInteger(cdsManagerCache.At(row, kDomainID)) == FListedDomain;
  };
}

void TFormDomains::InitLngResources() {
  TZanResEx::resDLLDownload();
  Caption = FTitle.Text();
  const auto name = [](TAction& action, const char* caption, const char* hint) {
    action.Caption = ResString(caption);
    action.Hint = ResString(hint);
  };
  name(ActRefresh, "刷新", "重新读取所有域");
  name(ActDomainNew, "新建", "在所选域的下面新建一个域");
  name(ActDomainEdit, "修改", "修改所选的域");
  name(ActDomainDelete, "删除", "删除所选的域，该域必须为空");
  name(ActDomainMoveUp, "上移", "把所选的域移到上一个域之前");
  name(ActDomainMoveDown, "下移", "把所选的域移到下一个域之后");
  name(ActExit, "退出", "关闭本窗口");
  DomainTree.Caption = ResString("域");
  DomainTree.EmptyText = ResString("没有可管理的域。");
  if (TTreeNode* root = DomainTree.FindData(kNoDomain)) root->Text = ResString("域");
  TabManagers.Caption = ResString("管理员 ");
  TabAdmin.Caption = ResString("超级用户 ");
  name(ActManagerRefresh, "刷新", "重新读取该域的管理员");
  name(ActAdminRefresh, "刷新", "重新读取超级用户");
  ListViewManagers.EmptyText = ResString("该域没有管理员。");
  ListViewAdmin.EmptyText = ResString("没有超级用户。");
  FManagerList.InitLngResources();
  FAdminList.InitLngResources();
}

void TFormDomains::SetTitle(TBaseFunc& func) {
  FTitle.Take(func);
  Caption = FTitle.Text();
}

void TFormDomains::DoShow() {
  FocusRequest = &DomainTree;
  Refresh();
}

bool TFormDomains::IsManagerNewAllowed() const {
  const TTreeNode* const node = DomainTree.Selected();
  return node != nullptr && node->Level() >= 1;
}

bool TFormDomains::IsDomainEditAllowed() const { return TabManagers.Visible && IsManagerNewAllowed(); }

}  // namespace zanrole
