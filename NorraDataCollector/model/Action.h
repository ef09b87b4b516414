// The closed set of what the service reports. Plain values that own their data; copied freely between threads.
//
// An action is a record of its kind. The records are what is written and read, so their members are exactly the members
// of the reports, under the same names and in the same order (ActionFields.h), and each carries its own kind, which
// makes a record that stands alone complete. A text that is empty is a text: the button has no name. Only an optional
// member can be absent, and means that it does not apply.
//
// Nothing here refers to an element or to an application. What an action says was read when it happened, and stays true
// when the window has gone.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "NorraDataCollector/model/URL.h"

namespace norra {

/// The kind of an action. The order is that of the alternatives of Action.
enum class CodingKeys : std::uint8_t {
  undefined,
  collector,
  changeApplication,
  openMenu,
  click,
  clickHyperlink,
  clickListItem,
  clickRadioButton,
  toggle,
  changeText,
  changePassword,
  changeSlider,
  changeSpinner,
  changeSelectedRows,
  changeSelectedCells,
  changeSelectedChildren,
  pressKeyCombination,
  pressSpecialKey,
  external,
  console,
  clickComboBox,
};

/// What happened to collection.
enum class CollectorOperation : std::uint8_t { start, stop, pause, resume };

enum class MouseButton : std::uint8_t { left, right, middle, double_, doubleRight, other };

/// The state of a control with two or three states; its values are those of the wire format.
enum class ToggleState : std::uint8_t { off = 0, on = 1, indeterminate = 2 };

struct UndefinedData {
  CodingKeys action = CodingKeys::undefined;
  bool operator==(const UndefinedData&) const = default;
};

struct CollectorData {
  CodingKeys action = CodingKeys::collector;
  CollectorOperation operation = CollectorOperation::start;
  bool operator==(const CollectorData&) const = default;
};

/// The application that became the followed one.
struct ChangeApplicationData {
  CodingKeys action = CodingKeys::changeApplication;
  std::int32_t processID = 0;
  /// An identifier: the bundle identifier or the executable's file name.
  std::string applicationName;
  /// The name that the user sees.
  std::string fileDescription;
  std::string windowTitle;
  bool operator==(const ChangeApplicationData&) const = default;
};

struct OpenMenuData {
  CodingKeys action = CodingKeys::openMenu;
  std::string elementName;
  std::string automationID;
  bool operator==(const OpenMenuData&) const = default;
};

struct ClickData {
  CodingKeys action = CodingKeys::click;
  std::string elementName;
  std::string controlType;
  std::string automationID;
  MouseButton button = MouseButton::left;
  std::optional<ToggleState> toggleState = ToggleState::indeterminate;
  bool operator==(const ClickData&) const = default;
};

struct ClickHyperlinkData {
  CodingKeys action = CodingKeys::clickHyperlink;
  std::string elementName;
  std::string automationID;
  std::optional<URL> url;
  bool operator==(const ClickHyperlinkData&) const = default;
};

struct ClickListItemData {
  CodingKeys action = CodingKeys::clickListItem;
  std::string elementName;
  std::string controlType;
  std::string automationID;
  MouseButton button = MouseButton::left;
  std::string columnName;
  std::string columnValue;
  bool operator==(const ClickListItemData&) const = default;
};

struct ClickRadioButtonData {
  CodingKeys action = CodingKeys::clickRadioButton;
  std::string elementName;
  std::optional<std::string> controlType;
  std::string automationID;
  std::string groupName;
  bool operator==(const ClickRadioButtonData&) const = default;
};

/// A value that an element took on; one type for each kind.
template <CodingKeys kind>
struct ValueChangeData {
  CodingKeys action = kind;
  std::string elementName;
  std::optional<std::string> controlType;
  std::string automationID;
  std::string newValue;
  bool operator==(const ValueChangeData&) const = default;
};

using ToggleData = ValueChangeData<CodingKeys::toggle>;
using ChangeTextData = ValueChangeData<CodingKeys::changeText>;
using ChangePasswordData = ValueChangeData<CodingKeys::changePassword>;
using ChangeSliderData = ValueChangeData<CodingKeys::changeSlider>;
using ChangeSpinnerData = ValueChangeData<CodingKeys::changeSpinner>;
using ChangeSelectedRowsData = ValueChangeData<CodingKeys::changeSelectedRows>;
using ChangeSelectedCellsData = ValueChangeData<CodingKeys::changeSelectedCells>;
using ChangeSelectedChildrenData = ValueChangeData<CodingKeys::changeSelectedChildren>;

/// A key pressed while an element had the focus; one type for each kind.
template <CodingKeys kind>
struct KeyPressData {
  CodingKeys action = kind;
  std::string elementName;
  std::string controlType;
  std::string automationID;
  std::string key;
  bool operator==(const KeyPressData&) const = default;
};

using KeyCombinationData = KeyPressData<CodingKeys::pressKeyCombination>;
using SpecialKeyData = KeyPressData<CodingKeys::pressSpecialKey>;

struct ExternalData {
  CodingKeys action = CodingKeys::external;
  std::string message;
  bool operator==(const ExternalData&) const = default;
};

struct ConsoleData {
  CodingKeys action = CodingKeys::console;
  std::string command;
  std::string prompt;
  std::string shell;
  bool operator==(const ConsoleData&) const = default;
};

struct ClickComboBoxData {
  CodingKeys action = CodingKeys::clickComboBox;
  std::string elementName;
  std::string controlType;
  std::string automationID;
  std::string comboBoxValue;
  MouseButton button = MouseButton::left;
  bool operator==(const ClickComboBoxData&) const = default;
};

/// One report. The first alternative is `undefined`; the order is that of CodingKeys.
using Action = std::variant<UndefinedData, CollectorData, ChangeApplicationData, OpenMenuData, ClickData,
                            ClickHyperlinkData, ClickListItemData, ClickRadioButtonData, ToggleData, ChangeTextData,
                            ChangePasswordData, ChangeSliderData, ChangeSpinnerData, ChangeSelectedRowsData,
                            ChangeSelectedCellsData, ChangeSelectedChildrenData, KeyCombinationData, SpecialKeyData,
                            ExternalData, ConsoleData, ClickComboBoxData>;

/// The case of the union, whatever the payload's `action` says.
inline CodingKeys kind(const Action& action) { return static_cast<CodingKeys>(action.index()); }

/// The texts of the wire format, exact in both directions; nothing for a text that is none of them.
std::string_view rawValue(CodingKeys key);
std::string_view rawValue(CollectorOperation operation);
std::string_view rawValue(MouseButton button);
std::optional<CodingKeys> codingKeysFrom(std::string_view rawValue);
std::optional<CollectorOperation> collectorOperationFrom(std::string_view rawValue);
std::optional<MouseButton> mouseButtonFrom(std::string_view rawValue);

/// Nothing for any integer but 0, 1 and 2.
std::optional<ToggleState> toggleStateFrom(std::int64_t rawValue);
/// "0" and "off" are off, "1" and "on" are on, in any letter case; everything else is indeterminate.
ToggleState toggleStateFromString(std::string_view text);

}  // namespace norra
