// The texts that name and explain an element, as far as they mean what they say: toolkits give class names, values and
// bullets for names.
#pragma once

#include <string>
#include <string_view>

#include "Platform/Linux/elements/AttributeContent.h"
#include "Platform/Linux/reading/Toolkit.h"

namespace norra::linux_desktop {

class ElementView;

AttributeResult titleOf(const ElementView& view);
AttributeResult descriptionOf(const ElementView& view);
AttributeResult placeholderOf(const ElementView& view);
AttributeResult helpOf(const ElementView& view);
AttributeResult identifierOf(const ElementView& view);
/// Only in web pages; empty where the element has none.
AttributeResult domIdentifierOf(const ElementView& view);
AttributeResult roleDescriptionOf(const ElementView& view);
AttributeResult titleElementOf(const ElementView& view);

/// What names the element now, and its label, names it while its application does not answer.
void keepNames(const ElementView& view);

/// A name without what the toolkit puts into it or says instead of one; empty: none.
std::string properName(std::string_view name, AtspiRole role, const Toolkit& toolkit);
/// A description, if it says more than the name and the value do; else empty.
std::string properDescription(const AtspiFacts& facts);

}  // namespace norra::linux_desktop
