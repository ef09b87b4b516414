// The names of the interfaces on the accessibility bus, and calls that are asked from more than one place.
#pragma once

#include <cstdint>

#include "Platform/Linux/atspi/AtspiConnection.h"

namespace norra::linux_desktop {

namespace atspi {
inline constexpr const char* accessible = "org.a11y.atspi.Accessible";
inline constexpr const char* action = "org.a11y.atspi.Action";
inline constexpr const char* application = "org.a11y.atspi.Application";
inline constexpr const char* collection = "org.a11y.atspi.Collection";
inline constexpr const char* component = "org.a11y.atspi.Component";
inline constexpr const char* document = "org.a11y.atspi.Document";
inline constexpr const char* editableText = "org.a11y.atspi.EditableText";
inline constexpr const char* hyperlink = "org.a11y.atspi.Hyperlink";
inline constexpr const char* hypertext = "org.a11y.atspi.Hypertext";
inline constexpr const char* selection = "org.a11y.atspi.Selection";
inline constexpr const char* table = "org.a11y.atspi.Table";
inline constexpr const char* tableCell = "org.a11y.atspi.TableCell";
inline constexpr const char* text = "org.a11y.atspi.Text";
inline constexpr const char* value = "org.a11y.atspi.Value";
}  // namespace atspi

/// What a place is relative to, as the protocol numbers it.
enum class Coordinates : std::uint32_t { ofScreen = 0, ofWindow = 1 };

/// The element at a place below another one.
inline AtspiCall hitTestCall(AtspiReference element, std::int32_t x, std::int32_t y, Coordinates coordinates) {
  return {
      std::move(element), atspi::component, "GetAccessibleAtPoint", {x, y, static_cast<std::uint32_t>(coordinates)}};
}

inline AtspiCall childCall(AtspiReference parent, std::int32_t index) {
  return {std::move(parent), atspi::accessible, "GetChildAtIndex", {index}};
}

}  // namespace norra::linux_desktop
