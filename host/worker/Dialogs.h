#pragma once

#include <deque>
#include <string>
#include <string_view>

#include "Frame/Host/Forms.h"
#include "Frame/Host/VeshMessageDlg.h"
#include "Frame/Host/Veshpublics.h"

namespace zanhost {

/// A message box or question: a window like any other, with a label and one action for each button.
class TMessageForm final : public zanrole::TForm {
 public:
  /// An empty title stands for the host's own. Captions come from the resources.
  TMessageForm(zanrole::TFormHost& host, zanrole::TResourceStrings& resources, std::string_view title,
               std::string_view text, zanrole::TMsgDlgType kind, unsigned buttons);

  std::string ClassName() const override { return "TMessage"; }
  void InitLngResources() override;
  /// "information", "warning", "error" or "confirm".
  std::string_view Kind() const;
  /// Presents the box and waits for the answer.
  zanrole::TMsgDlgBtn Ask();

 private:
  void AddButton(zanrole::TMsgDlgBtn button, const char* name, const char* caption);

  struct TButton {
    zanrole::TAction Action;
    const char* CaptionKey;
    TButton(TMessageForm& form, zanrole::TComponent* container, const char* name, const char* captionKey)
        : Action(form, container, name), CaptionKey(captionKey) {}
  };

  zanrole::TResourceStrings* FResources;
  bool FHasOwnTitle;
  zanrole::TMsgDlgType FKind;
  unsigned FButtons;
  zanrole::TMsgDlgBtn FAnswer;
  zanrole::TLabel FText{*this, nullptr, "Text"};
  zanrole::TGroup FBar{*this, nullptr, "Buttons", zanrole::TGroupRole::Buttons};
  std::deque<TButton> FActions;
};

}  // namespace zanhost
