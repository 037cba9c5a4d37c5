#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Frame/Host/Classes.h"

namespace zanrole {

class TComponent;
class TForm;

enum class TComponentKind {
  Group,
  Action,
  Label,
  Edit,
  Memo,
  Check,
  Radio,
  Combo,
  Spin,
  List,
  Tree,
  Grid,
  Tabs,
  Tab,
  Progress,
  Picture
};

/// What a form asks of whoever presents it. Every wait for a person happens in here.
class ZAN_EXPORT TFormHost {
 public:
  virtual ~TFormHost();
  /// Presents the form and returns at once. A form that is shown already comes to the front.
  virtual void Show(TForm& form) = 0;
  /// Presents the form above all others and returns when its ModalResult is set: that result.
  virtual int ShowModal(TForm& form) = 0;
  /// Takes the form off the screen.
  virtual void Hide(TForm& form) = 0;
  /// The form is being destroyed: nothing may refer to it afterwards.
  virtual void Forget(TForm& form) noexcept = 0;
  /// Lets a long operation show its progress; handles no event of other windows.
  virtual void ProcessMessages() = 0;
  /// The wait cursor. Calls nest.
  virtual void SetBusy(bool busy) = 0;
};

/// One named part of a form. Parts are members of their form: the constructor enters them, in order, into the
/// form's list. State is public; the host reads it after every event and sends what changed, so nothing marks
/// anything dirty. Callbacks run on the session's thread, after the host has stored the person's input.
class ZAN_EXPORT TComponent {
 public:
  /// `container` is a part of the same form made earlier; null puts the part directly on the form.
  TComponent(TForm& form, TComponent* container, std::string name, std::string caption = {});
  virtual ~TComponent();
  TComponent(const TComponent&) = delete;
  TComponent& operator=(const TComponent&) = delete;

  virtual TComponentKind Kind() const = 0;
  /// Evaluates the part's own rules into `Enabled` and `Visible`. Called by the host before each flush and
  /// again before an event is handed over; never runs a statement.
  void ApplyRules();
  /// Enabled and visible, and so are all its containers.
  bool Usable() const;

  TForm& Form() const { return *FForm; }
  TComponent* Container() const { return FContainer; }
  /// Unique within the form.
  const std::string& Name() const { return FName; }
  /// Counts the parts of the form in the order they were made; never given twice, also when parts have gone.
  unsigned Serial() const { return FSerial; }

  std::string Caption;
  std::string Hint;
  bool Enabled = true;
  bool Visible = true;
  std::function<bool()> EnabledRule;
  std::function<bool()> VisibleRule;

 private:
  TForm* FForm;
  TComponent* FContainer;
  std::string FName;
  unsigned FSerial;
};

enum class TGroupRole { Bar, Buttons, Fields, Status, Row, Column };

/// A container. The role is a hint for the layout; a group has no logic.
class ZAN_EXPORT TGroup : public TComponent {
 public:
  TGroup(TForm& form, TComponent* container, std::string name, TGroupRole role, std::string caption = {})
      : TComponent(form, container, std::move(name), std::move(caption)), Role(role) {}
  ~TGroup() override;
  TComponentKind Kind() const override;
  TGroupRole Role;
};

/// A command: a button, an entry of a bar, a menu item.
class ZAN_EXPORT TAction : public TComponent {
 public:
  using TComponent::TComponent;
  ~TAction() override;
  TComponentKind Kind() const override;
  std::function<void()> OnExecute;
  /// Keys as "F5", "Ctrl+N", "Alt+Up"; empty for none.
  std::string ShortCut;
  /// Name of an icon: "new", "edit", "delete", "up", "down", "refresh", "rights", "exit" ...; may be empty.
  std::string Icon;
  /// Pressed by Enter, or by Escape, anywhere in the form.
  bool Default = false;
  bool Cancel = false;
  /// A separator stands before it.
  bool Separator = false;
};

class ZAN_EXPORT TLabel : public TComponent {
 public:
  using TComponent::TComponent;
  ~TLabel() override;
  TComponentKind Kind() const override;
  std::string Text;
};

enum class TEditMode { Line, Password, Number };

class ZAN_EXPORT TEdit : public TComponent {
 public:
  using TComponent::TComponent;
  ~TEdit() override;
  TComponentKind Kind() const override;
  std::string Text;
  TEditMode Mode = TEditMode::Line;
  bool ReadOnly = false;
  /// In units of UTF-16, as the columns of the servers and browsers count: a four-byte character takes two.
  /// The host cuts what a person enters to it, between characters. 0 for no limit.
  int MaxLength = 0;
  std::function<void()> OnChange;
  std::function<void()> OnEnterKey;
};

class ZAN_EXPORT TMemo : public TComponent {
 public:
  using TComponent::TComponent;
  ~TMemo() override;
  TComponentKind Kind() const override;
  std::string Text;
  bool ReadOnly = false;
  /// See TEdit.
  int MaxLength = 0;
  std::function<void()> OnChange;
};

class ZAN_EXPORT TCheckBox : public TComponent {
 public:
  using TComponent::TComponent;
  ~TCheckBox() override;
  TComponentKind Kind() const override;
  bool Checked = false;
  std::function<void()> OnClick;
};

/// One of several choices; the base of radio groups and combos.
class ZAN_EXPORT TChoice : public TComponent {
 public:
  using TComponent::TComponent;
  ~TChoice() override;
  std::vector<std::string> Items;
  /// -1 for none.
  int ItemIndex = -1;
  std::function<void()> OnChange;
};

class ZAN_EXPORT TRadioGroup : public TChoice {
 public:
  using TChoice::TChoice;
  ~TRadioGroup() override;
  TComponentKind Kind() const override;
};

class ZAN_EXPORT TComboBox : public TChoice {
 public:
  using TChoice::TChoice;
  ~TComboBox() override;
  TComponentKind Kind() const override;
  /// A text that is in no item may be typed; it then stands in Text and ItemIndex is -1.
  bool Editable = false;
  std::string Text;
};

class ZAN_EXPORT TSpinEdit : public TComponent {
 public:
  using TComponent::TComponent;
  ~TSpinEdit() override;
  TComponentKind Kind() const override;
  /// The host keeps what a person enters between MinValue and MaxValue.
  int Value = 0;
  int MinValue = 0;
  int MaxValue = 0;
  std::function<void()> OnChange;
};

struct TListColumn {
  std::string Title;
  /// Pixels at normal size; a person may change it.
  int Width = 120;
};

/// One row as it is shown. The id is unique within the list and stable while the row exists.
struct TListRow {
  std::int64_t Id = 0;
  std::vector<std::string> Cells;
  std::string Icon;
  std::string Mark;
};

/// Rows by index: only those that are looked at are asked for.
class ZAN_EXPORT TListView : public TComponent {
 public:
  using TComponent::TComponent;
  ~TListView() override;
  TComponentKind Kind() const override;

