#include <array>

#include "Frame/Host/Classes.h"
#include "host/query/Sqlite/Rules.h"

namespace zanhost {

namespace {

// clang-format off

// Rebuilds what PartyH derives from Parent. A node whose parent does not exist is a top node; nodes on a loop of
// parents hang below no top node and stay as they are.
constexpr std::string_view kRefreshPartyParentPath =
    R"(with recursive Tree(DjLsh, LongName, LongCode, ParentPath, NodeLevel) as (
  select DjLsh, ifnull(Name, ''), cast(DjLsh as text), '', 0
  from PartyH
  where Parent is null or Parent not in (select DjLsh from PartyH)
  union all
  select a.DjLsh, b.LongName || '\' || ifnull(a.Name, ''), b.LongCode || '\' || a.DjLsh,
         b.ParentPath || b.DjLsh || ',', b.NodeLevel + 1
  from PartyH a
  inner join Tree b on a.Parent = b.DjLsh
)
update PartyH
set LongName = Tree.LongName, LongCode = Tree.LongCode, ParentPath = Tree.ParentPath, NodeLevel = Tree.NodeLevel,
    IsLastLevel = not exists (select 1 from PartyH below where below.Parent = Tree.DjLsh)
from Tree
where PartyH.DjLsh = Tree.DjLsh)";

// clang-format on

struct TRoutine {
  std::string_view Name;
  std::string_view Statement;
};

constexpr std::array kRoutines{TRoutine{"P_RefreshPartyParentPath", kRefreshPartyParentPath}};

}  // namespace

bool RunRoutineAsStatement(TTokens& tokens) {
  if (tokens.size() != 2 || !tokens[0].IsWord("exec") || !tokens[1].IsName()) return false;
  for (const TRoutine& routine : kRoutines) {
    if (!zanrole::SameText(tokens[1].Name(), routine.Name)) continue;
    tokens = Tokenize(routine.Statement);
    return true;
  }
  return false;
}

}  // namespace zanhost
