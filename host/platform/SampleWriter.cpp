#include "host/platform/SampleWriter.h"

#include <fmt/format.h>
#include <openssl/rand.h>

#include <array>

#include "host/platform/RowWriter.h"
#include "host/platform/SampleMenuWriter.h"
#include "host/platform/SampleNames.h"

namespace zanhost {

namespace {

using zanrole::TZanValue;

constexpr std::string_view kCreatorName = "系统管理员";

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
    WritePairs(FDatabase, "STUserGroup", "UserID", "GroupID", FModel.Memberships);
    WriteDomains();
    WriteInheritance();
    WriteMembers();
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

}  // namespace

void WriteSample(TDatabase& database, const TSampleModel& model, zanrole::TCipher& cipher,
                 const std::string& adminPassword) {
  TSampleWriter(database, model, cipher, adminPassword).Write();
  WriteMenus(database, model);
}

}  // namespace zanhost
