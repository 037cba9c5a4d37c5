#pragma once

#include <span>
#include <string_view>

namespace zantest {

/// A rule that every sample keeps: the statement selects what breaks it.
struct TSampleInvariant {
  std::string_view Rule;
  std::string_view Breakers;
};

std::span<const TSampleInvariant> OrganisationInvariants();
std::span<const TSampleInvariant> AccountInvariants();
std::span<const TSampleInvariant> DomainInvariants();
std::span<const TSampleInvariant> MenuInvariants();

}  // namespace zantest