  std::vector<TListColumn> Columns;
  /// Neither runs a statement. Without OnRowCount the list is empty.
  std::function<int()> OnRowCount;
  std::function<TListRow(int index)> OnRow;
  /// Row of an id, or -1. Without it the host looks through all rows.
  std::function<int(std::int64_t id)> OnIndexOf;

  bool MultiSelect = false;
  /// Ids of the selected rows, and of the row with the focus (-1 for none).
  std::set<std::int64_t> Selection;
  std::int64_t Focused = -1;
  /// Column that the rows are sorted by, -1 for none, as the owner of the rows has sorted them.
  int SortColumn = -1;
  bool SortDescending = false;
  /// Shown in place of rows when there are none.
  std::string EmptyText;

  std::function<void()> OnSelect;
  std::function<void(std::int64_t id)> OnActivate;
  std::function<void(std::int64_t id)> OnMark;
  std::function<void(int column)> OnColumnClick;

  int RowCount() const { return OnRowCount ? OnRowCount() : 0; }
  /// Selects this row alone and gives it the focus; -1 selects nothing. Runs OnSelect.
  void Select(std::int64_t id);
};

/// A node of a tree view. The tree owns it; it lives until it is deleted or the tree is cleared.
class ZAN_EXPORT TTreeNode {
 public:
  std::string Text;
  std::string Icon;
  std::string Mark;
  /// The owner's own number (an identity of a table).
  std::int64_t Data = 0;

  /// Unique within the tree over its whole life.
  std::int64_t Id() const { return FId; }
  TTreeNode* Parent() const { return FParent; }
  /// 0 at the top.
  int Level() const;
  bool Expanded() const { return FExpanded; }
  const std::vector<std::unique_ptr<TTreeNode>>& Children() const { return FChildren; }
  /// Null where there is none.
  TTreeNode* PrevSibling() const;
  TTreeNode* NextSibling() const;

 private:
  friend class TTreeView;
  std::int64_t FId = 0;
  TTreeNode* FParent = nullptr;
  class TTreeView* FTree = nullptr;
  bool FExpanded = false;
  std::vector<std::unique_ptr<TTreeNode>> FChildren;
};

class ZAN_EXPORT TTreeView : public TComponent {
 public:
  using TComponent::TComponent;
  ~TTreeView() override;
  TComponentKind Kind() const override;

  const std::vector<std::unique_ptr<TTreeNode>>& Roots() const { return FRoots; }
  /// Adds a node as the last child of `parent`, or at the top when that is null.
  TTreeNode* Add(TTreeNode* parent, std::string text, std::int64_t data);
  /// Deletes the node and all below it; a selection in there moves to the next sibling, the previous or the
  /// parent.
  void Delete(TTreeNode* node);
  void Clear();
  /// Moves a node to stand just before a sibling of the same parent.
  void MoveBefore(TTreeNode* node, TTreeNode* sibling);
  void SetExpanded(TTreeNode* node, bool expanded);
  /// Null when nothing is selected.
  TTreeNode* Selected() const { return FSelected; }
  /// Selects a node (null for none), expands what is above it, and runs OnChange when it was not selected
  /// before.
  void Select(TTreeNode* node);
  /// First node with this Data in tree order; null when there is none.
  TTreeNode* FindData(std::int64_t data) const;
  /// Null when there is none.
  TTreeNode* FindId(std::int64_t id) const;
  /// Grows when nodes come, go, move or open: lets the host keep its flattened rows.
  unsigned StructureRevision() const { return FStructureRevision; }

