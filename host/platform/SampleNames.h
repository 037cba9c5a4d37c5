#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>

#include "host/platform/SampleModel.h"

namespace zanhost {

struct TCompanyName {
  std::string_view Name;
  std::string_view Title;
  std::string_view Code;
};

/// A department of a company, and the kinds of position below its head, as places in PositionKinds.
struct TDepartmentName {
  std::string_view Name;
  int HeadKind;
  int Kinds[3];
};

struct TRegionName {
  std::string_view Name;
  std::string_view Cities[6];
};

std::span<const TCompanyName> CompanyNames();
std::span<const TDepartmentName> DepartmentNames();
std::span<const std::string_view> PositionKinds();
std::span<const TRegionName> RegionNames();
std::span<const std::string_view> GroupNames();

/// Names of people and logins made of them; no login comes twice.
class TPersonNames {
 public:
  explicit TPersonNames(TSampleRandom& random) : FRandom(&random) {}
  /// Sets Name and Login.
  void Give(TSamplePerson& person);

 private:
  std::string Unique(const std::string& login);

  TSampleRandom* FRandom;
  std::map<std::string, int, std::less<>> FTaken;
};

}  // namespace zanhost
