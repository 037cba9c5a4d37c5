#include "Domain/U_DomainEdit.h"

#include "tests/unit/Domain/DomainsFixture.h"

namespace zantest {
namespace {

using namespace zanrole;
using testing::ElementsAre;
using testing::IsEmpty;

class TDomainEditTest : public testing::Test {
 protected:
  /// Presses OK; the squeezed texts of the statements that it sent.
  std::vector<std::string> Ok() {
    FHost.Statements.clear();
    FHost.Messages.clear();
    FDialog.FocusRequest = nullptr;
    FDialog.BitBtnOk.OnExecute();
    return FHost.Texts();
  }

  TRecordingHost FHost;
  TFormDomainEdit FDialog{FHost.Forms(), 9, 5, "\\A\\B\\C"};
};

TEST_F(TDomainEditTest, EachRefusalShowsItsMessageKeepsTheDialogOpenAndLeadsToTheField) {
  EXPECT_THAT(Ok(), IsEmpty());
  EXPECT_THAT(FHost.MessageTexts(), ElementsAre("名称不允许为空！"));
  EXPECT_EQ(FDialog.FocusRequest, &FDialog.EditName);

  FDialog.EditName.Text = "N";
  FDialog.EditCode.Text = " \t";
  EXPECT_THAT(Ok(), IsEmpty());
  EXPECT_THAT(FHost.MessageTexts(), ElementsAre("编码不允许为空！"));
  EXPECT_EQ(FDialog.FocusRequest, &FDialog.EditCode);

  FDialog.EditCode.Text = "n";
  FHost.Answer("and Name = 'N'", {"Found"}, {{1}});
  EXPECT_THAT(Ok(),
              ElementsAre("select 1 Found from STDomains where ParentID = 5 and ID <> 9 and Name = 'N'"));
  EXPECT_THAT(FHost.MessageTexts(), ElementsAre("名称不允许重复!"));
  EXPECT_EQ(FDialog.FocusRequest, &FDialog.EditName);

  FHost.Answer("and Code = 'n'", {"Found"}, {{1}});
  EXPECT_THAT(Ok(), ElementsAre("select 1 Found from STDomains where ParentID = 5 and ID <> 9 and Name = 'N'",
                                "select 1 Found from STDomains where ID <> 9 and Code = 'n'"));
  EXPECT_THAT(FHost.MessageTexts(), ElementsAre("编码不允许重复!"));
  EXPECT_EQ(FDialog.FocusRequest, &FDialog.EditCode);
  EXPECT_EQ(FDialog.ModalResult, mrNone);
}

TEST_F(TDomainEditTest, OkTrimsNameAndCodeAndLeavesTheRemark) {
  FDialog.EditName.Text = "  N ";
  FDialog.EditCode.Text = "\tn ";
  FDialog.EditRemark.Text = " as entered ";
  Ok();
  EXPECT_EQ(FDialog.ModalResult, mrOk);
  EXPECT_EQ(FDialog.Fields().Name, "N");
  EXPECT_EQ(FDialog.Fields().Code, "n");
  EXPECT_EQ(FDialog.Fields().Remark, " as entered ");
}

TEST_F(TDomainEditTest, AQuoteInTheNameIsDoubledInTheQuestion) {
  FDialog.EditName.Text = "O'N";
  FDialog.EditCode.Text = "c'd";
  EXPECT_THAT(Ok(),
              ElementsAre("select 1 Found from STDomains where ParentID = 5 and ID <> 9 and Name = 'O''N'",
                          "select 1 Found from STDomains where ID <> 9 and Code = 'c''d'"));
}

TEST_F(TDomainEditTest, CaptionsAreThoseOfTheFields) {
  EXPECT_EQ(FDialog.EditName.Caption, "名　　称：");
  EXPECT_EQ(FDialog.EditCode.Caption, "编　　码：");
  EXPECT_EQ(FDialog.EditRemark.Caption, "描　　述：");
  EXPECT_EQ(FDialog.EditUserLimit.Caption, "用户上限：");
  EXPECT_EQ(FDialog.LabelUserLimit.Text, "0表示用户数没有限制!");
  EXPECT_EQ(FDialog.EditRelateOrg.Caption, "关联组织：");
}

TEST_F(TDomainEditTest, ANewDomainIsTitledByItsParent) {
  TFormDomainEdit dialog(FHost.Forms(), kNoDomain, 5, "\\A\\B");
  EXPECT_EQ(dialog.LabelTitle.Text, "创建一个新的域。");
  EXPECT_EQ(dialog.LabelDomain.Text, "上级域：\\A\\B");
}

TEST_F(TDomainEditTest, TheOrganisationIsShownByItsPathAndCanBeCleared) {
  FHost.Answer("from PartyH", {"Name"}, {{"集团\\分公司"}, {"分公司"}});
  FDialog.SetFields({"C", "c", "", 0, 42});
  EXPECT_TRUE(FDialog.EditRelateOrg.ReadOnly);
  EXPECT_EQ(FDialog.EditRelateOrg.Text, "集团\\分公司");
  EXPECT_EQ(FDialog.Fields().RelateOrg, 42);
  EXPECT_THAT(FHost.Texts(),
              ElementsAre("with T(Parent, Name) as ( select Parent, cast(Name as NVarChar(2000)) from PartyH "
                          "where DjLsh = 42 union all select a.Parent, cast(a.Name + '\\' + T.Name as "
                          "NVarChar(2000)) from PartyH a inner join T on a.DjLsh = T.Parent ) select Name "
                          "from T order by Parent"));
  FDialog.ActClearOrg.ApplyRules();
  EXPECT_TRUE(FDialog.ActClearOrg.Usable());
  FDialog.ActClearOrg.OnExecute();
  FDialog.ActClearOrg.ApplyRules();
  EXPECT_FALSE(FDialog.ActClearOrg.Usable());
  EXPECT_EQ(FDialog.EditRelateOrg.Text, "");
  EXPECT_EQ(FDialog.Fields().RelateOrg, 0);
}

TEST_F(TDomainEditTest, AnOrganisationThatHasGoneIsShownByItsNumber) {
  FDialog.SetFields({"C", "c", "", 0, 42});
  EXPECT_EQ(FDialog.EditRelateOrg.Text, "42");
  EXPECT_EQ(FDialog.Fields().RelateOrg, 42);
}

TEST(DomainEditDialects, ThePathOfTheOrganisationOnOracle) {
  TRecordingHost host(TDialect::Oracle);
  TFormDomainEdit(host.Forms(), 9, 5, "").SetFields({"C", "c", "", 0, 42});
  EXPECT_THAT(
      host.Texts(),
      ElementsAre("with T(Parent, Name) as ( select Parent, cast(Name as NVarChar2(2000)) from PartyH "
                  "where DjLsh = 42 union all select a.Parent, cast(a.Name || '\\' || T.Name as "
                  "NVarChar2(2000)) from PartyH a inner join T on a.DjLsh = T.Parent ) select Name "
                  "from T order by Parent"));
}

TEST(DomainEditDialects, ThePathOfTheOrganisationOnMySql) {
  TRecordingHost host(TDialect::MySql);
  TFormDomainEdit(host.Forms(), 9, 5, "").SetFields({"C", "c", "", 0, 42});
  EXPECT_THAT(host.Texts(), ElementsAre("select get_UserFullDeptName(42) Name"));
}

TEST_F(TDomainEditTest, ADomainWithoutOrganisationAsksNothing) {
  FDialog.SetFields({"C", "c", "", 0, 0});
  EXPECT_THAT(FHost.Texts(), IsEmpty());
}

}  // namespace
}  // namespace zantest
