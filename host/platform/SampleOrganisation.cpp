#include "host/platform/SampleOrganisation.h"

#include <algorithm>

#include <fmt/format.h>

#include "host/platform/SampleNames.h"

namespace zanhost {

namespace {

constexpr int kPeopleOfCompany = 250;
constexpr int kPeopleOfDepartment = 12;
constexpr int kPeopleForSubsidiary = 200;
constexpr int kPeopleForLeavers = 50;

// A department while the tree grows. `Base` and `Region` are places in the lists of names.
struct TGrown {
  int Node = 0;
  int Base = 0;
  int Region = 0;
  std::string_view City;
};

class TOrganisationBuilder {
 public:
  TOrganisationBuilder(TSampleModel& model, TSampleRandom& random, int people)
      : FModel(model), FRandom(random), FNames(random), FPeople(people) {}

  void Build() {
    AddCompanies();
    GrowDepartments();
    AddPositions();
    AddPeople();
    if (FPeople >= kPeopleForLeavers) AddLeavers();
  }

 private:
  void AddCompanies();
  void GrowDepartments();
  std::vector<TGrown> GrowLevel(const std::vector<TGrown>& parents, int level, int perParent, int& left);
  TGrown AddDepartment(const TGrown& parent, int level, int slot);
  void AddPositions();
  int AddPosition(int department, int kind, int number, bool isHead);
  void LinkHeads();
  int SuperiorOf(int department) const;
  void AddPeople();
  void AddPost(TSamplePerson& person, int position);
  void AddLeavers();

