// A bounded search for the text that labels an element that has no name of its own. Any thread.
//
// An icon button in a form has often no name, and a person calls it by what stands beside it. The search looks where
// such a text is: at the element itself, below it, and then, one level at a time, at what surrounds it, without looking
// twice at the side that it came from. A text wins over a control, because it is more likely the label; the second
// control wins over the first, which is more likely an adornment.
//
// It ends after a dozen children on any one path and three levels up, and never leaves a row, a list, a page or a
// window: what lies beyond labels something else.
#pragma once

#include <optional>
#include <string>

#include "Platform/Accessibility.h"

namespace norra {

enum class SearchDirections { children, both };

struct NameSearchResult {
  /// The element that supplied the name.
  AXUIElement element;
  std::string name;
  /// The role of the element whose own checks produced the name, or AXUnknown.
  std::string role;
};

/// The name of a title element, a control, a text or (where images count) an image, found on the element itself, then
/// below it, then, if asked for, up to three levels above it and beside the way there.
std::optional<NameSearchResult> searchName(const AXUIElement& element, SearchDirections directions, bool imagesCount);

}  // namespace norra
