// What an element holds, and what can be done with it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Platform/Linux/elements/AttributeContent.h"

namespace norra::linux_desktop {

class ElementView;

AttributeResult contentOf(const ElementView& view);

/// The core's names of the actions that an element offers, each once.
AXResult<std::vector<std::string>> actionNamesOf(const ElementView& view);

/// The core's name of an action; empty for one that it does not know.
std::string_view mappedAction(std::string_view action);

}  // namespace norra::linux_desktop
