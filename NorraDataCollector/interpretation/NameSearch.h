// A bounded search for the text that labels an element that has no name of its own. Any thread.
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
