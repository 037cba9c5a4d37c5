#include "Domain/U_DomainEdit.h"

#include "Domain/DomainStatements.h"
#include "Domain/U_DomainFuncsImp.h"
#include "Frame/Consoles/FieldChecks.h"
#include "Frame/Dialects.h"

namespace zanrole {

namespace {

constexpr const char* kBlankName = "名称不允许为空！";
constexpr const char* kBlankCode = "编码不允许为空！";

// What the columns of STDomains hold.
constexpr int kNameLength = 50;
constexpr int kCodeLength = 50;
constexpr int kRemarkLength = 200;
constexpr int kMaxUserLimit = 10000;

}  // namespace

const char* BlankFieldFault(const TDomainFields& fields) {
  if (fields.Name.empty()) return kBlankName;
  return fields.Code.empty() ? kBlankCode : nullptr;
}

TFormDomainEdit::TFormDomainEdit(TFormHost& host, int ownID, int parentID, std::string fullName)
    : TForm(host),
      FQuery(TDbProviderFactory::GetQuery()),
      FOwnID(ownID),
      FParentID(parentID),
      FFullName(std::move(fullName)) {
  EditName.MaxLength = kNameLength;
  EditCode.MaxLength = kCodeLength;
  EditRemark.MaxLength = kRemarkLength;
  EditUserLimit.MaxValue = kMaxUserLimit;
  EditRelateOrg.ReadOnly = true;
  ActClearOrg.Icon = "close";
  ActClearOrg.EnabledRule = [this] { return FRelateOrgID != 0; };
  ActClearOrg.OnExecute = [this] { SetRelateOrgID(0); };
  BitBtnOk.Default = true;
  BitBtnOk.OnExecute = [this] { BitBtnOkClick(); };
  BitBtnCancel.Cancel = true;
  BitBtnCancel.OnExecute = [this] { BitBtnCancelClick(); };
  FocusRequest = &EditName;
  InitLngResources();
}

void TFormDomainEdit::InitLngResources() {
  const bool isNew = FOwnID == kNoDomain;
  Caption = ResString("域管理");
  LabelTitle.Text = ResString(isNew ? "创建一个新的域。" : "修改域的相关信息。");
  LabelDomain.Text = ResString(isNew ? "上级域：" : "域：") + FFullName;
  EditName.Caption = ResString("名　　称：");
  EditCode.Caption = ResString("编　　码：");
  EditRemark.Caption = ResString("描　　述：");
  EditUserLimit.Caption = ResString("用户上限：");
  LabelUserLimit.Text = ResString("0表示用户数没有限制!");
  EditRelateOrg.Caption = ResString("关联组织：");
  ActClearOrg.Caption = ResString("清除");
  ActClearOrg.Hint = ResString("取消与组织的关联");
  BitBtnOk.Caption = ResString("确定");
  BitBtnCancel.Caption = ResString("取消");
}

void TFormDomainEdit::SetFields(const TDomainFields& fields) {
  EditName.Text = fields.Name;
  EditCode.Text = fields.Code;
  EditRemark.Text = fields.Remark;
  EditUserLimit.Value = fields.UserLimit;
  SetRelateOrgID(fields.RelateOrg);
}

TDomainFields TFormDomainEdit::Fields() const {
  return {EditName.Text, EditCode.Text, EditRemark.Text, EditUserLimit.Value, FRelateOrgID};
}

void TFormDomainEdit::SetRelateOrgID(int id) {
  FRelateOrgID = id;
  EditRelateOrg.Text.clear();
  if (id <= 0) return;
  OpenStatement(*FQuery, SelectOrgPath(id));
  // An organisation that has gone is shown by its number: the link to it is still there.
  EditRelateOrg.Text = FQuery->Eof() ? std::to_string(id) : FQuery->Fields(0).AsString();
}

void TFormDomainEdit::BitBtnOkClick() {
  EditName.Text = Trim(EditName.Text);
  EditCode.Text = Trim(EditCode.Text);
  const bool accepted = PassesChecks({
      {&EditName, [this] { return EditName.Text.empty(); }, kBlankName},
      {&EditCode, [this] { return EditCode.Text.empty(); }, kBlankCode},
      {&EditName, [this] { return IsFound(SelectSameName(FParentID, FOwnID, EditName.Text)); },
       "名称不允许重复!"},
      {&EditCode, [this] { return IsFound(SelectSameCode(FOwnID, EditCode.Text)); }, "编码不允许重复!"},
  });
  if (accepted) ModalResult = mrOk;
}

void TFormDomainEdit::BitBtnCancelClick() { ModalResult = mrCancel; }

bool TFormDomainEdit::IsFound(const std::string& statement) {
  OpenStatement(*FQuery, statement);
  return !FQuery->Eof();
}

}  // namespace zanrole
