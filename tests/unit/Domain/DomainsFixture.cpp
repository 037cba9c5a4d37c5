#include "tests/unit/Domain/DomainsFixture.h"

namespace zantest {

using namespace zanrole;

TDomainsTest::TDomainsTest(TDialect dialect) : FHost(dialect) {
  FHost.SystemInfo().IsSuperUser = true;
  FFunc.FuncInfo = &FFuncInfo;
  FHost.AlwaysAnswer("select * from STUsers where 1=0",
                     {"Creator", "CreateTime", "CreatorName", "ModifierName", "ModifyTime"}, {});
}

void TDomainsTest::ReadTree(const std::vector<TDomainRow>& rows) {
  std::vector<std::vector<TZanValue>> cells;
  for (const TDomainRow& row : rows) {
    const std::string id = std::to_string(row.ID);
    cells.push_back({row.ID, row.Code, row.Name, row.Remark, row.ParentID, row.NodeLevel, row.Sequence,
                     row.ParentName + row.Name, row.ParentCode + id + "\\", row.ParentCode, row.ParentName,
                     row.UserLimit, row.RelateOrg});
  }
  FHost.Answer("NodeLevel, ",
               {"ID", "Code", "Name", "Remark", "ParentID", "NodeLevel", "Sequence", "FullName", "FullCode",
                "ParentCode", "ParentName", "UserLimit", "RelateOrg"},
               std::move(cells));
}

TFormDomains& TDomainsTest::Open() {
  EXPECT_TRUE(FFunc.Execute());
  FHost.Statements.clear();
  return Console();
}

TFormDomains& TDomainsTest::Console() { return *TSession::Current().Slot<std::unique_ptr<TFormDomains>>(); }

TFormDomains& TDomainsTest::OpenCompany() {
  ReadTree({{3, -1, 0, 1, "A", "01", "\\", "\\"},
            {4, -1, 0, 2, "E", "02", "\\", "\\"},
            {5, 3, 1, 1, "B", "0101", "\\A\\", "\\3\\"},
            {6, 3, 1, 2, "D", "0102", "\\A\\", "\\3\\"},
            {9, 5, 2, 1, "C", "010101", "\\A\\B\\", "\\3\\5\\", "remark", 7, 0}});
  return Open();
}

TTreeNode& TDomainsTest::Node(int domainID) {
  TTreeNode* const node = Console().DomainTree.FindData(domainID);
  if (node == nullptr) throw std::out_of_range("no node of domain " + std::to_string(domainID));
  return *node;
}

void TDomainsTest::Select(int domainID) {
  Console().DomainTree.Select(&Node(domainID));
  FHost.Statements.clear();
}

bool TDomainsTest::IsUsable(TComponent& part) {
  for (TComponent* each = &part; each != nullptr; each = each->Container()) each->ApplyRules();
  return part.Usable();
}

void TDomainsTest::Press(TAction& action) {
  ASSERT_TRUE(IsUsable(action)) << action.Name() << " cannot be pressed";
  action.OnExecute();
}

void TDomainsTest::WhenAsked(std::string name, std::string code, std::string remark, int userLimit) {
  FHost.WhenModal([=](TForm& form) {
    auto& dialog = dynamic_cast<TFormDomainEdit&>(form);
    dialog.EditName.Text = name;
    dialog.EditCode.Text = code;
    dialog.EditRemark.Text = remark;
    dialog.EditUserLimit.Value = userLimit;
    dialog.BitBtnOk.OnExecute();
    return form.ModalResult;
  });
}

std::vector<std::string> TDomainsTest::StatementsOf(const std::function<void()>& act) {
  FHost.Statements.clear();
  act();
  return FHost.Texts();
}

void TDomainsTest::AnswerNewDomain(int lastSequence, const TDomainRow* parent, int newID,
                                   std::string parentCode) {
  FHost.Answer("max(Sequence)", {"Sequence"}, {{lastSequence}});
  if (parent != nullptr) {
    const std::string id = std::to_string(parent->ID);
    FHost.Answer("select FullName, FullCode, NodeLevel", {"FullName", "FullCode", "NodeLevel"},
                 {{parent->ParentName + parent->Name, parent->ParentCode + id + "\\", parent->NodeLevel}});
  }
  FHost.Answer("select ID, ParentCode", {"ID", "ParentCode"}, {{newID, parentCode}});
}

void TDomainsTest::AnswerSequences() {
  FHost.Answer("select Sequence from STDomains where ID = 6", {"Sequence"}, {{2}});
  FHost.Answer("select Sequence from STDomains where ID = 5", {"Sequence"}, {{1}});
}

}  // namespace zantest
