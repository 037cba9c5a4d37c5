#pragma once

#include <boost/json/object.hpp>
#include <string_view>

#include "Frame/Host/Forms.h"

namespace zanhost {

/// The kind of a component as the protocol names it.
std::string_view KindName(zanrole::TComponentKind kind);

/// What a component shows, by property of the protocol; rows of lists and trees are no properties. The value
/// of a password edit is not among them, only whether there is one.
boost::json::object PropertiesOf(const zanrole::TComponent& component);

}  // namespace zanhost
