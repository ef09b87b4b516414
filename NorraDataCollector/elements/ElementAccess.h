// Typed readings of an element, over the primitives of the platform.
//
// Elements belong to other programs, which answer late, wrongly or not at all, and disappear between two questions.
// Whoever reads them asks dozens of questions a click; with a failure to handle at each, the rules of what a click
// means could not be seen any more. So no operation here fails: every one gives an empty result where there is nothing
// to be had (nothing, an empty list, false or 0), and what the callers decide, they decide by what there is. What went
// wrong is in the log, at debug level; readings that merely find nothing are not.
//
// Every operation asks the element anew and waits for its application within the platform's bound. Nothing is kept
// here: whether two questions cost two calls is the platform's affair. Any thread.
//
// The operations are offered as one set. Those that nothing in the core asks yet are attributes, window, isApplication,
// rowHeaderElements, rowIndexRange, selectedRows and selectedChildren.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NorraDataCollector/model/URL.h"
#include "Platform/Accessibility.h"

namespace norra::ax {

/// The attribute as it is.
AXAttributeValue value(const AXUIElement& element, std::string_view attribute);
/// The attribute if it is a text.
std::optional<std::string> text(const AXUIElement& element, std::string_view attribute);
/// The attribute, which must be an element; another type is logged.
std::optional<AXUIElement> element(const AXUIElement& element, std::string_view attribute);
/// The attribute, which must be a list; another type is logged.
std::vector<AXUIElement> elements(const AXUIElement& element, std::string_view attribute);

/// 0 when unknown.
ProcessIdentifier processIdentifier(const AXUIElement& element);
std::vector<std::string> attributes(const AXUIElement& element);
std::vector<std::string> actions(const AXUIElement& element);

std::optional<std::string> role(const AXUIElement& element);
std::optional<std::string> subrole(const AXUIElement& element);
/// The role or subrole, or AXUnknown.
std::string roleOrUnknown(const AXUIElement& element);
std::string subroleOrUnknown(const AXUIElement& element);
std::optional<std::string> roleDescription(const AXUIElement& element);
std::optional<std::string> title(const AXUIElement& element);
/// Present, if only as an empty text, exactly in web content.
std::optional<std::string> domIdentifier(const AXUIElement& element);
/// Made valid; one that is not absolute is none.
std::optional<URL> url(const AXUIElement& element);

std::optional<AXUIElement> parent(const AXUIElement& element);
std::optional<AXUIElement> titleElement(const AXUIElement& element);
std::optional<AXUIElement> focusedElement(const AXUIElement& element);
/// The window that contains the element; a window contains itself.
std::optional<AXUIElement> window(const AXUIElement& element);
/// The root element of the element's application.
std::optional<AXUIElement> application(const AXUIElement& element);
bool isApplication(const AXUIElement& element);

/// In navigation order where the element has one, else the visible children, else all.
std::vector<AXUIElement> children(const AXUIElement& element);
std::vector<AXUIElement> columns(const AXUIElement& element);
std::vector<AXUIElement> rowHeaderElements(const AXUIElement& element);
std::vector<AXUIElement> selectedRows(const AXUIElement& element);
std::vector<AXUIElement> selectedCells(const AXUIElement& element);
std::vector<AXUIElement> selectedChildren(const AXUIElement& element);

std::optional<CFRange> columnIndexRange(const AXUIElement& element);
std::optional<CFRange> rowIndexRange(const AXUIElement& element);
bool isSelected(const AXUIElement& element);
bool isFocused(const AXUIElement& element);

/// The element that has the keyboard focus, in whatever application.
std::optional<AXUIElement> systemWideFocusedElement(Accessibility& accessibility);
/// The element under a point of the screen.
std::optional<AXUIElement> elementAt(Accessibility& accessibility, CGPoint point);
/// The focused window of an application; nothing for nothing.
std::optional<AXUIElement> focusedWindow(const std::optional<AXUIElement>& application);

}  // namespace norra::ax
