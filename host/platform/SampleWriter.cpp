#include "host/platform/SampleWriter.h"

#include <fmt/format.h>
#include <openssl/rand.h>

#include <array>

#include "host/platform/RowWriter.h"
#include "host/platform/SampleMenus.h"
#include "host/platform/SampleNames.h"

namespace zanhost {

namespace {

using zanrole::TZanValue;

constexpr std::string_view kCreatorName = "系统管理员";
constexpr int kApplication = 1;

std::string NodeKindName(TNodeKind kind) {
  switch (kind) {
    case TNodeKind::Company:
      return "Company";
    case TNodeKind::Department:
      return "Department";
    case TNodeKind::PositionEntity:
      return "PositionEntity";
    case TNodeKind::User:
      return "User";
    case TNodeKind::UserGroup:
      break;
  }
  return "UserGroup";
}

TZanValue OrNull(std::optional<int> number) { return number ? TZanValue(*number) : TZanValue(); }
TZanValue OrNull(const std::string& text) { return text.empty() ? TZanValue() : TZanValue(text); }
TZanValue Flag(bool flag) { return flag ? 1 : 0; }
std::string Text(std::string_view text) { return std::string(text); }

// Every minute of work makes one account, from the first working day on.
zanrole::TDateTime MadeAt(int number) {
  using namespace std::chrono;
  return local_days(year(2024) / 1 / 2) + hours(8) + minutes(number % 480) + days(number / 480);
}

std::string RandomPassword() {
  std::array<unsigned char, 18> bytes{};
  if (RAND_bytes(bytes.data(), static_cast<int>(bytes.size())) != 1)
    throw zanrole::EZanError("The system gives no random numbers.");
  std::string text;
  for (const unsigned char byte : bytes) text += fmt::format("{:02x}", byte);
  return text;
}

class TSampleWriter {
 public:
  TSampleWriter(TDatabase& database, const TSampleModel& model, zanrole::TCipher& cipher,
                const std::string& adminPassword)
      : FDatabase(database), FModel(model), FCipher(cipher), FAdminPassword(adminPassword) {}

  void Write() {
    WriteNodes();
    WriteEntities();
    WritePositions();
    WritePositionMaps();
    WritePeople();
    WriteAccounts();
    WritePairs("STUserGroup", "UserID", "GroupID", FModel.Memberships);
    WriteDomains();
    WriteInheritance();
    WriteMembers();
    WriteMenus();
    WriteObjects();
    WriteDefinitions();
    WriteLinks();
    WriteRights();
    WriteFieldPermissions();
    WriteTemplates();
  }

 private:
  void WriteNodes();
  void WriteEntities();
  void WritePositions();
  void WritePositionMaps();
  void WriteMap(TRowWriter& rows, int& last, const std::string& name, bool managersOnly);
  void WritePeople();
  void WriteAccounts();
  void WritePasswordRules(TRowWriter& rows, const TSampleAccount& account);
  std::string StoredPassword(const TSampleAccount& account);
  void WriteDomains();
  void WriteInheritance();
  void WriteMembers();
  void WriteMenus();
  void WriteObjects();
  void WriteDefinitions();
  void WriteFields();
  void WriteExtraOperations();
  void WriteLinks();
  void WriteRights();
  void WriteFieldPermissions();
  void WriteTemplates();
  void WritePairs(std::string_view table, std::string_view first, std::string_view second,
                  const std::vector<std::pair<int, int>>& pairs);
  const TSampleNode& Node(int djLsh) const { return FModel.Nodes[static_cast<std::size_t>(djLsh - 1)]; }

