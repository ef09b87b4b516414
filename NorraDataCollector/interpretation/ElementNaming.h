// The one place where the name, the control type and the identifier of an element are made. Lengths count
// user-perceived characters; what is read of an element is bounded. Any thread.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "Platform/Accessibility.h"

namespace norra {

/// The longest name, and the budget of a joined list of names.
inline constexpr std::size_t maxLogStringCount = 100;

using AttributeNames = std::set<std::string_view>;

/// The attributes that are no names for a row or a cell.
extern const AttributeNames rowAndCellIgnoredAttributes;

/// The first of the title, the description, the placeholder, the value, the file name, the help and the identifier that
/// is a text and not empty, cut to the longest name. The value of a text area and of a password field is never a name.
/// A password or search field without a name has the empty name; everything else has none.
std::optional<std::string> collectName(const std::optional<AXUIElement>& element,
                                       const AttributeNames& ignoredAttributes = {});

/// The name of the element's title element, which may be absent or nameless.
std::optional<std::string> collectTitleElementName(const AXUIElement& element,
                                                   const AttributeNames& ignoredAttributes = {});

/// Says in a call of collectName, which then reads collectName({.titleElementOrElement = field}), that an element that
/// names another comes first.
struct TitleElementOrElement {
  std::optional<AXUIElement> titleElementOrElement;
};

/// The name of the element's title element, else the element's own.
std::optional<std::string> collectName(const TitleElementOrElement& titled,
                                       const AttributeNames& ignoredAttributes = {});

/// The given description, else the platform's words for the role, else the role itself. `handle` answers for the
/// platform and may be any element.
std::string collectRoleDescription(const AXUIElement& handle, std::string_view role,
                                   std::optional<std::string_view> subrole,
                                   const std::optional<std::string>& roleDescription);

/// The same with the element's own role, subrole and role description; empty for no element.
std::string collectRoleDescription(const std::optional<AXUIElement>& element);

std::optional<std::string> collectAutomationID(const std::optional<AXUIElement>& element);

/// A text of more than `maxLength` characters (at least 3) is cut to exactly that many, the last three being "...".
std::optional<std::string> trim(std::optional<std::string> name, std::size_t maxLength);

}  // namespace norra
