// The one table of AT-SPI's roles: what each is called in the words of the core, and what kind of element it tells of.
//
// A role decides three things here. What the element is for the core, as far as nothing but the role matters; what it
// is besides (states, surroundings, a toolkit's own habits) is added in elements/RoleMapping and toolkits/. What may be
// asked of it, before anything else of it is known: a field's text only once it is known to be no secret, the actions
// of a mere container never. And what is sure to be asked of it soon, so that it travels together (see ElementView).
//
// A new role gets a number in AtspiRole.h and a row here; a row that says a kind needs nothing more.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "Platform/Linux/atspi/AtspiRole.h"

namespace norra::linux_desktop {

struct RoleAndSubrole {
  std::string_view role;
  /// Empty: none.
  std::string_view subrole;
  bool operator==(const RoleAndSubrole&) const = default;
};

enum class RoleKind : std::uint8_t {
  field,            // holds a text that the user can write
  checkable,        // is on or off
  number,           // has a value that the user moves
  mereContainer,    // offers no action that counts, whatever it says; not so in web pages
  tableLike,        // shows its children as rows of cells
  itemContainer,    // its items are selected in it
  item,             // may be an item of such a container, which keeps the focus
  menuPart,         // what it is depends on what it lies in
  control,          // is what a click on a part of it is attributed to
  partOfControl,    // is often only a part of a control
  textHolder,       // its text is what it is called, where it has no name
  statesDecide,     // what it is depends on its states
  attributesDecide  // in web pages, what it is depends on its attributes
};

/// A set of kinds.
class RoleKinds {
 public:
  constexpr RoleKinds() = default;
  constexpr RoleKinds(std::initializer_list<RoleKind> kinds) {
    for (const auto kind : kinds) bits_ |= bitOf(kind);
  }
  constexpr bool has(RoleKind kind) const { return (bits_ & bitOf(kind)) != 0; }
  constexpr bool hasAny(RoleKinds kinds) const { return (bits_ & kinds.bits_) != 0; }

