#include "Platform/Linux/reading/RoleKinds.h"

#include <algorithm>
#include <array>

namespace norra::linux_desktop {
namespace {

constexpr std::array fields{AtspiRole::text,    AtspiRole::entry,        AtspiRole::passwordText, AtspiRole::terminal,
                            AtspiRole::editBar, AtspiRole::autocomplete, AtspiRole::dateEditor};
constexpr std::array checkables{AtspiRole::checkBox,    AtspiRole::checkMenuItem, AtspiRole::pageTab,
                                AtspiRole::radioButton, AtspiRole::radioMenuItem, AtspiRole::switchControl,
                                AtspiRole::toggleButton};
constexpr std::array mereContainers{AtspiRole::filler,     AtspiRole::frame,       AtspiRole::layeredPane,
                                    AtspiRole::menuBar,    AtspiRole::pageTabList, AtspiRole::panel,
                                    AtspiRole::scrollPane, AtspiRole::splitPane,   AtspiRole::toolBar,
                                    AtspiRole::viewport,   AtspiRole::window};
constexpr std::array tables{AtspiRole::table, AtspiRole::tree, AtspiRole::treeTable};
constexpr std::array itemContainers{AtspiRole::list, AtspiRole::listBox,   AtspiRole::table,
                                    AtspiRole::tree, AtspiRole::treeTable, AtspiRole::layeredPane};
constexpr std::array menuParts{AtspiRole::checkMenuItem, AtspiRole::menu, AtspiRole::menuItem, AtspiRole::radioMenuItem,
                               AtspiRole::tearoffMenuItem};
constexpr std::array rolesThatNeedAttributes{AtspiRole::entry, AtspiRole::filler, AtspiRole::grouping,
                                             AtspiRole::panel, AtspiRole::text,   AtspiRole::toggleButton};
constexpr std::array rolesThatNeedStates{AtspiRole::comboBox,    AtspiRole::entry,     AtspiRole::paragraph,
                                         AtspiRole::pushButton,  AtspiRole::separator, AtspiRole::text,
                                         AtspiRole::toggleButton};

constexpr std::array searchEnds{
    AtspiRole::alert,       AtspiRole::application, AtspiRole::dialog,      AtspiRole::documentFrame,
    AtspiRole::documentWeb, AtspiRole::fileChooser, AtspiRole::fontChooser, AtspiRole::frame,
    AtspiRole::list,        AtspiRole::listBox,     AtspiRole::menuBar,     AtspiRole::pageTabList,
    AtspiRole::scrollBar,   AtspiRole::splitPane,   AtspiRole::table,       AtspiRole::toolBar,
    AtspiRole::tree,        AtspiRole::treeTable,   AtspiRole::window};

template <typename Table, typename Item>
bool contains(const Table& table, const Item& item) {
  return std::ranges::find(table, item) != table.end();
}

}  // namespace

bool showsWebPages(Toolkit toolkit) { return toolkit == Toolkit::chromium || toolkit == Toolkit::gecko; }

bool roleDependsOnParent(AtspiRole role) { return contains(menuParts, role); }

Asks asksForRole(AtspiRole role, Toolkit toolkit) {
  Asks asks;
  if (contains(rolesThatNeedStates, role)) asks |= Ask::states;
  if (role == AtspiRole::pushButton && toolkit == Toolkit::gtk3) asks |= Ask::interfaces;
  if (role == AtspiRole::comboBox && toolkit == Toolkit::gtk3) asks |= Ask::childCount;
  if (showsWebPages(toolkit) && contains(rolesThatNeedAttributes, role)) asks |= Ask::attributes;
  return asks;
}

bool isTextField(AtspiRole role) { return contains(fields, role); }
bool isCheckable(AtspiRole role) { return contains(checkables, role); }
bool isMereContainer(AtspiRole role) { return contains(mereContainers, role); }
bool isTableLike(AtspiRole role) { return contains(tables, role); }
bool isItemContainer(AtspiRole role) { return contains(itemContainers, role); }
bool endsSearch(AtspiRole role) { return contains(searchEnds, role); }

}  // namespace norra::linux_desktop
