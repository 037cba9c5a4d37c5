#include "host/platform/SampleMenus.h"

#include <algorithm>
#include <array>
#include <map>

namespace zanhost {

namespace {

// A node of the menu: its depth below the root, its caption, its function lines ("|" between them).
struct TMenuLine {
  int Level;
  std::string_view Caption;
  std::string_view Functions;
  bool NeedHide = false;
};

constexpr std::string_view kDomainConsole = "域管理";

// clang-format off
constexpr TMenuLine kMenu[] = {
    {0, "系统菜单", ""},
    {1, "系统管理", ""},
    {2, kDomainConsole, "函数域管理(菜单)"},
    {1, "销售管理", ""},
    {2, "客户档案", "客户档案(单据)|客户清单(查询)"},
    {2, "销售报价", "销售报价单(单据)"},
    {2, "销售订单", "销售订单(单据)|订单执行情况(查询)"},
    {2, "销售发货", "销售发货单(单据)"},
    {2, "销售报表", ""},
    {3, "销售日报", "销售日报(查询)"},
    {3, "客户应收", "客户应收(查询)"},
    {1, "采购管理", ""},
    {2, "供应商档案", "供应商档案(单据)|供应商清单(查询)"},
    {2, "采购申请", "采购申请单(单据)"},
    {2, "采购订单", "采购订单(单据)|采购到货情况(查询)"},
    {1, "库存管理", ""},
    {2, "入库", "入库单(单据)"},
    {2, "出库", "出库单(单据)"},
    {2, "盘点", "盘点单(单据)"},
    {2, "库存查询", "库存查询(查询)"},
    {1, "生产管理", ""},
    {2, "物料清单", "物料清单(单据)"},
    {2, "生产任务", "生产任务单(单据)|任务进度(查询)"},
    {2, "质量检验", "质量检验单(单据)"},
    {1, "财务管理", ""},
    {2, "记账凭证", "记账凭证(单据)|科目余额(查询)"},
    {2, "费用报销", "费用报销单(单据)"},
    {2, "付款", "付款单(单据)"},
    {2, "财务报表", ""},
    {3, "资产负债表", "资产负债表(查询)"},
    {3, "利润表", "利润表(查询)"},
    {2, "历史数据", "历史凭证(查询)", true},
    {1, "人力资源", ""},
    {2, "员工档案", "员工档案(单据)|员工名册(查询)"},
    {2, "请假", "请假单(单据)"},
    {2, "考勤", "考勤记录(查询)"},
    {1, "协同办公", ""},
    {2, "发文", "发文(单据)"},
    {2, "会议室预订", "会议室预订(单据)"},
    {2, "Help Desk", "IT Ticket(单据)|Open Tickets(查询)"},
};

constexpr TSampleField kDocumentFields[] = {
    {"BillNo", "单据编号", "文本", false},
    {"BillDate", "日期", "日期", false},
    {"Handler", "经办人", "文本", false},
    {"Amount", "金额", "数值", true},
    {"Discount", "折扣", "数值", true},
    {"CostPrice", "成本价", "数值", true},
    {"Remark", "备注", "文本", false},
};

constexpr TSampleField kQueryColumns[] = {
    {"Code", "编码", "文本", false},
    {"Name", "名称", "文本", false},
    {"Quantity", "数量", "数值", false},
    {"Amount", "金额", "数值", true},
    {"Profit", "毛利", "数值", true},
};
// clang-format on

struct TLinkLine {
  int Level;
  std::string_view Caption;
};

// clang-format off
constexpr TLinkLine kWebMenu[] = {
    {0, "ZAN"},
    {1, "首页"},
    {1, "我的业务"}, {2, "待办事项"}, {2, "已办事项"}, {2, "我的单据"},
    {1, "销售"}, {2, "订单跟踪"}, {2, "客户查询"}, {2, "Price List"},
    {1, "报表"}, {2, "销售看板"}, {2, "库存看板"},
    {1, "帮助"},
};

constexpr TLinkLine kOAMenu[] = {
    {1, "公文"}, {2, "发文管理"}, {2, "收文管理"},
    {1, "日程"}, {2, "我的日程"}, {2, "部门日程"},
    {1, "通讯录"},
    {1, "知识库"}, {2, "制度"}, {2, "Templates"},
};
// clang-format on

class TMenuBuilder {
 public:
  explicit TMenuBuilder(TSampleModel& model) : FModel(model) {}