  TSampleModel& FModel;
  TSampleRandom& FRandom;
  TPersonNames FNames;
  int FPeople;
  std::vector<int> FCompanies;
  std::vector<TGrown> FDepartments;
  // By node: the head position of a department, the first department of a company, people of a position.
  std::vector<int> FHeadOf;
  std::vector<int> FFirstDepartmentOf;
  std::vector<int> FPeopleIn;
  std::vector<int> FHeads;
  std::vector<int> FOrdinary;
};

void TOrganisationBuilder::AddCompanies() {
  const auto names = CompanyNames();
  const bool withSubsidiary = FPeople >= kPeopleForSubsidiary;
  const int most = static_cast<int>(names.size());
  const int tops = std::clamp(1 + FPeople / kPeopleOfCompany, 1, most - 1);
  const int count = tops + (withSubsidiary ? 1 : 0);
  for (int index = 0; index < count; ++index) {
    const bool isSubsidiary = index >= tops;
    const TCompanyName& name = isSubsidiary ? names.back() : names[static_cast<std::size_t>(index)];
    TSampleNode& node = FModel.AddNode(TNodeKind::Company, isSubsidiary ? FCompanies.front() : kTopParent);
    node.Name = name.Name;
    node.Title = name.Title;
    node.Code = name.Code;
    node.Sequence = isSubsidiary ? 1 : index + 1;
    FCompanies.push_back(node.DjLsh);
  }
}

void TOrganisationBuilder::GrowDepartments() {
  const int companies = static_cast<int>(FCompanies.size());
  int left = std::max(FPeople / kPeopleOfDepartment, 3 * companies);
  const int share = left / companies;
  std::vector<TGrown> parents;
  for (const int company : FCompanies) parents.push_back({company, 0, 0, {}});
  const int perParent[] = {std::clamp(share / 3, 3, static_cast<int>(DepartmentNames().size())),
                           std::clamp(share / 10, 2, static_cast<int>(RegionNames().size())),
                           static_cast<int>(std::size(RegionNames().front().Cities)),
                           static_cast<int>(GroupNames().size())};
  for (int level = 1; level <= 4 && left > 0; ++level)
    parents = GrowLevel(parents, level, perParent[level - 1], left);
}

// Breadth first, slot by slot, so that a level that is not filled is spread over all its parents.
std::vector<TGrown> TOrganisationBuilder::GrowLevel(const std::vector<TGrown>& parents, int level,
                                                    int perParent, int& left) {
  std::vector<TGrown> grown;
  for (int slot = 0; slot < perParent; ++slot)
    for (const TGrown& parent : parents) {
      if (left == 0) return grown;
      grown.push_back(AddDepartment(parent, level, slot));
      --left;
    }
  return grown;
}

TGrown TOrganisationBuilder::AddDepartment(const TGrown& parent, int level, int slot) {
  TSampleNode& node = FModel.AddNode(TNodeKind::Department, parent.Node);
  TGrown grown{node.DjLsh, level == 1 ? slot : parent.Base, level == 2 ? slot : parent.Region, parent.City};
  const auto place = static_cast<std::size_t>(slot);
  if (level == 3) grown.City = RegionNames()[static_cast<std::size_t>(grown.Region)].Cities[place];

  const std::string_view base = DepartmentNames()[static_cast<std::size_t>(grown.Base)].Name;
  const std::string_view region = RegionNames()[static_cast<std::size_t>(grown.Region)].Name;
  switch (level) {
    case 1:
      node.Title = base;
      node.Name = base;
      break;
    case 2:
      node.Title = region;
      node.Name = fmt::format("{}{}", region, base);
      break;
    case 3:
      node.Title = grown.City;
      node.Name = fmt::format("{}{}", grown.City, base);
      break;
    default:
      node.Title = GroupNames()[place];
      node.Name = fmt::format("{}{}{}", grown.City, base, GroupNames()[place]);
  }
  node.Code = fmt::format("{}-{:02}", FModel.Node(parent.Node).Code, slot + 1);
  node.Sequence = slot + 1;
  FDepartments.push_back(grown);
  return grown;
}

void TOrganisationBuilder::AddPositions() {
  FHeadOf.resize(FModel.Nodes.size() + 1);
  for (const TGrown& department : FDepartments) {
    const TDepartmentName& base = DepartmentNames()[static_cast<std::size_t>(department.Base)];
    const int headKind =
        FModel.Node(FModel.Node(department.Node).Parent).Kind == TNodeKind::Company ? base.HeadKind : 1;
    FHeadOf[static_cast<std::size_t>(department.Node)] = AddPosition(department.Node, headKind, 1, true);
    const int ordinary = 1 + FRandom.Below(static_cast<int>(std::size(base.Kinds)));
    for (int number = 0; number < ordinary; ++number)
      AddPosition(department.Node, base.Kinds[number], number + 2, false);
  }
  LinkHeads();
}

int TOrganisationBuilder::AddPosition(int department, int kind, int number, bool isHead) {
  TSampleNode& node = FModel.AddNode(TNodeKind::PositionEntity, department);
  const TSampleNode& owner = FModel.Node(department);
  node.Title = PositionKinds()[static_cast<std::size_t>(kind)];
  node.Name = owner.Name + node.Title;
  node.Code = fmt::format("{}{:02}", owner.Code, number);
  node.Sequence = number;
  node.IsHeadPosition = isHead;
  const int head = isHead ? kNoUpperPosition : FHeadOf[static_cast<std::size_t>(department)];
  FModel.Positions.push_back({node.DjLsh, kind, head, isHead});
  (isHead ? FHeads : FOrdinary).push_back(node.DjLsh);
  return node.DjLsh;
}

// A head reports to the head of the department above; that of a company's department to the company's first
// department, and the first department of a company to that of the group.
void TOrganisationBuilder::LinkHeads() {
  FFirstDepartmentOf.resize(FModel.Nodes.size() + 1);
  for (const TGrown& department : FDepartments) {
    int& first = FFirstDepartmentOf[static_cast<std::size_t>(FModel.Node(department.Node).Parent)];
    if (first == 0) first = department.Node;
  }
  for (TSamplePosition& position : FModel.Positions) {
    if (!position.IsManager) continue;
    const int superior = SuperiorOf(FModel.Node(position.Node).Parent);
    if (superior != 0) position.Upper = FHeadOf[static_cast<std::size_t>(superior)];
  }
}

int TOrganisationBuilder::SuperiorOf(int department) const {
  const int parent = FModel.Nodes[static_cast<std::size_t>(department - 1)].Parent;
  if (FModel.Nodes[static_cast<std::size_t>(parent - 1)].Kind == TNodeKind::Department) return parent;
  const int first = FFirstDepartmentOf[static_cast<std::size_t>(parent)];
  if (department != first) return first;
  const int ofGroup = FFirstDepartmentOf[static_cast<std::size_t>(FCompanies.front())];
  return department != ofGroup ? ofGroup : 0;
}

void TOrganisationBuilder::AddPeople() {
  constexpr int kSecondPostPercent = 12;
  constexpr int kThirdPostPercent = 2;
  FPeopleIn.resize(FModel.Nodes.size() + 1);
  for (int number = 1; number <= FPeople; ++number) {
    TSamplePerson& person = FModel.People.emplace_back();
    person.DjLsh = number;
    FNames.Give(person);
    const auto place = static_cast<std::size_t>(number - 1);
    const int main = place < FHeads.size() ? FHeads[place] : FRandom.Pick(FOrdinary);
    AddPost(person, main);
    // The second person has a second post whatever the chance says: the smallest sample shows one too.
    const bool second = number == 2 || FRandom.Chance(kSecondPostPercent);
    const int posts = second ? (FRandom.Chance(kThirdPostPercent) ? 3 : 2) : 1;
    for (int post = 1; post < posts; ++post) AddPost(person, FRandom.Pick(FOrdinary));
  }
}

void TOrganisationBuilder::AddPost(TSamplePerson& person, int position) {
  for (const int post : person.Posts)
    if (FModel.Node(post).Parent == position) return;
  TSampleNode& node = FModel.AddNode(TNodeKind::User, position);
  node.Name = person.Name;
  node.Title = person.Name;
  node.Code = person.Login;
  node.Sequence = ++FPeopleIn[static_cast<std::size_t>(position)];
  node.UserLsh = person.DjLsh;
  node.IsMainPost = person.Posts.empty();
  person.Posts.push_back(node.DjLsh);
}

// Some people beyond those who work: without a post yet, and in the recycle bin.
void TOrganisationBuilder::AddLeavers() {
  const int each = 1 + FPeople / 200;
  for (int number = 1; number <= 2 * each; ++number) {
    TSamplePerson& person = FModel.People.emplace_back();
    person.DjLsh = static_cast<int>(FModel.People.size());
    FNames.Give(person);
    if (number > each) continue;
    TSampleNode& node = FModel.AddNode(TNodeKind::User, kRecycleBin);
    node.Name = person.Name;
    node.Title = person.Name;
    node.Code = person.Login;
    node.Sequence = number;
    node.IsActive = false;
    node.UserLsh = person.DjLsh;
    node.IsMainPost = false;
  }
}

}  // namespace

void BuildOrganisation(TSampleModel& model, TSampleRandom& random, int people) {
  TOrganisationBuilder(model, random, people).Build();
}

void DeriveNodes(TSampleModel& model) {
  for (TSampleNode& node : model.Nodes) {
    const std::string own = std::to_string(node.DjLsh);
    node.IsLastLevel = true;
    if (node.Parent < 1) {
      node.LongName = node.Name;
      node.LongCode = own;
      if (node.Kind == TNodeKind::Company) node.FullName = node.Name;
      continue;
    }
    TSampleNode& parent = model.Node(node.Parent);
    parent.IsLastLevel = false;
    node.LongName = parent.LongName + "\\" + node.Name;
    node.LongCode = parent.LongCode + "\\" + own;
    node.ParentPath = parent.ParentPath + std::to_string(parent.DjLsh) + ",";
    node.Level = parent.Level + 1;
    if (node.Kind != TNodeKind::User && node.Kind != TNodeKind::UserGroup)
      node.FullName = parent.FullName + node.Title;
  }
}

}  // namespace zanhost