  std::string EmptyText;
  std::function<void()> OnChange;
  std::function<void(TTreeNode& node)> OnActivate;
  std::function<void(TTreeNode& node)> OnMark;
  /// Asked before a drop; without it nothing can be dragged. `onto` null means: back to where they came from.
  std::function<void(const std::vector<TTreeNode*>& nodes, TTreeNode* onto)> OnDrop;

 private:
  std::vector<std::unique_ptr<TTreeNode>>& Siblings(const TTreeNode& node);

  std::vector<std::unique_ptr<TTreeNode>> FRoots;
  TTreeNode* FSelected = nullptr;
  std::int64_t FLastId = 0;
  unsigned FStructureRevision = 0;
};

/// One cell of a grid as it is shown.
struct TGridCell {
  std::string Text;
  bool ReadOnly = true;
  /// Values to pick from; empty for free text.
  std::vector<std::string> PickList;
  /// The cell carries a button that runs OnButton.
  bool Button = false;
};

/// A list whose cells can be edited.
class ZAN_EXPORT TGrid : public TListView {
 public:
  using TListView::TListView;
  ~TGrid() override;
  TComponentKind Kind() const override;
  std::function<TGridCell(std::int64_t id, int column)> OnCell;
  /// False refuses the text; the cell then shows what it showed before.
  std::function<bool(std::int64_t id, int column, const std::string& text)> OnEditCell;
  std::function<void(std::int64_t id, int column)> OnButton;
};

/// A set of pages of which one is in front. Its TTab children are the pages, in order.
class ZAN_EXPORT TTabs : public TComponent {
 public:
  using TComponent::TComponent;
  ~TTabs() override;
  TComponentKind Kind() const override;
  /// Name of the page in front; empty means the first visible one.
  std::string ActivePage;
  std::function<void()> OnChange;
};

class ZAN_EXPORT TTab : public TComponent {
 public:
  using TComponent::TComponent;
  ~TTab() override;
  TComponentKind Kind() const override;
};

class ZAN_EXPORT TProgressBar : public TComponent {
 public:
  using TComponent::TComponent;
  ~TProgressBar() override;
  TComponentKind Kind() const override;
  int Position = 0;
  int Max = 100;
};

class ZAN_EXPORT TPicture : public TComponent {
 public:
  using TComponent::TComponent;
  ~TPicture() override;
  TComponentKind Kind() const override;
  /// Name of a picture of the client.
  std::string Source;
};

enum TModalResult : int { mrNone = 0, mrOk = 1, mrCancel = 2 };

/// A window: a console or a dialog. Owned by whoever made it; not by the host.
class ZAN_EXPORT TForm {
 public:
  explicit TForm(TFormHost& host, std::string caption = {});
  virtual ~TForm();
  TForm(const TForm&) = delete;
  TForm& operator=(const TForm&) = delete;

  /// The class name under which scripts, layouts and tests know the form ("TFormDomains").
  virtual std::string ClassName() const = 0;
  /// Sets every caption through the resource functions. Run by the form's constructor, and again by the host
  /// when the language of the session changes.
  virtual void InitLngResources() {}

  void Show() { FHost->Show(*this); }
  int ShowModal() {
    ModalResult = mrNone;
    return FHost->ShowModal(*this);
  }
  /// Runs CloseQuery and, when that allows it, ends the modal loop with mrCancel or hides the form.
  void Close();

  std::string Caption;
  /// Any value but mrNone ends a modal loop.
  int ModalResult = mrNone;
  /// The part that is to get the focus next; the host clears it when it has told the client.
  TComponent* FocusRequest = nullptr;

  const std::vector<TComponent*>& Components() const { return FComponents; }
  /// Null when there is none.
  TComponent* FindComponent(std::string_view name) const;

  /// Run by the host when the form comes up, before anything of it is sent.
  virtual void DoShow() {}
  /// False keeps the form open.
  virtual bool CloseQuery() { return true; }
  /// Run by the host after the form has gone from the screen.
  virtual void DoHide() {}

 private:
  friend class TComponent;
  TFormHost* FHost;
  std::vector<TComponent*> FComponents;
  unsigned FLastSerial = 0;
};

/// How a large console is shown.
enum class TSubFormStyle { Docked, Modal };

/// Base of the large consoles, which are single in a session.
class ZAN_EXPORT TBaseSubForm : public TForm {
 public:
  TBaseSubForm(TFormHost& host, TSubFormStyle style, std::string caption = {})
      : TForm(host, std::move(caption)), Style(style) {}
  ~TBaseSubForm() override;
  TSubFormStyle Style;
};

}  // namespace zanrole