  void Build() {
    for (const TMenuLine& line : kMenu) AddMenu(line);
    for (const TSampleMenu& menu : FModel.Menus) AddObjects(menu);
    AddLinks(FModel.WebLinks, kWebMenu, 0);
    AddLinks(FModel.OALinks, kOAMenu, kTopParent);
  }

 private:
  void AddMenu(const TMenuLine& line);
  void AddObjects(const TSampleMenu& menu);
  void AddObject(std::string_view line, const std::string& group);
  template <std::size_t count>
  static void AddLinks(std::vector<TSampleLink>& links, const TLinkLine (&lines)[count], int top);

  TSampleModel& FModel;
  int FLastObject = 0;
  int FLastDocument = 100;
  int FLastQuery = 200;
  // By depth: the node that new nodes hang under. By parent: the sibling before the next one.
  std::array<int, 4> FOpen{};
  std::map<int, int> FLastChild;
};

void TMenuBuilder::AddMenu(const TMenuLine& line) {
  const auto depth = static_cast<std::size_t>(line.Level);
  TSampleMenu menu;
  menu.NodeID = static_cast<int>(FModel.Menus.size());
  menu.Parent = line.Level == 0 ? kTopParent : FOpen[depth - 1];
  menu.Level = line.Level;
  menu.Preceding = FLastChild[menu.Parent];
  menu.Caption = line.Caption;
  for (const char letter : line.Functions)
    menu.Functions += letter == '|' ? std::string("\r\n") : std::string(1, letter);
  // The root is no object: nobody is given a right on it.
  menu.ObjectID = line.Level == 0 ? 0 : ++FLastObject;
  menu.NeedHide = line.NeedHide;
  FOpen[depth] = menu.NodeID;
  FLastChild[menu.Parent] = menu.NodeID;
  FModel.Menus.push_back(std::move(menu));
}

void TMenuBuilder::AddObjects(const TSampleMenu& menu) {
  const std::string& group =
      menu.Level > 1 ? FModel.Menus[static_cast<std::size_t>(menu.Parent)].Caption : menu.Caption;
  std::string_view rest = menu.Functions;
  while (!rest.empty()) {
    const std::size_t end = rest.find("\r\n");
    AddObject(rest.substr(0, end), group);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 2);
  }
}

void TMenuBuilder::AddObject(std::string_view line, const std::string& group) {
  const std::size_t bracket = line.find('(');
  const std::string_view kind = line.substr(bracket);
  if (kind == "(菜单)") return;
  TSampleObject object;
  object.TypeID = kind == "(单据)" ? kTypeDocument : kTypeQuery;
  object.Code = object.TypeID == kTypeDocument ? ++FLastDocument : ++FLastQuery;
  object.Name = line.substr(0, bracket);
  object.Group = group;
  object.ObjectID = ++FLastObject;
  FModel.Objects.push_back(std::move(object));
}

template <std::size_t count>
void TMenuBuilder::AddLinks(std::vector<TSampleLink>& links, const TLinkLine (&lines)[count], int top) {
  std::array<int, 4> open{};
  for (const TLinkLine& line : lines) {
    TSampleLink link;
    link.ID = static_cast<int>(links.size()) + 1;
    const auto depth = static_cast<std::size_t>(line.Level);
    link.Parent = links.empty() || (line.Level == 1 && open[0] == 0) ? top : open[depth - 1];
    link.Caption = line.Caption;
    open[depth] = link.ID;
    links.push_back(std::move(link));
  }
}

}  // namespace

void BuildMenus(TSampleModel& model) { TMenuBuilder(model).Build(); }

int DomainConsoleNode(const TSampleModel& model) {
  return std::ranges::find(model.Menus, kDomainConsole, &TSampleMenu::Caption)->NodeID;
}

std::span<const TSampleField> DocumentFields() { return kDocumentFields; }
std::span<const TSampleField> QueryColumns() { return kQueryColumns; }

}  // namespace zanhost
