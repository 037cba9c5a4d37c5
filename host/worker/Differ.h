#pragma once

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Frame/Host/Forms.h"
#include "host/worker/Rows.h"

namespace zanhost {

/// One window and what the client was told of it. Nobody reports changes: the form's components are compared
/// with what was sent.
class TWindowView {
 public:
  /// The form is not owned; its window is taken away before it dies.
  TWindowView(int number, zanrole::TForm& form, bool modal) : FNumber(number), FForm(&form), FModal(modal) {}

  int Number() const { return FNumber; }
  zanrole::TForm& Form() const { return *FForm; }
  bool IsModal() const { return FModal; }
  /// The client knows that the window is open.
  bool IsSent() const { return FSent; }

  /// Evaluates the rules of all components, then appends what differs from what was sent; everything when
  /// nothing was. A focus request of the form is passed on and cleared. Faults of rules and row callbacks
  /// pass.
  void AppendChanges(boost::json::array& changes);
  /// The client was told nothing yet.
  void Reset();

  /// The client has set this property itself and knows the value: it is not sent back.
  void NoteInput(const zanrole::TComponent& part, std::string_view property, boost::json::value value);
  /// Null for a component that has no rows, or that the client does not know.
  TRowsView* Rows(const zanrole::TComponent& part);

 private:
  struct TPartView {
    zanrole::TComponent* Part;
    /// Tells a part from a later one at the same address.
    unsigned Serial;
    std::string Name;
    boost::json::object Sent;
    std::unique_ptr<TRowsView> Rows;
  };

  void AppendOpen(boost::json::array& changes);
  void AppendGone(boost::json::array& changes);
  void AppendPart(TPartView& view, boost::json::array& changes) const;
  void AppendFocus(boost::json::array& changes);
  TPartView* FindView(const zanrole::TComponent& part);
  void EnterNewParts();

  int FNumber;
  zanrole::TForm* FForm;
  bool FModal;
  bool FSent = false;
  std::string FCaption;
  std::vector<TPartView> FParts;
};

}  // namespace zanhost
