#include "host/platform/SampleModel.h"

namespace zanhost {

TSampleNode& TSampleModel::AddNode(TNodeKind kind, int parent) {
  TSampleNode& node = Nodes.emplace_back();
  node.Kind = kind;
  node.DjLsh = static_cast<int>(Nodes.size());
  node.Parent = parent;
  return node;
}

TSampleAccount& TSampleModel::AddAccount(bool isRole) {
  TSampleAccount& account = Accounts.emplace_back();
  account.OID = static_cast<int>(Accounts.size());
  account.IsRole = isRole;
  return account;
}

}  // namespace zanhost
