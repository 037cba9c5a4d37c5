#include "host/platform/SampleMenuWriter.h"

#include <fmt/format.h>

#include "host/platform/RowWriter.h"
#include "host/platform/SampleMenus.h"

namespace zanhost {

namespace {

constexpr int kApplication = 1;

std::string Text(std::string_view text) { return std::string(text); }

class TMenuWriter {
 public:
  TMenuWriter(TDatabase& database, const TSampleModel& model) : FDatabase(database), FModel(model) {}

  void Write() {
    WriteMenus();
    WriteObjects();
    WriteDefinitions();
    WriteLinks();
    WriteRights();
    WriteFieldPermissions();
    WriteTemplates();
  }

 private:
  void WriteMenus();
  void WriteObjects();
  void WriteDefinitions();
  void WriteFields();
  void WriteExtraOperations();
  void WriteLinks();
  void WriteRights();
  void WriteFieldPermissions();
  void WriteTemplates();

  TDatabase& FDatabase;
  const TSampleModel& FModel;
};

void TMenuWriter::WriteMenus() {
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

void TMenuWriter::WriteObjects() {
  TRowWriter objects(FDatabase, "ObjectRegister", {"ObjectID", "TypeID", "Object"});
  for (const TSampleObject& object : FModel.Objects)
    objects.Add({object.ObjectID, object.TypeID, object.Name});
}

// Documents, queries and views are grouped as the menu groups them.
void TMenuWriter::WriteDefinitions() {
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

void TMenuWriter::WriteFields() {
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
void TMenuWriter::WriteExtraOperations() {
  TRowWriter rows(FDatabase, "ExFunction", {"SType", "SID", "ID", "Note2", "SDesc", "SOrder"});
  for (const TSampleObject& object : FModel.Objects) {
    if (object.Code % 3 != 0) continue;
    const std::string type = object.TypeID == kTypeDocument ? "DJ" : "CX";
    rows.Add({type, object.Code, 1, "导出", "导出到文件", 1});
    rows.Add({type, object.Code, 2, "", "发送邮件", 2});
  }
}

void TMenuWriter::WriteLinks() {
  TRowWriter web(FDatabase, "WebMenu",
                 {"MID", "parent", "Idx", "title", "hrefLink", "hint", "target", "expMode"});
  for (const TSampleLink& link : FModel.WebLinks)
    web.Add({link.ID, link.Parent, link.ID, link.Caption, fmt::format("page:{}", link.ID), link.Caption,
             "main", Flag(link.Parent <= 1)});
  TRowWriter office(FDatabase, "OA_MenusH", {"OA_ID", "PID", "Name", "Sort"});
  for (const TSampleLink& link : FModel.OALinks) office.Add({link.ID, link.Parent, link.Caption, link.ID});

  WritePairs(FDatabase, "STDomainPermission", "DomainID", "MenuNodeID", FModel.DomainMenus);
  WritePairs(FDatabase, "STDomainOAPermission", "DomainID", "MenuID", FModel.DomainOALinks);
  WritePairs(FDatabase, "STDomainWebPermission", "DomainID", "ObjID", FModel.DomainWebLinks);
  TRowWriter roleWeb(FDatabase, "WebPermission", {"RoleID", "ObjID", "TypeName", "Operate", "Permission"});
  for (const auto& [role, link] : FModel.RoleWebLinks) roleWeb.Add({role, link, "菜单", "操作", 1});
  TRowWriter roleOffice(FDatabase, "STOAPermission", {"RoleID", "MenuID", "Permission"});
  for (const auto& [role, link] : FModel.RoleOALinks) roleOffice.Add({role, link, 1});
}

void TMenuWriter::WriteRights() {
  TRowWriter rows(FDatabase, "STPermission", {"UserID", "ObjectID", "Oprate", "Permission"});
  for (const TSampleRight& right : FModel.Rights)
    rows.Add({right.Holder, right.ObjectID, right.Oprate, right.Permission});
}

// The amounts of the first documents and queries are under control. Shared roles do not see them, one user
// does all the same.
void TMenuWriter::WriteFieldPermissions() {
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

void TMenuWriter::WriteTemplates() {
  TRowWriter rows(FDatabase, "DocumentTempletH", {"DjLsh", "Name", "Title"});
  rows.Add({1, "发文", "公司发文"});
  rows.Add({2, "请假审批", "员工请假审批"});
  rows.Add({3, "Contract", "Contract approval"});
}

}  // namespace

void WriteMenus(TDatabase& database, const TSampleModel& model) { TMenuWriter(database, model).Write(); }

}  // namespace zanhost
