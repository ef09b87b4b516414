// What is known of the element that has the keyboard focus in the followed application.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Accessibility.h"

namespace norra {

/// The record of one focused element. A value is masked when it is stored: nothing is kept of an element that must not
/// be tracked, and one "*" for each character of a password. Main thread.
class FocusedElementData {
 public:
  /// Reads the element; its value is both the text and the baseline.
  explicit FocusedElementData(const AXUIElement& element);

  /// A value as a text; nothing for nothing.
  static std::optional<std::string> valueToText(AXAttributeValue value);

  const AXUIElement& element() const { return element_; }
  const std::string& role() const { return role_; }
  const std::string& subrole() const { return subrole_; }
  bool isPassword() const { return isPassword_; }
  bool shouldTrackValue() const { return shouldTrackValue_; }

  /// The current value, masked.
  const std::string& text() const { return text_; }
  void setText(std::string text) { text_ = masked(std::move(text)); }
  /// The value as last reported, masked.
  const std::string& initialText() const { return initialText_; }
  void setInitialText(std::string text) { initialText_ = masked(std::move(text)); }

  /// The selection seen last, and the text of the rows reported last; empty at first.
  std::vector<AXUIElement> lastSelectedElements;
  std::string lastSelectedString;

 private:
  std::string masked(std::string text) const;

  AXUIElement element_;
  std::string role_;
  std::string subrole_;
  bool isPassword_;
  bool shouldTrackValue_;
  std::string initialText_;
  std::string text_;
};

/// Nothing for nothing.
std::optional<FocusedElementData> focusedElementData(const std::optional<AXUIElement>& element);

}  // namespace norra
