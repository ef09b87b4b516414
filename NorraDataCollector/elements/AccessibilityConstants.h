// The names of attributes, roles, subroles and actions, as the platform spells them. The core compares texts with these
// and knows no other spelling; a platform whose applications say it differently translates into them.
#pragma once

#include <string_view>

namespace norra {

namespace attribute {
inline constexpr std::string_view children = "AXChildren";
inline constexpr std::string_view childrenInNavigationOrder = "AXChildrenInNavigationOrder";
inline constexpr std::string_view columnIndexRange = "AXColumnIndexRange";
inline constexpr std::string_view columns = "AXColumns";
inline constexpr std::string_view description = "AXDescription";
inline constexpr std::string_view domIdentifier = "AXDOMIdentifier";
inline constexpr std::string_view filename = "AXFilename";
inline constexpr std::string_view focused = "AXFocused";
inline constexpr std::string_view focusedUIElement = "AXFocusedUIElement";
inline constexpr std::string_view focusedWindow = "AXFocusedWindow";
inline constexpr std::string_view header = "AXHeader";
inline constexpr std::string_view help = "AXHelp";
inline constexpr std::string_view identifier = "AXIdentifier";
inline constexpr std::string_view parent = "AXParent";
inline constexpr std::string_view placeholderValue = "AXPlaceholderValue";
inline constexpr std::string_view role = "AXRole";
inline constexpr std::string_view roleDescription = "AXRoleDescription";
inline constexpr std::string_view rowHeaderUIElements = "AXRowHeaderUIElements";
inline constexpr std::string_view rowIndexRange = "AXRowIndexRange";
inline constexpr std::string_view selected = "AXSelected";
inline constexpr std::string_view selectedCells = "AXSelectedCells";
inline constexpr std::string_view selectedChildren = "AXSelectedChildren";
inline constexpr std::string_view selectedRows = "AXSelectedRows";
inline constexpr std::string_view subrole = "AXSubrole";
inline constexpr std::string_view title = "AXTitle";
inline constexpr std::string_view titleUIElement = "AXTitleUIElement";
inline constexpr std::string_view url = "AXURL";
inline constexpr std::string_view value = "AXValue";
inline constexpr std::string_view visibleChildren = "AXVisibleChildren";
inline constexpr std::string_view window = "AXWindow";
}  // namespace attribute

namespace role {
inline constexpr std::string_view application = "AXApplication";
inline constexpr std::string_view button = "AXButton";
inline constexpr std::string_view cell = "AXCell";
inline constexpr std::string_view checkBox = "AXCheckBox";
inline constexpr std::string_view comboBox = "AXComboBox";
inline constexpr std::string_view dockItem = "AXDockItem";
inline constexpr std::string_view grid = "AXGrid";
inline constexpr std::string_view heading = "AXHeading";
inline constexpr std::string_view image = "AXImage";
inline constexpr std::string_view incrementor = "AXIncrementor";
inline constexpr std::string_view link = "AXLink";
inline constexpr std::string_view list = "AXList";
inline constexpr std::string_view menu = "AXMenu";
inline constexpr std::string_view menuBar = "AXMenuBar";
inline constexpr std::string_view menuBarItem = "AXMenuBarItem";
inline constexpr std::string_view menuButton = "AXMenuButton";
inline constexpr std::string_view menuItem = "AXMenuItem";
inline constexpr std::string_view outline = "AXOutline";
inline constexpr std::string_view popover = "AXPopover";
inline constexpr std::string_view popUpButton = "AXPopUpButton";
inline constexpr std::string_view radioButton = "AXRadioButton";
inline constexpr std::string_view radioGroup = "AXRadioGroup";
inline constexpr std::string_view row = "AXRow";
inline constexpr std::string_view scrollBar = "AXScrollBar";
inline constexpr std::string_view slider = "AXSlider";
inline constexpr std::string_view splitGroup = "AXSplitGroup";
inline constexpr std::string_view splitter = "AXSplitter";
inline constexpr std::string_view staticText = "AXStaticText";
inline constexpr std::string_view table = "AXTable";
inline constexpr std::string_view tabGroup = "AXTabGroup";
inline constexpr std::string_view textArea = "AXTextArea";
inline constexpr std::string_view textField = "AXTextField";
inline constexpr std::string_view toolbar = "AXToolbar";
inline constexpr std::string_view unknown = "AXUnknown";
inline constexpr std::string_view valueIndicator = "AXValueIndicator";
inline constexpr std::string_view webArea = "AXWebArea";
inline constexpr std::string_view window = "AXWindow";
}  // namespace role

namespace subrole {
inline constexpr std::string_view searchField = "AXSearchField";
inline constexpr std::string_view secureTextField = "AXSecureTextField";
inline constexpr std::string_view unknown = "AXUnknown";
}  // namespace subrole

}  // namespace norra
