// A desktop as plain values: what it is made of before anything happens on it.
//
// Elements are named by identifiers and refer to each other by them, so that a description can be read from a file and
// may hold circles, dangling references and reads that fail: whatever a real application does, and worse.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "Platform/Accessibility.h"

namespace norra::simulated {

/// The identifier of the system-wide element, which every desktop has.
inline constexpr std::string_view systemWideIdentifier = "systemWide";

/// An element, by its identifier.
struct ElementReference {
  std::string identifier;
  bool operator==(const ElementReference&) const = default;
};

/// A read that gives this code instead of a value.
struct ReadFailure {
  AXError error = axError::failure;
  bool operator==(const ReadFailure&) const = default;
};

/// What reading an attribute gives; the first alternative is success without a value.
using AttributeContent = std::variant<std::monostate, std::string, NSNumber, ElementReference,
                                      std::vector<ElementReference>, NSURL, CFRange, CGPoint, CFOther, ReadFailure>;

using Attributes = std::map<std::string, AttributeContent>;

struct ElementDescription {
  /// Nothing: the element does not know its process.
  std::optional<ProcessIdentifier> process{};
  /// An attribute that is not here is not supported.
  Attributes attributes{};
  std::vector<std::string> actions{};
  AXError actionsError = axError::success;
  AXError attributeNamesError = axError::success;
  /// What registering a notification gives; success for those not named.
  std::map<std::string, AXError> notificationErrors{};
};

struct ApplicationDescription {
  ProcessIdentifier process = 0;
  std::optional<std::string> bundleIdentifier{};
  std::optional<std::string> executableURL{};
  std::optional<std::string> localizedName{};
  /// The root element; nothing: one on which every read fails.
  std::optional<ElementReference> element{};
  /// What creating an observer for it gives.
  AXError observerError = axError::success;
};

/// The left and top edges are inside, the right and bottom ones outside.
struct Frame {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

struct ScreenEntry {
  Frame frame;
  ElementReference element;
};

/// From back to front.
using Screen = std::vector<ScreenEntry>;

struct DesktopDescription {
  std::vector<ApplicationDescription> applications{};
  std::map<std::string, ElementDescription> elements{};
  std::optional<ProcessIdentifier> frontmost{};
  Screen screen{};
  /// What a hit test over no entry gives.
  AXError nothingAtPosition = axError::success;
  bool canObserveInput = true;
  /// "ROLE" or "ROLE/SUBROLE" and the platform's words for it.
  std::map<std::string, std::string> roleDescriptions{};
};

}  // namespace norra::simulated
