// The text of an element, and whether it may be read at all.
#pragma once

#include <string_view>

#include "Platform/Linux/elements/AttributeContent.h"

namespace norra::linux_desktop {

class ElementView;

/// Whether the element is a field whose text is hidden from who looks at the screen. An element that ever was one
/// stays one. Decided by the role before any text is asked for; without an answer about the role the text counts as
/// hidden.
bool hidesText(const ElementView& view);

/// What stands in the element; of a field with a hidden text only bullets, one for each character.
AttributeResult textValue(const ElementView& view);

/// Whether a text is made of bullets alone, as hidden texts are displayed. Not an empty one.
bool isAllBullets(std::string_view text);

}  // namespace norra::linux_desktop
