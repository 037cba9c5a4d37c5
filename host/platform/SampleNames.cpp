#include "host/platform/SampleNames.h"

namespace zanhost {

namespace {

// clang-format off
constexpr TCompanyName kCompanies[] = {
    {"远山控股集团有限公司", "远山控股", "YS"},
    {"远山机械制造有限公司", "远山机械", "JX"},
    {"远山商贸有限公司", "远山商贸", "SM"},
    {"远山软件技术有限公司", "远山软件", "RJ"},
    {"远山物流有限公司", "远山物流", "WL"},
    {"远山电子科技有限公司", "远山电子", "DZ"},
    {"远山食品有限公司", "远山食品", "SP"},
    {"Yuanshan Instruments GmbH", "Yuanshan Instruments", "YI"},
};

constexpr std::string_view kPositionKinds[] = {
    "总经理", "部门经理", "总经理助理", "行政文员", "司机",
    "人事专员", "薪酬专员", "培训专员", "会计", "出纳",
    "成本会计", "销售主管", "销售代表", "客户经理", "市场专员",
    "采购员", "采购主管", "车间主任", "操作工", "质检员",
    "软件工程师", "测试工程师", "产品经理", "系统管理员", "仓库管理员",
    "调度员", "客服代表", "法务专员", "审计专员", "IT Support",
};

// The kinds are places in the list above.
constexpr TDepartmentName kDepartments[] = {
    {"总经理办公室", 0, {2, 3, 4}},
    {"销售部", 1, {11, 12, 13}},
    {"财务部", 1, {8, 9, 10}},
    {"人力资源部", 1, {5, 6, 7}},
    {"采购部", 1, {16, 15, 3}},
    {"生产部", 1, {17, 18, 19}},
    {"研发中心", 1, {20, 21, 22}},
    {"信息技术部", 1, {23, 20, 29}},
    {"仓储物流部", 1, {24, 25, 4}},
    {"市场部", 1, {14, 13, 3}},
    {"客户服务部", 1, {26, 13, 3}},
    {"质量管理部", 1, {19, 3, 7}},
    {"法务审计部", 1, {27, 28, 3}},
    {"行政部", 1, {3, 4, 7}},
};

constexpr TRegionName kRegions[] = {
    {"华东", {"上海", "南京", "杭州", "苏州", "合肥", "宁波"}},
    {"华北", {"北京", "天津", "石家庄", "太原", "济南", "青岛"}},
    {"华南", {"广州", "深圳", "东莞", "厦门", "南宁", "海口"}},
    {"华中", {"武汉", "长沙", "郑州", "南昌", "宜昌", "洛阳"}},
    {"西南", {"成都", "重庆", "昆明", "贵阳", "绵阳", "大理"}},
    {"西北", {"西安", "兰州", "银川", "西宁", "宝鸡", "咸阳"}},
    {"东北", {"沈阳", "大连", "长春", "哈尔滨", "吉林", "鞍山"}},
};

constexpr std::string_view kGroups[] = {
    "一组", "二组", "三组", "四组", "五组", "六组", "七组", "八组", "九组", "十组",
};

struct TSpelling {
  std::string_view Text;
  std::string_view Latin;
};

constexpr TSpelling kSurnames[] = {
    {"王", "wang"}, {"李", "li"}, {"张", "zhang"}, {"刘", "liu"}, {"陈", "chen"}, {"杨", "yang"},
    {"赵", "zhao"}, {"黄", "huang"}, {"周", "zhou"}, {"吴", "wu"}, {"徐", "xu"}, {"孙", "sun"},
    {"胡", "hu"}, {"朱", "zhu"}, {"高", "gao"}, {"林", "lin"}, {"何", "he"}, {"郭", "guo"},
    {"马", "ma"}, {"罗", "luo"}, {"梁", "liang"}, {"宋", "song"}, {"郑", "zheng"}, {"谢", "xie"},
    {"韩", "han"}, {"唐", "tang"}, {"冯", "feng"}, {"于", "yu"}, {"董", "dong"}, {"萧", "xiao"},
    {"程", "cheng"}, {"曹", "cao"}, {"袁", "yuan"}, {"邓", "deng"}, {"许", "xu"}, {"傅", "fu"},
    {"沈", "shen"}, {"曾", "zeng"}, {"彭", "peng"}, {"吕", "lv"}, {"苏", "su"}, {"卢", "lu"},
    {"蒋", "jiang"}, {"蔡", "cai"}, {"贾", "jia"}, {"丁", "ding"}, {"魏", "wei"}, {"薛", "xue"},
    {"欧阳", "ouyang"}, {"司马", "sima"},
};

constexpr TSpelling kGivenNames[] = {
    {"伟", "wei"}, {"芳", "fang"}, {"娜", "na"}, {"敏", "min"}, {"静", "jing"}, {"丽", "li"},
    {"强", "qiang"}, {"磊", "lei"}, {"军", "jun"}, {"洋", "yang"}, {"勇", "yong"}, {"艳", "yan"},
    {"杰", "jie"}, {"娟", "juan"}, {"涛", "tao"}, {"明", "ming"}, {"超", "chao"}, {"秀英", "xiuying"},
    {"霞", "xia"}, {"平", "ping"}, {"刚", "gang"}, {"桂英", "guiying"}, {"建国", "jianguo"},
    {"志强", "zhiqiang"}, {"晓明", "xiaoming"}, {"文博", "wenbo"}, {"子涵", "zihan"}, {"雨桐", "yutong"},
    {"思远", "siyuan"}, {"佳怡", "jiayi"}, {"浩然", "haoran"}, {"欣然", "xinran"}, {"宇轩", "yuxuan"},
    {"梦琪", "mengqi"}, {"嘉豪", "jiahao"}, {"诗涵", "shihan"}, {"俊杰", "junjie"}, {"海燕", "haiyan"},
    {"国华", "guohua"}, {"春梅", "chunmei"}, {"晨曦", "chenxi"}, {"婷婷", "tingting"}, {"立新", "lixin"},
    {"向东", "xiangdong"}, {"玉兰", "yulan"}, {"亚楠", "yanan"}, {"启航", "qihang"}, {"若曦", "ruoxi"},
};

constexpr TSpelling kLatinFirst[] = {
    {"Anna", "anna"}, {"Thomas", "thomas"}, {"Maria", "maria"}, {"Pierre", "pierre"}, {"Linda", "linda"},
    {"Erik", "erik"}, {"José", "jose"}, {"Zoë", "zoe"},
};

constexpr TSpelling kLatinLast[] = {
    {"Schmidt", "schmidt"}, {"Larsson", "larsson"}, {"Müller", "mueller"}, {"Dubois", "dubois"},
    {"Novak", "novak"}, {"Brown", "brown"}, {"Rossi", "rossi"}, {"García", "garcia"},
};
// clang-format on

constexpr int kLatinPercent = 3;

std::string Joined(std::string_view first, std::string_view between, std::string_view second) {
  std::string text(first);
  text += between;
  return text += second;
}

}  // namespace

std::span<const TCompanyName> CompanyNames() { return kCompanies; }
std::span<const TDepartmentName> DepartmentNames() { return kDepartments; }
std::span<const std::string_view> PositionKinds() { return kPositionKinds; }
std::span<const TRegionName> RegionNames() { return kRegions; }
std::span<const std::string_view> GroupNames() { return kGroups; }

void TPersonNames::Give(TSamplePerson& person) {
  if (FRandom->Chance(kLatinPercent)) {
    const TSpelling& first = FRandom->Pick(kLatinFirst);
    const TSpelling& last = FRandom->Pick(kLatinLast);
    person.Name = Joined(first.Text, " ", last.Text);
    person.Login = Unique(Joined(first.Latin, ".", last.Latin));
    return;
  }
  const TSpelling& surname = FRandom->Pick(kSurnames);
  const TSpelling& given = FRandom->Pick(kGivenNames);
  person.Name = Joined(surname.Text, "", given.Text);
  person.Login = Unique(Joined(surname.Latin, "", given.Latin));
}

std::string TPersonNames::Unique(const std::string& login) {
  const int times = ++FTaken[login];
  return times == 1 ? login : login + std::to_string(times);
}

}  // namespace zanhost
