// What is known of the element that has the keyboard focus in the followed application.
//
// This record is where a value enters the program's memory, so it decides what may be kept: the stores mask, and there
// is no way past them. Of a password the number of characters is kept, to notice that it changed. Of an element whose
// value must not be followed (a text area, outside the pages of two search engines) nothing is kept. Everything that
// reads the record later may use what it finds.
//
// The text has a baseline, the value as last reported. A change is the difference between the two.
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

  /// The selection as last seen; empty at first.
  const std::vector<AXUIElement>& lastSelectedElements() const { return lastSelectedElements_; }
  void setLastSelectedElements(std::vector<AXUIElement> elements) { lastSelectedElements_ = std::move(elements); }
  /// The names of the selected rows as last reported; empty at first.
  const std::string& lastSelectedString() const { return lastSelectedString_; }
  void setLastSelectedString(std::string names) { lastSelectedString_ = std::move(names); }

 private:
  std::string masked(std::string text) const;

  AXUIElement element_;
  std::string role_;
  std::string subrole_;
  bool isPassword_;
  bool shouldTrackValue_;
  std::vector<AXUIElement> lastSelectedElements_;
  std::string lastSelectedString_;
  std::string initialText_;
  std::string text_;
};

/// Nothing for nothing.
std::optional<FocusedElementData> focusedElementData(const std::optional<AXUIElement>& element);

}  // namespace norra
