#include "Frame/Host/Forms.h"

#include <algorithm>

namespace zanrole {

namespace {

using TSiblings = std::vector<std::unique_ptr<TTreeNode>>;

std::ptrdiff_t IndexIn(const TSiblings& siblings, const TTreeNode& node) {
  const auto found =
      std::find_if(siblings.begin(), siblings.end(), [&](const auto& n) { return n.get() == &node; });
  return found - siblings.begin();
}

template <typename Matches>
TTreeNode* FindIn(const TSiblings& siblings, const Matches& matches) {
  for (const auto& node : siblings) {
    if (matches(*node)) return node.get();
    if (TTreeNode* below = FindIn(node->Children(), matches)) return below;
  }
  return nullptr;
}

bool IsBelow(const TTreeNode* node, const TTreeNode& top) {
  for (; node != nullptr; node = node->Parent()) {
    if (node == &top) return true;
  }
  return false;
}

}  // namespace

TComponent::TComponent(TForm& form, TComponent* container, std::string name, std::string caption)
    : Caption(std::move(caption)),
      FForm(&form),
      FContainer(container),
      FName(std::move(name)),
      FSerial(++form.FLastSerial) {
  form.FComponents.push_back(this);
}

TComponent::~TComponent() {
  auto& parts = FForm->FComponents;
  parts.erase(std::remove(parts.begin(), parts.end(), this), parts.end());
  if (FForm->FocusRequest == this) FForm->FocusRequest = nullptr;
}

void TComponent::ApplyRules() {
  if (EnabledRule) Enabled = EnabledRule();
  if (VisibleRule) Visible = VisibleRule();
}

bool TComponent::Usable() const {
  for (const TComponent* part = this; part != nullptr; part = part->FContainer) {
    if (!part->Enabled || !part->Visible) return false;
  }
  return true;
}

TGroup::~TGroup() = default;
TAction::~TAction() = default;
TLabel::~TLabel() = default;
TEdit::~TEdit() = default;
TMemo::~TMemo() = default;
TCheckBox::~TCheckBox() = default;
TChoice::~TChoice() = default;
TRadioGroup::~TRadioGroup() = default;
TComboBox::~TComboBox() = default;
TSpinEdit::~TSpinEdit() = default;
TListView::~TListView() = default;
TTreeView::~TTreeView() = default;
TGrid::~TGrid() = default;
TTabs::~TTabs() = default;
TTab::~TTab() = default;
TProgressBar::~TProgressBar() = default;
TPicture::~TPicture() = default;

TComponentKind TGroup::Kind() const { return TComponentKind::Group; }
TComponentKind TAction::Kind() const { return TComponentKind::Action; }
TComponentKind TLabel::Kind() const { return TComponentKind::Label; }
TComponentKind TEdit::Kind() const { return TComponentKind::Edit; }
TComponentKind TMemo::Kind() const { return TComponentKind::Memo; }
TComponentKind TCheckBox::Kind() const { return TComponentKind::Check; }
TComponentKind TRadioGroup::Kind() const { return TComponentKind::Radio; }
TComponentKind TComboBox::Kind() const { return TComponentKind::Combo; }
TComponentKind TSpinEdit::Kind() const { return TComponentKind::Spin; }
TComponentKind TListView::Kind() const { return TComponentKind::List; }
TComponentKind TTreeView::Kind() const { return TComponentKind::Tree; }
TComponentKind TGrid::Kind() const { return TComponentKind::Grid; }
TComponentKind TTabs::Kind() const { return TComponentKind::Tabs; }
TComponentKind TTab::Kind() const { return TComponentKind::Tab; }
TComponentKind TProgressBar::Kind() const { return TComponentKind::Progress; }
TComponentKind TPicture::Kind() const { return TComponentKind::Picture; }

void TListView::Select(std::int64_t id) {
  Selection.clear();
  if (id >= 0) Selection.insert(id);
  Focused = id;
  if (OnSelect) OnSelect();
}

int TTreeNode::Level() const {
  int level = 0;
  for (const TTreeNode* node = FParent; node != nullptr; node = node->FParent) ++level;
  return level;
}

TTreeNode* TTreeNode::PrevSibling() const {
  const TSiblings& siblings = FParent != nullptr ? FParent->FChildren : FTree->Roots();
  const std::ptrdiff_t index = IndexIn(siblings, *this);
  return index > 0 ? siblings[static_cast<std::size_t>(index - 1)].get() : nullptr;
}

TTreeNode* TTreeNode::NextSibling() const {
  const TSiblings& siblings = FParent != nullptr ? FParent->FChildren : FTree->Roots();
  const auto next = static_cast<std::size_t>(IndexIn(siblings, *this) + 1);
  return next < siblings.size() ? siblings[next].get() : nullptr;
}

TSiblings& TTreeView::Siblings(const TTreeNode& node) {
  return node.FParent != nullptr ? node.FParent->FChildren : FRoots;
}

TTreeNode* TTreeView::Add(TTreeNode* parent, std::string text, std::int64_t data) {
  auto node = std::make_unique<TTreeNode>();
  node->Text = std::move(text);
  node->Data = data;
  node->FId = ++FLastId;
  node->FParent = parent;
  node->FTree = this;
  ++FStructureRevision;
  TSiblings& siblings = parent != nullptr ? parent->FChildren : FRoots;
  return siblings.emplace_back(std::move(node)).get();
}

void TTreeView::Delete(TTreeNode* node) {
  TTreeNode* successor = node->NextSibling();
  if (successor == nullptr) successor = node->PrevSibling();
  if (successor == nullptr) successor = node->Parent();
  const bool selectionGoes = IsBelow(FSelected, *node);
  TSiblings& siblings = Siblings(*node);
  siblings.erase(siblings.begin() + IndexIn(siblings, *node));
  ++FStructureRevision;
  if (selectionGoes) {
    FSelected = nullptr;
    Select(successor);
  }
}

void TTreeView::Clear() {
  FSelected = nullptr;
  FRoots.clear();
  ++FStructureRevision;
}

void TTreeView::MoveBefore(TTreeNode* node, TTreeNode* sibling) {
  TSiblings& siblings = Siblings(*node);
  const auto from = siblings.begin() + IndexIn(siblings, *node);
  std::unique_ptr<TTreeNode> moved = std::move(*from);
  siblings.erase(from);
  siblings.insert(siblings.begin() + IndexIn(siblings, *sibling), std::move(moved));
  ++FStructureRevision;
}

void TTreeView::SetExpanded(TTreeNode* node, bool expanded) {
  if (node->FExpanded == expanded) return;
  node->FExpanded = expanded;
  ++FStructureRevision;
}

void TTreeView::Select(TTreeNode* node) {
  if (node == FSelected) return;
  FSelected = node;
  for (TTreeNode* above = node != nullptr ? node->Parent() : nullptr; above != nullptr;
       above = above->Parent())
    SetExpanded(above, true);
  if (OnChange) OnChange();
}

TTreeNode* TTreeView::FindData(std::int64_t data) const {
  return FindIn(FRoots, [data](const TTreeNode& node) { return node.Data == data; });
}

TTreeNode* TTreeView::FindId(std::int64_t id) const {
  return FindIn(FRoots, [id](const TTreeNode& node) { return node.Id() == id; });
}

TForm::TForm(TFormHost& host, std::string caption) : Caption(std::move(caption)), FHost(&host) {}

TForm::~TForm() { FHost->Forget(*this); }

TBaseSubForm::~TBaseSubForm() = default;

TComponent* TForm::FindComponent(std::string_view name) const {
  const auto found = std::find_if(FComponents.begin(), FComponents.end(),
                                  [&](const TComponent* c) { return c->Name() == name; });
  return found == FComponents.end() ? nullptr : *found;
}

void TForm::Close() {
  if (!CloseQuery()) return;
  ModalResult = mrCancel;
  FHost->Hide(*this);
}

}  // namespace zanrole