  TDatabase& FDatabase;
  const TSampleModel& FModel;
  zanrole::TCipher& FCipher;
  const std::string& FAdminPassword;
};

void TSampleWriter::WriteNodes() {
  // clang-format off
  TRowWriter rows(FDatabase, "PartyH",
                  {"DjLsh", "Parent", "Type", "Name", "Title", "Code", "Sequence", "IsActive", "LongName",
                   "LongCode", "ParentPath", "NodeLevel", "IsLastLevel", "FullName", "UserOID", "UserLsh",
                   "isSTUser", "isHeadPosition", "isCapitalPosition", "Inputer", "InputTime"});
  // clang-format on
  for (const TSampleNode& node : FModel.Nodes) {
    const bool isUser = node.Kind == TNodeKind::User;
    rows.Add({node.DjLsh,
              node.Parent,
              NodeKindName(node.Kind),
              node.Name,
              node.Title,
              node.Code,
              node.Sequence,
              Flag(node.IsActive),
              node.LongName,
              node.LongCode,
              node.ParentPath,
              node.Level,
              Flag(node.IsLastLevel),
              OrNull(node.FullName),
              OrNull(node.UserOID),
              OrNull(node.UserLsh),
              isUser ? Flag(node.UserOID.has_value()) : TZanValue(),
              Flag(node.IsHeadPosition),
              node.IsMainPost ? Flag(*node.IsMainPost) : TZanValue(),
              Text(kCreatorName),
              MadeAt(node.DjLsh)});
  }
}

void TSampleWriter::WriteEntities() {
  TRowWriter companies(FDatabase, "CompanyH", {"Djlsh", "ObjID", "code", "Name", "Title"});
  TRowWriter departments(FDatabase, "DepartmentH", {"Djlsh", "ObjID", "code", "Name", "Title"});
  int company = 0;
  int department = 0;
  for (const TSampleNode& node : FModel.Nodes) {
    if (node.Kind == TNodeKind::Company)
      companies.Add({++company, node.DjLsh, node.Code, node.Name, node.Title});
    else if (node.Kind == TNodeKind::Department)
      departments.Add({++department, node.DjLsh, node.Code, node.Name, node.Title});
  }
}

std::string PositionCode(int kind) { return fmt::format("P{:02}", kind + 1); }

void TSampleWriter::WritePositions() {
  TRowWriter kinds(FDatabase, "PositionH", {"DjLsh", "Code", "Name"});
  int kind = 0;
  for (const std::string_view name : PositionKinds()) {
    kinds.Add({kind + 1, PositionCode(kind), Text(name)});
    ++kind;
  }
  TRowWriter rows(FDatabase, "PositionEntityH",
                  {"Djlsh", "ObjID", "code", "Name", "Title", "PositionCode", "UpperPosition", "isManager"});
  int number = 0;
  for (const TSamplePosition& position : FModel.Positions) {
    const TSampleNode& node = Node(position.Node);
    rows.Add({++number, node.DjLsh, node.Code, node.Name, node.Title, PositionCode(position.Kind),
              position.Upper, Flag(position.IsManager)});
  }
}

void TSampleWriter::WritePositionMaps() {
  TRowWriter rows(FDatabase, "PositionMapH",
                  {"Djlsh", "PositionID", "PositionName", "UpperPosition", "MapID"});
  int last = 0;
  WriteMap(rows, last, "行政汇报", /*managersOnly*/ false);
  WriteMap(rows, last, "管理层会议", /*managersOnly*/ true);
}

// A map follows the default chain. Superiors get their row first, wherever they stand among the positions.
void TSampleWriter::WriteMap(TRowWriter& rows, int& last, const std::string& name, bool managersOnly) {
  const int root = ++last;
  rows.Add({root, -1, name, -1, root});
  std::vector<int> rowOf(FModel.Nodes.size() + 1);
  for (bool grown = true; grown;) {
    grown = false;
    for (const TSamplePosition& position : FModel.Positions) {
      int& own = rowOf[static_cast<std::size_t>(position.Node)];
      const bool isTop = position.Upper == kNoUpperPosition;
      const int upper = isTop ? root : rowOf[static_cast<std::size_t>(position.Upper)];
      if (own != 0 || upper == 0 || (managersOnly && !position.IsManager)) continue;
      own = ++last;
      rows.Add({own, position.Node, Node(position.Node).Name, upper, root});
      grown = true;
    }
  }
}

void TSampleWriter::WritePeople() {
  // clang-format off
  TRowWriter rows(FDatabase, "UserH",
                  {"DjLsh", "ObjID", "code", "name", "title", "birth", "handPhone", "sex", "married", "email",
                   "isAdmin"});
  // clang-format on
  for (const TSamplePerson& person : FModel.People) {
    const int number = person.DjLsh;
    rows.Add({number, person.Posts.empty() ? 0 : person.Posts.front(), person.Login, person.Name, person.Name,
              fmt::format("{}-{:02}-{:02}", 1965 + number % 38, 1 + number % 12, 1 + number % 28),
              fmt::format("139{:08}", number), number % 3 == 0 ? "女" : "男", Flag(number % 2 == 0),
              fmt::format("{}@example.com", person.Login), 0});
  }
}

void TSampleWriter::WriteAccounts() {
  // clang-format off
  TRowWriter rows(FDatabase, "STUsers",
                  {"OID", "UserID", "UserName", "UserDesc", "Password", "uGroup", "UnUsed", "IsAdministrator",
                   "Categories", "Creator", "CreatorName", "CreateTime", "EmpowermentRight", "RelateOrg",
                   "RelateUserH"});
  // clang-format on
  TRowWriter passwords(FDatabase, "STUserPasswordStrategy",
                       {"UserID", "NeedReset", "CanModify", "NeverExpires", "LastModifyTime"});
  for (const TSampleAccount& account : FModel.Accounts) {
    const TSampleAccount& creator = FModel.Accounts[static_cast<std::size_t>(account.Creator - 1)];
    rows.Add({account.OID, account.UserID, account.UserName, account.UserDesc,
              account.IsRole ? TZanValue() : TZanValue(StoredPassword(account)), Flag(account.IsRole),
              Flag(account.UnUsed), account.Administrator, OrNull(account.Categories), account.Creator,
              creator.UserName, MadeAt(account.OID), Flag(account.EmpowermentRight),
              OrNull(account.RelateOrg), OrNull(account.RelateUserH)});
    if (!account.IsRole) WritePasswordRules(passwords, account);
  }
}

// Some users have no row: the defaults hold for them.
void TSampleWriter::WritePasswordRules(TRowWriter& rows, const TSampleAccount& account) {
  const bool isAdmin = account.OID == kAdminOID;
  if (!isAdmin && account.OID % 25 == 0) return;
  rows.Add({account.UserID, Flag(!isAdmin && account.OID % 10 == 3), Flag(isAdmin || account.OID % 40 != 7),
            Flag(isAdmin || account.OID % 6 == 0), MadeAt(account.OID)});
}

std::string TSampleWriter::StoredPassword(const TSampleAccount& account) {
  const std::string plain = account.OID == kAdminOID ? FAdminPassword : RandomPassword();
  return FCipher.Encrypt(fmt::format("{}:{}", account.UserID, plain));
}

void TSampleWriter::WriteDomains() {
  // clang-format off
  TRowWriter rows(FDatabase, "STDomains",
                  {"ID", "Code", "Name", "Remark", "ParentID", "NodeLevel", "Sequence", "FullName", "FullCode",
                   "ParentCode", "ParentName", "UserLimit", "RelateOrg"});
  // clang-format on
  for (const TSampleDomain& domain : FModel.Domains)
    rows.Add({domain.ID, domain.Code, domain.Name, domain.Remark, domain.Parent, domain.Level,
              domain.Sequence, domain.FullName, domain.FullCode, domain.ParentCode, domain.ParentName,
              domain.UserLimit, domain.RelateOrg});
}

void TSampleWriter::WriteInheritance() {
  TRowWriter rows(FDatabase, "STDomainInherits", {"AncestorID", "DescendantID"});
  for (const TSampleDomain& domain : FModel.Domains)
    for (int id = domain.ID; id != kTopParent; id = FModel.Domains[static_cast<std::size_t>(id - 1)].Parent)
      rows.Add({id, domain.ID});
}

void TSampleWriter::WriteMembers() {
  TRowWriter rows(FDatabase, "STDomainMembers", {"DomainID", "UserOID", "MemberType", "IsOwned"});
  for (const TSampleMember& member : FModel.Members)
    rows.Add({member.DomainID, member.UserOID, member.MemberType, member.IsOwned});
}

void TSampleWriter::WriteMenus() {
  // clang-format off
  TRowWriter rows(FDatabase, "Tree",
                  {"NodeID", "NodeAtt", "NodeCaption", "NodeLevel", "ParentID", "PrecedID", "Functions", "IconNo",
                   "ObjectID", "NeedHide"});
  // clang-format on
  TRowWriter objects(FDatabase, "ObjectRegister", {"ObjectID", "TypeID", "Object", "OwnerID"});
  for (const TSampleMenu& menu : FModel.Menus) {
    rows.Add({menu.NodeID, 0, menu.Caption, menu.Level, menu.Parent, menu.Preceding, menu.Functions,
              menu.Functions.empty() ? 0 : 1, menu.ObjectID, Flag(menu.NeedHide)});
    if (menu.ObjectID > 0) objects.Add({menu.ObjectID, kTypeMenu, menu.Caption, menu.NodeID});
  }
}

void TSampleWriter::WriteObjects() {
  TRowWriter objects(FDatabase, "ObjectRegister", {"ObjectID", "TypeID", "Object"});
  for (const TSampleObject& object : FModel.Objects)
    objects.Add({object.ObjectID, object.TypeID, object.Name});
}

// Documents, queries and views are grouped as the menu groups them.
void TSampleWriter::WriteDefinitions() {
  TRowWriter folders(FDatabase, "MlDy", {"YyDm", "MlDm", "MlDisOrder", "MlCName"});
  TRowWriter views(FDatabase, "ViewDy", {"YyDm", "ViewDm", "GroupName", "ViewCName"});
  TRowWriter documents(FDatabase, "DjDy", {"YyDm", "DjDm", "MlDm", "DjType", "DjCName"});
  TRowWriter queries(FDatabase, "CxDy", {"YyDm", "CxDm", "GroupName", "CxDisOrder", "CxCName"});
  std::string group;
  int folder = 0;
  for (const TSampleObject& object : FModel.Objects) {
    if (object.Group != group) {
      group = object.Group;
      ++folder;
      folders.Add({kApplication, folder, folder, group});
      views.Add({kApplication, folder, group, fmt::format("{}视图", group)});
    }
    if (object.TypeID == kTypeDocument)
      documents.Add({kApplication, object.Code, folder, 1, object.Name});
    else
      queries.Add({kApplication, object.Code, group, object.Code, object.Name});
  }
  WriteFields();
  WriteExtraOperations();
}

void TSampleWriter::WriteFields() {
  // clang-format off
  TRowWriter fields(FDatabase, "XmDy",
                    {"YyDm", "DjDm", "XmDm", "XmPosition", "XmDisOrder", "XmEName", "XmCName", "XmDataType",
                     "PermissionControl"});
  TRowWriter columns(FDatabase, "CxXsDy",
                     {"YyDm", "CxDm", "XsDm", "CxDisOrder", "XsEName", "XsCName", "XsDataType",
                      "PermissionControl"});
  // clang-format on
  for (const TSampleObject& object : FModel.Objects) {
    int number = 0;
    if (object.TypeID == kTypeDocument) {
      for (const TSampleField& field : DocumentFields()) {
        ++number;
        fields.Add({kApplication, object.Code, number, number <= 3 ? "表头" : "表体", number,
                    Text(field.Name), Text(field.Caption), Text(field.DataType), Flag(field.Candidate)});
      }
      continue;
    }
    for (const TSampleField& column : QueryColumns()) {
      ++number;
      columns.Add({kApplication, object.Code, number, number, Text(column.Name), Text(column.Caption),
                   Text(column.DataType), Flag(column.Candidate)});
    }
  }
}

// Every third document and query has operations of its own; the second one is named by its description.
void TSampleWriter::WriteExtraOperations() {
  TRowWriter rows(FDatabase, "ExFunction", {"SType", "SID", "ID", "Note2", "SDesc", "SOrder"});
  for (const TSampleObject& object : FModel.Objects) {
    if (object.Code % 3 != 0) continue;
    const std::string type = object.TypeID == kTypeDocument ? "DJ" : "CX";
    rows.Add({type, object.Code, 1, "导出", "导出到文件", 1});
    rows.Add({type, object.Code, 2, "", "发送邮件", 2});
  }
}

void TSampleWriter::WriteLinks() {
  TRowWriter web(FDatabase, "WebMenu",
                 {"MID", "parent", "Idx", "title", "hrefLink", "hint", "target", "expMode"});
  for (const TSampleLink& link : FModel.WebLinks)
    web.Add({link.ID, link.Parent, link.ID, link.Caption, fmt::format("page:{}", link.ID), link.Caption,
             "main", Flag(link.Parent <= 1)});
  TRowWriter office(FDatabase, "OA_MenusH", {"OA_ID", "PID", "Name", "Sort"});
  for (const TSampleLink& link : FModel.OALinks) office.Add({link.ID, link.Parent, link.Caption, link.ID});

  WritePairs("STDomainPermission", "DomainID", "MenuNodeID", FModel.DomainMenus);
  WritePairs("STDomainOAPermission", "DomainID", "MenuID", FModel.DomainOALinks);
  WritePairs("STDomainWebPermission", "DomainID", "ObjID", FModel.DomainWebLinks);
  TRowWriter roleWeb(FDatabase, "WebPermission", {"RoleID", "ObjID", "TypeName", "Operate", "Permission"});
  for (const auto& [role, link] : FModel.RoleWebLinks) roleWeb.Add({role, link, "菜单", "操作", 1});
  TRowWriter roleOffice(FDatabase, "STOAPermission", {"RoleID", "MenuID", "Permission"});
  for (const auto& [role, link] : FModel.RoleOALinks) roleOffice.Add({role, link, 1});
}

void TSampleWriter::WriteRights() {
  TRowWriter rows(FDatabase, "STPermission", {"UserID", "ObjectID", "Oprate", "Permission"});
  for (const TSampleRight& right : FModel.Rights)
    rows.Add({right.Holder, right.ObjectID, right.Oprate, right.Permission});
}

// The amounts of the first documents and queries are under control. Shared roles do not see them, one user
// does all the same.
void TSampleWriter::WriteFieldPermissions() {
  constexpr int kControlledObjects = 8;
  constexpr int kDocument = 0;
  constexpr int kQuery = 1;
  constexpr int kHidden = 1;
  constexpr int kVisible = 2;
  TRowWriter control(FDatabase, "STFieldPermissionControl",
                     {"ObjType", "ObjDm", "XmDm", "PermissionControl"});
  TRowWriter sets(FDatabase, "STFieldPermissionSet",
                  {"UserOID", "ObjType", "ObjDm", "XmDm", "Permission", "AddReadOnly", "EditReadOnly"});
  constexpr int kAmountOfDocument = 4;
  constexpr int kAmountOfQuery = 4;
  for (std::size_t place = 0; place < kControlledObjects; ++place) {
    const TSampleObject& object = FModel.Objects[place];
    const bool isDocument = object.TypeID == kTypeDocument;
    const int type = isDocument ? kDocument : kQuery;
    const int field = isDocument ? kAmountOfDocument : kAmountOfQuery;
    control.Add({type, object.Code, field, 1});
    for (const TSampleMember& member : FModel.Members)
      if (member.DomainID == kSharedRolesDomain)
        sets.Add({member.UserOID, type, object.Code, field, kHidden, 0, 1});
    sets.Add({FModel.People.front().OID, type, object.Code, field, kVisible, 0, 0});
  }
}

void TSampleWriter::WriteTemplates() {
  TRowWriter rows(FDatabase, "DocumentTempletH", {"DjLsh", "Name", "Title"});
  rows.Add({1, "发文", "公司发文"});
  rows.Add({2, "请假审批", "员工请假审批"});
  rows.Add({3, "Contract", "Contract approval"});
}

void TSampleWriter::WritePairs(std::string_view table, std::string_view first, std::string_view second,
                               const std::vector<std::pair<int, int>>& pairs) {
  TRowWriter rows(FDatabase, table, {first, second});
  for (const auto& [left, right] : pairs) rows.Add({left, right});
}

}  // namespace

void WriteSample(TDatabase& database, const TSampleModel& model, zanrole::TCipher& cipher,
                 const std::string& adminPassword) {
  TSampleWriter(database, model, cipher, adminPassword).Write();
}

}  // namespace zanhost
