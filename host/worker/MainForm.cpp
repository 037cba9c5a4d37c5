#include "host/worker/MainForm.h"

#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>

#include "host/worker/FunctionCall.h"

namespace zanhost {

using namespace zanrole;

namespace {

/// Folders down to this level are open at the start.
constexpr int kOpenLevels = 2;

/// A console of the menu is a page of the host.
constexpr int kPageStyle = 0;

std::string MenuNodeJson(const TMenuEntry& entry) {
  return boost::json::serialize(
      boost::json::object{{"ObjectID", entry.ObjectID}, {"Caption", entry.Caption}});
}

}  // namespace

TMainForm::TMainForm(TFormHost& host, THostSessionImpl& session, const TModule& module)
    : TForm(host), FSession(&session) {
  const bool seesAll = session.IsBuilder();
  FMenu = ReadMenu(session.Databases(),
                   [&](int objectID) { return seesAll || module.Entries()->GetMenuPermission(objectID); });
  AddEntries(nullptr, FMenu);
  FUserName.Text = session.SystemInfo().LoginUserName;
  FMenuTree.OnActivate = [this](TTreeNode& node) { Run(*FEntries[static_cast<std::size_t>(node.Data)]); };
  InitLngResources();
}

void TMainForm::AddEntries(TTreeNode* parent, const std::vector<TMenuEntry>& entries) {
  for (const TMenuEntry& entry : entries) {
    TTreeNode* const node = FMenuTree.Add(parent, entry.Caption, static_cast<std::int64_t>(FEntries.size()));
    node->Icon = entry.Children.empty() ? "menu" : "folder";
    FEntries.push_back(&entry);
    AddEntries(node, entry.Children);
    if (!entry.Children.empty()) FMenuTree.SetExpanded(node, node->Level() < kOpenLevels);
  }
}

void TMainForm::InitLngResources() {
  TResourceStrings& texts = FSession->Resources();
  Caption = texts.resS("主菜单");
  FMenuTree.Caption = texts.resS("主菜单");
  FMenuTree.EmptyText = texts.resS("没有可用的菜单");
  FUserName.Caption = texts.resS("用户");
  std::vector<const std::vector<std::unique_ptr<TTreeNode>>*> levels{&FMenuTree.Roots()};
  while (!levels.empty()) {
    const auto& nodes = *levels.back();
    levels.pop_back();
    for (const auto& node : nodes) {
      node->Text = texts.res(FEntries[static_cast<std::size_t>(node->Data)]->Caption, "Menu");
      levels.push_back(&node->Children());
    }
  }
}

void TMainForm::Run(const TMenuEntry& entry) {
  if (!entry.Children.empty()) return;
  THostFuncManager& functions = FSession->FuncManager();
  if (entry.Function.empty() || functions.Find(entry.Function, TFuncType::Menu) == nullptr) {
    const std::string text = FSession->Resources().resS("本系统没有该菜单的功能！");
    FSession->Dialogs().MessageBox({}, text, TMsgDlgType::Information, mbOK);
    return;
  }
  RunMenuFunction(functions, entry.Function, kPageStyle, {{"MenuNode", MenuNodeJson(entry)}});
}

}  // namespace zanhost
