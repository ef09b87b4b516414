#include "Platform/Linux/elements/RoleDescriptions.h"

#include <algorithm>
#include <array>

namespace norra::linux_desktop {
namespace {

struct Words {
  std::string_view name;
  std::string_view words;
};

constexpr std::array roles{
    Words{"AXApplication", "application"},
    Words{"AXButton", "button"},
    Words{"AXCell", "cell"},
    Words{"AXCheckBox", "checkbox"},
    Words{"AXColumn", "column"},
    Words{"AXComboBox", "combo box"},
    Words{"AXDockItem", "dock item"},
    Words{"AXGrid", "grid"},
    Words{"AXGroup", "group"},
    Words{"AXHeading", "heading"},
    Words{"AXImage", "image"},
    Words{"AXIncrementor", "stepper"},
    Words{"AXLevelIndicator", "level indicator"},
    Words{"AXLink", "link"},
    Words{"AXList", "list"},
    Words{"AXMenu", "menu"},
    Words{"AXMenuBar", "menu bar"},
    Words{"AXMenuBarItem", "menu bar item"},
    Words{"AXMenuButton", "menu button"},
    Words{"AXMenuItem", "menu item"},
    Words{"AXOutline", "outline"},
    Words{"AXPopUpButton", "pop up button"},
    Words{"AXPopover", "popover"},
    Words{"AXProgressIndicator", "progress indicator"},
    Words{"AXRadioButton", "radio button"},
    Words{"AXRadioGroup", "radio group"},
    Words{"AXRow", "row"},
    Words{"AXScrollArea", "scroll area"},
    Words{"AXScrollBar", "scroll bar"},
    Words{"AXSlider", "slider"},
    Words{"AXSplitGroup", "split group"},
    Words{"AXSplitter", "splitter"},
    Words{"AXStaticText", "text"},
    Words{"AXTabGroup", "tab group"},
    Words{"AXTable", "table"},
    Words{"AXTextArea", "text entry area"},
    Words{"AXTextField", "text field"},
    Words{"AXToolbar", "toolbar"},
    Words{"AXUnknown", "unknown"},
    Words{"AXValueIndicator", "value indicator"},
    Words{"AXWebArea", "web content"},
    Words{"AXWindow", "window"},
};

constexpr std::array subroles{
    Words{"AXDialog", "dialog"},
    Words{"AXOutlineRow", "outline row"},
    Words{"AXSearchField", "search text field"},
    Words{"AXSecureTextField", "secure text field"},
    Words{"AXSortButton", "sort button"},
    Words{"AXStandardWindow", "standard window"},
    Words{"AXSwitch", "switch"},
    Words{"AXTabButton", "tab"},
    Words{"AXTableRow", "table row"},
    Words{"AXToggle", "toggle button"},
};

template <typename Table>
std::optional<std::string> wordsFor(const Table& table, std::string_view name) {
  const auto* row = std::ranges::find(table, name, &Words::name);
  if (row == table.end()) return std::nullopt;
  return std::string(row->words);
}

}  // namespace

std::optional<std::string> englishRoleDescription(std::string_view role, std::optional<std::string_view> subrole) {
  if (subrole) {
    if (auto words = wordsFor(subroles, *subrole)) return words;
  }
  return wordsFor(roles, role);
}

}  // namespace norra::linux_desktop