 private:
  static constexpr std::uint16_t bitOf(RoleKind kind) {
    return static_cast<std::uint16_t>(1U << static_cast<unsigned>(kind));
  }
  std::uint16_t bits_ = 0;
};

struct RoleRow {
  AtspiRole role;
  /// Where nothing but the role decides; else what it is most often.
  RoleAndSubrole name;
  RoleKinds kinds;
};

inline constexpr auto roleRows = [] {
  using enum AtspiRole;
  using enum RoleKind;
  return std::to_array<RoleRow>({
      {alert, {"AXWindow", "AXDialog"}, {}},
      {checkBox, {"AXCheckBox", ""}, {checkable, control}},
      {checkMenuItem, {"AXMenuItem", ""}, {checkable, menuPart}},
      {columnHeader, {"AXButton", "AXSortButton"}, {textHolder}},
      {comboBox, {"AXPopUpButton", ""}, {statesDecide}},
      {dateEditor, {"AXTextField", ""}, {field}},
      {dial, {"AXSlider", ""}, {number}},
      {dialog, {"AXWindow", "AXDialog"}, {}},
      {fileChooser, {"AXWindow", "AXDialog"}, {}},
      {filler, {"AXGroup", ""}, {mereContainer, attributesDecide}},
      {fontChooser, {"AXWindow", "AXDialog"}, {}},
      {frame, {"AXWindow", "AXStandardWindow"}, {mereContainer}},
      {icon, {"AXImage", ""}, {item, partOfControl, textHolder}},
      {image, {"AXImage", ""}, {partOfControl}},
      {label, {"AXStaticText", ""}, {partOfControl, textHolder}},
      {layeredPane, {"AXGroup", ""}, {mereContainer, itemContainer}},
      {list, {"AXList", ""}, {itemContainer}},
      {listItem, {"AXGroup", ""}, {item, control}},
      {menu, {"AXMenu", ""}, {menuPart}},
      {menuBar, {"AXMenuBar", ""}, {mereContainer}},
      {menuItem, {"AXMenuItem", ""}, {menuPart, control}},
      {pageTab, {"AXRadioButton", "AXTabButton"}, {checkable, control}},
      {pageTabList, {"AXTabGroup", ""}, {mereContainer}},
      {panel, {"AXGroup", ""}, {mereContainer, attributesDecide}},
      {passwordText, {"AXTextField", "AXSecureTextField"}, {field}},
      {popupMenu, {"AXMenu", ""}, {}},
      {progressBar, {"AXProgressIndicator", ""}, {}},
      {pushButton, {"AXButton", ""}, {control, statesDecide}},
      {radioButton, {"AXRadioButton", ""}, {checkable, control}},
      {radioMenuItem, {"AXMenuItem", ""}, {checkable, menuPart}},
      {rowHeader, {"AXCell", ""}, {}},
      {scrollBar, {"AXScrollBar", ""}, {number}},
      {scrollPane, {"AXScrollArea", ""}, {mereContainer}},
      {separator, {"AXGroup", ""}, {statesDecide}},
      {slider, {"AXSlider", ""}, {number}},
      {spinButton, {"AXIncrementor", ""}, {number}},
      {splitPane, {"AXSplitGroup", ""}, {mereContainer}},
      {table, {"AXTable", ""}, {RoleKind::tableLike, itemContainer}},
      {tableCell, {"AXCell", ""}, {item, textHolder}},
      {tableColumnHeader, {"AXButton", "AXSortButton"}, {}},
      {tableRowHeader, {"AXRow", "AXTableRow"}, {item, textHolder}},
      {tearoffMenuItem, {"AXMenuItem", ""}, {menuPart}},
      {terminal, {"AXTextArea", ""}, {field}},
      {text, {"AXTextField", ""}, {field, statesDecide, attributesDecide}},
      {toggleButton, {"AXCheckBox", "AXToggle"}, {checkable, control, statesDecide, attributesDecide}},
      {toolBar, {"AXToolbar", ""}, {mereContainer}},
      {tree, {"AXOutline", ""}, {RoleKind::tableLike, itemContainer}},
      {treeTable, {"AXOutline", ""}, {RoleKind::tableLike, itemContainer}},
      {viewport, {"AXGroup", ""}, {mereContainer}},
      {window, {"AXWindow", ""}, {mereContainer}},
      {paragraph, {"AXGroup", ""}, {statesDecide}},
      {application, {"AXApplication", ""}, {}},
      {autocomplete, {"AXComboBox", ""}, {field}},
      {editBar, {"AXTextField", ""}, {field}},
      {entry, {"AXTextField", ""}, {field, statesDecide, attributesDecide}},
      {documentFrame, {"AXWebArea", ""}, {}},
      {heading, {"AXHeading", ""}, {textHolder}},
      {link, {"AXLink", ""}, {control}},
      {tableRow, {"AXRow", "AXTableRow"}, {item}},
      {treeItem, {"AXRow", "AXOutlineRow"}, {item, control}},
      {documentWeb, {"AXWebArea", ""}, {}},
      {listBox, {"AXList", ""}, {itemContainer}},
      {grouping, {"AXGroup", ""}, {attributesDecide}},
      {imageMap, {"AXImage", ""}, {}},
      {levelBar, {"AXLevelIndicator", ""}, {}},
      {staticText, {"AXStaticText", ""}, {partOfControl, textHolder}},
      {pushButtonMenu, {"AXMenuButton", ""}, {}},
      {switchControl, {"AXCheckBox", "AXSwitch"}, {checkable}},
  });
}();

namespace roles {

inline constexpr RoleRow unlisted{AtspiRole::filler, {"AXGroup", ""}, {}};

/// One more than the place in the table; 0: the table has none.
inline constexpr auto places = [] {
  std::array<std::uint8_t, roleLimit> found{};
  for (std::size_t i = 0; i < roleRows.size(); ++i) {
    found[static_cast<std::size_t>(roleRows[i].role)] = static_cast<std::uint8_t>(i + 1);
  }
  return found;
}();

}  // namespace roles

/// The row of a role; a group of no kind where the table has none.
constexpr const RoleRow& rowOf(AtspiRole role) {
  const auto number = static_cast<std::size_t>(role);
  if (number >= roleLimit || roles::places[number] == 0) return roles::unlisted;
  return roleRows[roles::places[number] - 1U];
}

/// Whether an element of the role is of the kind.
constexpr bool is(AtspiRole role, RoleKind kind) { return rowOf(role).kinds.has(kind); }

/// Whether it is of any of the kinds.
constexpr bool isAny(AtspiRole role, RoleKinds kinds) { return rowOf(role).kinds.hasAny(kinds); }

/// Whether nothing above an element of this role matters for what happened in it. The core decides that; it is known
/// here only so that no more is asked ahead than will be asked.
bool endsSearch(AtspiRole role);

}  // namespace norra::linux_desktop
