#include "tests/conformance/faults/Operations.h"

#include "Domain/U_DomainFuncsImp.h"
#include "Frame/Package.h"
#include "Role/RoleDataProvider.h"
#include "Role/RunPermission.h"
#include "Role/TolPermission.h"
#include "host/platform/Accounts.h"
#include "host/platform/Numbering.h"
#include "host/worker/MenuTree.h"

namespace zantest {

namespace json = boost::json;
using namespace zanrole;

namespace {

using TOperations = std::vector<TFaultOperation>;

constexpr std::string_view kConsole = "TFormDomains";
constexpr std::string_view kDialog = "TFormDomainEdit";

/// A value for each input that a system function declares or reads.
const json::object& FunctionInputs() {
  static const json::object kInputs{{"返回内容", ""},
                                    {"查询范围", "域范围,所属域"},
                                    {"是否包含下级域", "true"},
                                    {"查询条件", "ID = 2"},
                                    {"域ID", "2"},
                                    {"域代码", "02"},
                                    {"域节点代码", "\\1\\2\\"},
                                    {"域名称", "华东"},
                                    {"当前用户", "plain"},
                                    {"用户号", "plain"},
                                    {"用户号集", "plain,operator"},
                                    {"岗位号", "G1"},
                                    {"岗位关系图", ""},
                                    {"ParentCode", "D1"}};
  return kInputs;
}

void AddSystemFunctions(TOperations& operations) {
  std::size_t count = 0;
  const TFuncClass* const classes = ZanroleFuncClasses(&count);
  for (std::size_t i = 0; i < count; ++i) {
    if (classes[i].Type != TFuncType::System) continue;
    const auto function = classes[i].Create();
    const std::string name = function->FuncName();
    const auto described = function->NewFuncInfo();
    for (const TFuncParam& input : described->InParams)
      EXPECT_TRUE(FunctionInputs().contains(input.Name)) << name << " has an unknown input " << input.Name;
    operations.push_back(
        {"call " + name,
         {},
         [name](TFaultWorld& world) { world.Result = world.Person().Call(name, FunctionInputs()); },
         {}});
  }
}

void AddDirect(TOperations& operations, std::string name, std::function<std::string(TFaultWorld&)> run) {
  operations.push_back(
      {std::move(name), {}, [run = std::move(run)](TFaultWorld& world) { world.Result = run(world); }, {}});
}

void AddEntries(TOperations& operations) {
  AddDirect(operations, "entry GetMenuPermission",
            [](TFaultWorld&) { return BoolToStr(ZanroleEntries()->GetMenuPermission(100)); });
  AddDirect(operations, "entry SetCurrentDomainID", [](TFaultWorld&) {
    ZanroleEntries()->SetCurrentDomainID(3);
    return std::string();
  });
  AddDirect(operations, "entry SavePassword", [](TFaultWorld&) {
    ZanroleEntries()->SavePassword(2, "plain", "new; it's");
    return std::string();
  });
  AddDirect(operations, "entry ExplainRight",
            [](TFaultWorld&) { return ZanroleEntries()->ExplainRight(100, "执行").Right; });
  AddDirect(operations, "entry RightHolders", [](TFaultWorld&) {
    return std::to_string(ZanroleEntries()->RightHolders(100, "执行", 0, 10).Users.size());
  });
}

void AddRegistry(TOperations& operations) {
  AddDirect(operations, "TTolPermission.AddObject",
            [](TFaultWorld&) { return std::to_string(TTolPermission().AddObject(1, "新单据", 9)); });
  AddDirect(operations, "TTolPermission.DeleteObject", [](TFaultWorld&) {
    TTolPermission().DeleteObject(100);
    return std::string();
  });
  AddDirect(operations, "TTolPermission.DeleteObject by name", [](TFaultWorld&) {
    TTolPermission().DeleteObject(1, "采购单");
    return std::string();
  });
  AddDirect(operations, "TTolPermission.GetObjectIDByName",
            [](TFaultWorld&) { return std::to_string(TTolPermission().GetObjectIDByName("采购单", 1)); });
  AddDirect(operations, "TTolPermission.GetObjectByIndex",
            [](TFaultWorld&) { return TTolPermission().GetObjectByIndex(0, 1)->Name; });
  AddDirect(operations, "TTolPermission.SetUserID and its roles", [](TFaultWorld&) {
    TTolPermission permission;
    permission.SetUserID(12);
    return std::to_string(permission.GetGroupCount()) + permission.GetGroups().Text();
  });
  AddDirect(operations, "TTolPermission.GetInstance",
            [](TFaultWorld&) { return std::to_string(TTolPermission::GetInstance().GetGroupCount()); });
  AddDirect(operations, "TRunPermission.GetObjOperates", [](TFaultWorld&) {
    return TRunPermission::GetInstance().GetObjOperates("单据", "采购单").Text();
  });
}

void AddUsersAndRoles(TOperations& operations) {
  AddDirect(operations, "TRoleDataProvider.SaveUserInfo of a new user", [](TFaultWorld&) {
    TUserInfo role;
    role.oID = 4;
    TUserInfo user;
    user.ID = "new";
    user.FParentList.Add(&role);
    TRoleDataProvider().SaveUserInfo(user, true, true);
    return std::to_string(user.oID);
  });
  // The row may stand already, and its number serves once.
  operations.back().GoOn = [](TFaultWorld&) { EXPECT_GT(TRoleDataProvider().GetOID(), 12); };
  AddDirect(operations, "TRoleDataProvider.SaveUserInfo of a stored user", [](TFaultWorld&) {
    TUserInfo user;
    user.newUser = false;
    user.oID = 12;
    user.ID = "operator";
    user.Name = "it's";
    TRoleDataProvider().SaveUserInfo(user, true, true);
    return user.Name;
  });
  AddDirect(operations, "TTolPermission.saveObjPer and DeleteObjPer", [](TFaultWorld&) {
    TTolPermission permission;
    permission.SetUserID(12);
    permission.saveObjPer({100, "执行", 1});
    permission.saveObjPer({100, "打印", 1});
    permission.DeleteObjPer({100, "执行", 1});
    return permission.GetPermission(100, "打印");
  });
}

void AddAccounts(TOperations& operations) {
  AddDirect(operations, "GetNewUserOID", [](TFaultWorld&) { return std::to_string(GetNewUserOID()); });
  AddDirect(operations, "CreateNewUser",
            [](TFaultWorld&) { return std::to_string(CreateNewUser("new", "新", "it's", 0, 0, 0, 1)); });
  // The row may stand already, and a login serves once.
  operations.back().GoOn = [](TFaultWorld&) { EXPECT_GT(CreateNewUser("later", "后来", "", 0, 0, 0, 1), 0); };
  AddDirect(operations, "CheckUserLimit", [](TFaultWorld&) {
    std::string overQuota;
    return BoolToStr(CheckUserLimit(2, 100, overQuota)) + overQuota;
  });
  AddDirect(operations, "CheckOperatorIsAdmin",
            [](TFaultWorld&) { return BoolToStr(CheckOperatorIsAdmin()); });
  AddDirect(operations, "NewDjLsh",
            [](TFaultWorld& world) { return std::to_string(zanhost::NewDjLsh(world.Database, "User")); });
  AddDirect(operations, "login", [](TFaultWorld& world) {
    TRecordingServices services;
    const auto outcome = zanhost::CheckLogin(world.Database, services.Cipher(), "plain", "secret");
    zanhost::ClearNeedReset(world.Database, "plain");
    return outcome.Account.Name;
  });
  AddDirect(operations, "entries of the main window", [](TFaultWorld& world) {
    return std::to_string(zanhost::ReadMenu(world.Database, [](int) { return true; }).size());
  });
}

void OpenConsole(TFaultWorld& world) {
  world.Person().Menu("域管理");
  world.Person().ExpandAll(kConsole, "DomainTree");
}

/// After a fault: what is open is left, the console shows what the tables hold, and takes a new domain.
void GoOnAtTheConsole(TFaultWorld& world) {
  TPerson& person = world.Person();
  if (person.Screen().IsOpen(kDialog)) person.Act(kDialog, "BitBtnCancel");
  if (!person.Screen().IsOpen(kConsole)) person.Menu("域管理");
  person.Act(kConsole, "ActRefresh");
  person.ExpandAll(kConsole, "DomainTree");
  const auto query = world.Database.GetQuery();
  const auto count = [&](const std::string& statement) {
    query->SQL().SetText(statement);
    query->Open();
    return query->Fields(0).AsInteger();
  };
  const int shown = static_cast<int>(person.Screen().Rows(kConsole, "DomainTree").size());
  EXPECT_EQ(shown, count("select count(*) from STDomains") + 1) << "domains, and the node above them";
  person.Select(kConsole, "DomainTree", "域");
  person.Act(kConsole, "ActDomainNew");
  person.Set(kDialog, "EditName", "后来");
  person.Set(kDialog, "EditCode", "99");
  person.Act(kDialog, "BitBtnOk");
  EXPECT_EQ(count("select count(*) from STDomains a inner join STDomainInherits b on b.AncestorID = a.ID"
                  " and b.DescendantID = a.ID where a.Code = '99'"),
            1);
}

/// An operation of the console of the domain tree, with a node selected.
void AddConsole(TOperations& operations, std::string name, std::string node,
                std::function<void(TPerson&)> run) {
  const auto prepare = [node = std::move(node)](TFaultWorld& world) {
    OpenConsole(world);
    world.Person().Select(kConsole, "DomainTree", node);
  };
  operations.push_back({std::move(name), prepare,
                        [run = std::move(run)](TFaultWorld& world) { run(world.Person()); },
                        GoOnAtTheConsole});
}

void AddPress(TOperations& operations, const std::string& action, std::string node) {
  AddConsole(operations, "press " + action, std::move(node),
             [action](TPerson& person) { person.Act(kConsole, action); });
}

void Fill(TPerson& person, const std::string& name, const std::string& code) {
  person.Set(kDialog, "EditName", name);
  person.Set(kDialog, "EditCode", code);
  person.Act(kDialog, "BitBtnOk");
}

void AddDomainsConsole(TOperations& operations) {
  operations.push_back(
      {"menu 域管理", {}, [](TFaultWorld& world) { world.Person().Menu("域管理"); }, GoOnAtTheConsole});
  AddPress(operations, "ActRefresh", "域");
  AddPress(operations, "ActDomainMoveUp", "华南 (03)");
  AddPress(operations, "ActDomainMoveDown", "华东 (02)");
  AddPress(operations, "ActManagerRefresh", "华东 (02)");
  AddPress(operations, "ActAdminRefresh", "域");
  AddPress(operations, "ActExit", "域");
  AddConsole(operations, "select a domain", "域",
             [](TPerson& person) { person.Select(kConsole, "DomainTree", "华东 (02)"); });
  AddConsole(operations, "new domain at the top", "域", [](TPerson& person) {
    person.Act(kConsole, "ActDomainNew");
    Fill(person, "新\\it's", "07");
  });
  AddConsole(operations, "new domain below another", "华东 (02)", [](TPerson& person) {
    person.Act(kConsole, "ActDomainNew");
    Fill(person, "新", "07");
  });
  AddConsole(operations, "rename a domain and all below it", "集团 (01)", [](TPerson& person) {
    person.Act(kConsole, "ActDomainEdit");
    Fill(person, "控股", "01");
  });
  AddConsole(operations, "edit by double click, without the organisation", "集团 (01)", [](TPerson& person) {
    person.Activate(kConsole, "DomainTree", "华东 (02)");
    person.Act(kDialog, "ActClearOrg");
    Fill(person, "华东", "02b");
  });
  AddConsole(operations, "cancel a dialog", "华东 (02)", [](TPerson& person) {
    person.Act(kConsole, "ActDomainEdit");
    person.Act(kDialog, "BitBtnCancel");
  });
  AddConsole(operations, "delete a domain", "华南 (03)", [](TPerson& person) {
    person.Act(kConsole, "ActDomainDelete");
    person.Answer("Yes");
  });
}

}  // namespace

void MakeFaultTables(zanhost::TDatabase& database) {
  const auto data = database.GetQuery();
  const auto system = database.GetSysQuery();
  // clang-format off
  for (const char* const statement : {
      "insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed) values(1, 'sa', '超级', 0, 1, 0)",
      "insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed, Password)"
      " values(2, 'plain', '普通', 0, 0, 0, 'secret')",
      "insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed) values(3, 'manager', '管理', 0, 2, 0)",
      "insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed)"
      " values(4, '\\\\销售', '\\集团\\华东\\销售', 1, 0, 0)",
      "insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed) values(12, 'operator', '操作员', 0, 0, 0)",
      "insert into STUserPasswordStrategy(UserID, NeedReset) values('plain', 1)",
      "insert into STUserGroup(UserID, GroupID) values(12, 4)",
      "insert into STPermission(UserID, ObjectID, Oprate, Permission) values(12, 100, '打印', 0)",
      "insert into PartyH(DjLsh, Name) values(41, '东方公司')",
      "insert into UserH(DjLsh) values(7)",
      "insert into PartyH(DjLsh, Parent, Type, Name, Code) values(50, -1, 'Company', '公司', 'C1')",
      "insert into PartyH(DjLsh, Parent, Type, Name, Code) values(51, 50, 'Department', '部门', 'D1')",
      "insert into PartyH(DjLsh, Parent, Type, Name, Code) values(52, 51, 'PositionEntity', '岗位', 'G1')",
      "insert into PartyH(DjLsh, Parent, Type, Name, Code) values(53, 52, 'User', '普通', 'plain')",
      "insert into PositionH(DjLsh, Code, Name) values(54, 'K1', '职务')",
      "insert into PositionEntityH(DjLsh, ObjID, Code, Name, PositionCode, UpperPosition, isManager)"
      " values(55, 52, 'G1', '岗位', 'K1', -9, 1)",
      "insert into UserH(DjLsh, ObjID, Code, Name) values(56, 53, 'plain', '普通')",
      "insert into STDomains(ID, Code, Name, ParentID, NodeLevel, Sequence, FullName, FullCode, ParentCode, ParentName,"
      " UserLimit, RelateOrg) values(1, '01', '集团', -1, 0, 1, '\\集团', '\\1\\', '\\', '\\', 5, 0)",
      "insert into STDomains(ID, Code, Name, ParentID, NodeLevel, Sequence, FullName, FullCode, ParentCode, ParentName,"
      " UserLimit, RelateOrg) values(2, '02', '华东', 1, 1, 1, '\\集团\\华东', '\\1\\2\\', '\\1\\', '\\集团\\', 0, 41)",
      "insert into STDomains(ID, Code, Name, ParentID, NodeLevel, Sequence, FullName, FullCode, ParentCode, ParentName,"
      " UserLimit, RelateOrg) values(3, '03', '华南', 1, 1, 2, '\\集团\\华南', '\\1\\3\\', '\\1\\', '\\集团\\', 0, 0)",
      "insert into STDomainInherits(AncestorID, DescendantID) values(1, 1)",
      "insert into STDomainInherits(AncestorID, DescendantID) values(1, 2)",
      "insert into STDomainInherits(AncestorID, DescendantID) values(1, 3)",
      "insert into STDomainInherits(AncestorID, DescendantID) values(2, 2)",
      "insert into STDomainInherits(AncestorID, DescendantID) values(3, 3)",
      "insert into STDomainMembers(DomainID, UserOID, MemberType, IsOwned) values(1, 1, 3, 1)",
      "insert into STDomainMembers(DomainID, UserOID, MemberType, IsOwned) values(3, 1, 3, 1)",
      "insert into STDomainMembers(DomainID, UserOID, MemberType, IsOwned) values(2, 3, 2, 1)",
      "insert into STDomainMembers(DomainID, UserOID, MemberType, IsOwned) values(2, 3, 2, 0)",
      "insert into STDomainMembers(DomainID, UserOID, MemberType, IsOwned) values(2, 4, 1, 1)",
      "insert into STDomainMembers(DomainID, UserOID, MemberType, IsOwned) values(1, 1, 0, 1)",
      "insert into STDomainMembers(DomainID, UserOID, MemberType, IsOwned) values(1, 1, 0, 0)"})
    ExecStatement(*data, statement);
  for (const char* const statement : {
      "insert into ObjectRegister(ObjectID, TypeID, Object, OwnerID) values(100, 1, '采购单', 0)",
      "insert into Tree(NodeID, ParentID, NodeCaption, ObjectID) values(1, 0, '系统菜单', 100)"})
    ExecStatement(*system, statement);
  // clang-format on
}

std::vector<TFaultOperation> FaultOperations() {
  TOperations operations;
  AddSystemFunctions(operations);
  AddEntries(operations);
  AddRegistry(operations);
  AddUsersAndRoles(operations);
  AddAccounts(operations);
  AddDomainsConsole(operations);
  return operations;
}

}  // namespace zantest
