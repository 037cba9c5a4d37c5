#pragma once

#include <span>
#include <string_view>

#include "host/platform/SampleModel.h"

namespace zanhost {

/// A field of a document or a column of a query, and whether the designer marked it for field permissions.
struct TSampleField {
  std::string_view Name;
  std::string_view Caption;
  std::string_view DataType;
  bool Candidate;
};

/// Menus of the client, the office and the web client, documents and queries: fills Menus, Objects, WebLinks
/// and OALinks. The same for every size and seed.
void BuildMenus(TSampleModel& model);

/// The node of the menu entry that opens the domain console.
int DomainConsoleNode(const TSampleModel& model);

/// Fields that every document, and columns that every query, of the sample has.
std::span<const TSampleField> DocumentFields();
std::span<const TSampleField> QueryColumns();

}  // namespace zanhost
