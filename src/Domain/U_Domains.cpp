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
      {"名称", "UserName", 140},       {"帐号", "UserID", 120},         {"禁用", "UnUsed", 70, DisabledText},
      {"描述", "UserDesc", 160},       {"域范围", "AuthDomains", 220},  {"创建人", "CreatorName", 120},
      {"创建时间", "CreateTime", 150}, {"修改人", "ModifierName", 120}, {"修改时间", "ModifyTime", 150}};
}

std::vector<TDataSetColumn> AdminColumns() {
  return {
      {"名称", "UserName", 140},       {"帐号", "UserID", 120},        {"禁用", "UnUsed", 70, DisabledText},
      {"描述", "UserDesc", 160},       {"创建人", "CreatorName", 120}, {"创建时间", "CreateTime", 150},
      {"修改人", "ModifierName", 120}, {"修改时间", "ModifyTime", 150}};
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
  ActRefresh.Caption = ResString("刷新");
  ActDomainNew.Caption = ResString("新建");
  ActDomainEdit.Caption = ResString("修改");
  ActDomainDelete.Caption = ResString("删除");
  ActDomainMoveUp.Caption = ResString("上移");
  ActDomainMoveDown.Caption = ResString("下移");
  ActExit.Caption = ResString("退出");
  DomainTree.Caption = ResString("域");
  DomainTree.EmptyText = ResString("没有可管理的域。");
  if (TTreeNode* root = DomainTree.FindData(kNoDomain)) root->Text = ResString("域");
  TabManagers.Caption = ResString("管理员 ");
  TabAdmin.Caption = ResString("超级用户 ");
  ActManagerRefresh.Caption = ResString("刷新");
  ActAdminRefresh.Caption = ResString("刷新");
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
