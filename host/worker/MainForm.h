#pragma once

#include <vector>

#include "Frame/Host/Forms.h"
#include "host/worker/HostSession.h"
#include "host/worker/MenuTree.h"

namespace zanhost {

/// The first window of a person's session: the menu, as far as he may run it. It cannot be closed.
class TMainForm final : public zanrole::TForm {
 public:
  /// Reads the menu. `session` must outlive the form; the module's session is current.
  TMainForm(zanrole::TFormHost& host, THostSessionImpl& session, const TModule& module);

  std::string ClassName() const override { return "TMainForm"; }
  void InitLngResources() override;
  bool CloseQuery() override { return false; }

 private:
  void AddEntries(zanrole::TTreeNode* parent, const std::vector<TMenuEntry>& entries);
  void Run(const TMenuEntry& entry);

  THostSessionImpl* FSession;
  std::vector<TMenuEntry> FMenu;
  /// Entries by the Data of their nodes.
  std::vector<const TMenuEntry*> FEntries;
  zanrole::TGroup FStatus{*this, nullptr, "Status", zanrole::TGroupRole::Status};
  zanrole::TLabel FUserName{*this, &FStatus, "UserName"};
  zanrole::TTreeView FMenuTree{*this, nullptr, "MenuTree"};
};

}  // namespace zanhost
