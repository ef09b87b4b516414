// Where elements lie: parents, children, windows.
#pragma once

#include <vector>

#include "Platform/Linux/atspi/AtspiReference.h"
#include "Platform/Linux/elements/AttributeContent.h"

namespace norra::linux_desktop {

class ElementView;

AttributeResult parentOf(const ElementView& view);
AttributeResult childrenOf(const ElementView& view);
AttributeResult windowOf(const ElementView& view);
AttributeResult urlOf(const ElementView& view);

/// The first children, at most `limit`, of which there may be any number.
std::vector<AtspiReference> firstChildren(const ElementView& view, std::size_t limit);
/// All children of an element that has few, such as a window. It is not asked first how many there are, which spares a
/// wave.
std::vector<AtspiReference> fewChildren(const ElementView& view);
/// Null: it has none there, or does not answer.
AtspiReference childAt(const ElementView& view, std::size_t index);

}  // namespace norra::linux_desktop
