#include <gmock/gmock.h>

#include <set>

#include "NorraDataCollector/interpretation/RolePredicates.h"
#include "Platform/Linux/elements/RoleDescriptions.h"
#include "Platform/Linux/elements/RoleMapping.h"
#include "Platform/Linux/toolkits/Toolkits.h"

namespace norra::linux_desktop {
namespace {

const std::array<const Toolkit*, 6> toolkits{&unknownToolkit, &gtk3, &gtk4, &qt, &chromium, &gecko};

constexpr std::uint64_t bit(AtspiState state) { return std::uint64_t{1} << static_cast<unsigned>(state); }

AtspiFacts facts(AtspiRole role, std::uint64_t states = 0) {
  AtspiFacts result;
  result.role = static_cast<std::uint32_t>(role);
  result.states = states;
  return result;
}

TEST(RoleMapping, GivesEveryNumberARoleThatHasWords) {
  for (std::uint32_t role = 0; role < roleLimit; ++role) {
    for (const auto* toolkit : toolkits) {
      const auto mapped = mapRole(facts(static_cast<AtspiRole>(role)), {}, *toolkit);
      EXPECT_TRUE(englishRoleDescription(mapped.role, std::nullopt)) << role << " " << mapped.role;
    }
  }
}

// What is asked ahead ends where the core's walk does, or too much or too little is asked.
TEST(Roles, EndAWalkWhereTheCoreEndsIt) {
  for (const auto& row : roleRows) {
    EXPECT_EQ(endsSearch(row.role), !canContinueSearch(row.name.role, true)) << row.name.role;
  }
}

TEST(RoleMapping, SecuresPasswordsWhateverElseIsKnown) {
  for (const auto* toolkit : toolkits) {
    for (const auto states : {std::uint64_t{0}, ~std::uint64_t{0}}) {
      EXPECT_EQ(mapRole(facts(AtspiRole::passwordText, states), {}, *toolkit).subrole, "AXSecureTextField");
      for (const auto role : {AtspiRole::text, AtspiRole::entry}) {
        EXPECT_EQ(mapRole(facts(role, states), {.hidesText = true}, *toolkit).subrole, "AXSecureTextField");
      }
    }
  }
}

TEST(RoleMapping, SecuresNothingElse) {
  for (std::uint32_t role = 0; role < roleLimit; ++role) {
    if (role == static_cast<std::uint32_t>(AtspiRole::passwordText)) continue;
    EXPECT_NE(mapRole(facts(static_cast<AtspiRole>(role)), {}, unknownToolkit).subrole, "AXSecureTextField") << role;
  }
}

struct MappedRow {
  AtspiRole role;
  std::uint64_t states;
  RoleSurroundings surroundings;
  RoleAndSubrole expected;
  const Toolkit& toolkit = unknownToolkit;
};

TEST(RoleMapping, DependsOnStatesAndSurroundings) {
  const MappedRow rows[] = {
      {AtspiRole::pushButton, 0, {}, {"AXButton", ""}},
      {AtspiRole::pushButton, bit(AtspiState::hasPopup), {}, {"AXMenuButton", ""}},
      {AtspiRole::toggleButton, 0, {}, {"AXCheckBox", "AXToggle"}},
      {AtspiRole::toggleButton, bit(AtspiState::hasPopup), {}, {"AXMenuButton", ""}},
      {AtspiRole::comboBox, 0, {}, {"AXPopUpButton", ""}},
      {AtspiRole::comboBox, bit(AtspiState::editable), {}, {"AXComboBox", ""}},
      {AtspiRole::text, 0, {}, {"AXTextField", ""}},
      {AtspiRole::text, bit(AtspiState::multiLine), {}, {"AXTextArea", ""}},
      {AtspiRole::entry, 0, {}, {"AXTextField", "AXSearchField"}, gtk4},
      {AtspiRole::entry, 0, {}, {"AXTextField", ""}, chromium},
      {AtspiRole::menu, 0, {.parentRole = AtspiRole::menuBar}, {"AXMenuBarItem", ""}},
      {AtspiRole::menu, 0, {.parentRole = AtspiRole::menu}, {"AXMenuItem", ""}},
      {AtspiRole::menu, 0, {.parentRole = AtspiRole::window}, {"AXMenu", ""}},
      {AtspiRole::menu, 0, {.parentRole = AtspiRole::comboBox}, {"AXMenu", ""}},
      {AtspiRole::menuItem, 0, {.parentRole = AtspiRole::menuBar}, {"AXMenuBarItem", ""}, qt},
      {AtspiRole::menuItem, 0, {.parentRole = AtspiRole::popupMenu}, {"AXMenuItem", ""}},
      {AtspiRole::panel, 0, {.holdsRadioButtons = true}, {"AXRadioGroup", ""}},
      {AtspiRole::filler, 0, {.holdsRadioButtons = true}, {"AXGroup", ""}},
      {AtspiRole::dialog, 0, {}, {"AXWindow", "AXDialog"}, gtk3},
      {AtspiRole::dialog, 0, {}, {"AXGroup", ""}, chromium},
      {AtspiRole::tableColumnHeader, 0, {}, {"AXButton", "AXSortButton"}, qt},
      {AtspiRole::columnHeader, 0, {}, {"AXCell", ""}, gecko},
      {AtspiRole::separator, bit(AtspiState::focusable), {}, {"AXSplitter", ""}},
      {AtspiRole::pageTab, 0, {}, {"AXRadioButton", "AXTabButton"}},
      {AtspiRole::listBox, 0, {}, {"AXList", ""}},
      {AtspiRole::treeTable, 0, {}, {"AXOutline", ""}},
      {AtspiRole::documentWeb, 0, {}, {"AXWebArea", ""}},
  };
  for (const auto& row : rows) {
    const auto mapped = mapRole(facts(row.role, row.states), row.surroundings, row.toolkit);
    EXPECT_EQ(mapped.role, row.expected.role) << static_cast<int>(row.role);
    EXPECT_EQ(mapped.subrole, row.expected.subrole) << static_cast<int>(row.role);
  }
}

TEST(Toolkits, AreToldByNameAndVersion) {
  EXPECT_EQ(&toolkitNamed("gtk", "3.24.38", ""), &gtk3);
  EXPECT_EQ(&toolkitNamed("GTK", "4.8.3", ""), &gtk4WithClassNames);
  EXPECT_EQ(&toolkitNamed("GTK", "4.18.6", ""), &gtk4);
  EXPECT_EQ(&toolkitNamed("Qt", "5.15", ""), &qt);
  EXPECT_EQ(&toolkitNamed("Chromium", "156", ""), &chromium);
  EXPECT_EQ(&toolkitNamed("Gecko", "153", ""), &gecko);
  EXPECT_EQ(&toolkitNamed("", "", ""), &unknownToolkit);
}

}  // namespace
}  // namespace norra::linux_desktop
