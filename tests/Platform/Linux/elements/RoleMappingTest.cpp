#include <gmock/gmock.h>

#include <set>

#include "NorraDataCollector/interpretation/RolePredicates.h"
#include "Platform/Linux/applications/ProcessFacts.h"
#include "Platform/Linux/atspi/RestingApplications.h"
#include "Platform/Linux/elements/Naming.h"
#include "Platform/Linux/elements/RoleDescriptions.h"
#include "Platform/Linux/elements/RoleMapping.h"
#include "Platform/Linux/elements/Text.h"
#include "Platform/Linux/elements/Value.h"
#include "Platform/Linux/following/HighlightedItems.h"
#include "Platform/Linux/toolkits/Toolkits.h"

namespace norra::linux_desktop {
namespace {

using std::chrono_literals::operator""ms;

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
      {AtspiRole::menuItem, 0, {.parentRole = AtspiRole::menuBar}, {"AXMenuItem", ""}, chromium},
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

TEST(ActionMapping, KnowsActionsWithoutRegardToCase) {
  const std::pair<const char*, const char*> rows[] = {{"click", "AXPress"},
                                                      {"Press", "AXPress"},
                                                      {"activate", "AXPress"},
                                                      {"jump", "AXPress"},
                                                      {"Toggle", "AXPress"},
                                                      {"uncheck", "AXPress"},
                                                      {"Increase", "AXIncrement"},
                                                      {"decrement", "AXDecrement"},
                                                      {"select", "AXPick"},
                                                      {"cancel", "AXCancel"},
                                                      {"doDefault", ""},
                                                      {"clickAncestor", ""},
                                                      {"showContextMenu", ""},
                                                      {"SetFocus", ""},
                                                      {"ShowMenu", ""},
                                                      {"expand or contract", ""},
                                                      {"", ""},
                                                      {"clipboard.copy", ""}};
  for (const auto& [action, expected] : rows) EXPECT_EQ(mappedAction(action), expected) << action;
}

TEST(Names, LeaveOutWhatToolkitsSayInsteadOfAName) {
  struct Row {
    const char* name;
    AtspiRole role;
    const Toolkit& toolkit;
    const char* expected;
  };
  const Row rows[] = {{"GtkButton", AtspiRole::pushButton, gtk4, ""},
                      {"AdwGizmo", AtspiRole::filler, gtk4, ""},
                      {"GtkButton", AtspiRole::pushButton, gtk3, "GtkButton"},
                      {"Gtk demo", AtspiRole::pushButton, gtk4, "Gtk demo"},
                      {"Gtk", AtspiRole::label, gtk4, "Gtk"},
                      {"Tab", AtspiRole::pageTab, gtk4, ""},
                      {"Tab", AtspiRole::pushButton, gtk4, "Tab"},
                      {"First", AtspiRole::pageTabList, qt, ""},
                      {"First", AtspiRole::pageTab, qt, "First"},
                      {"\u2022 Red buoy", AtspiRole::listItem, qt, "\u2022 Red buoy"},
                      {"  ", AtspiRole::pushButton, gtk3, ""}};
  for (const auto& row : rows) EXPECT_EQ(properName(row.name, row.role, row.toolkit), row.expected) << row.name;
}

TEST(Descriptions, AreDroppedWhereTheyOnlyRepeat) {
  auto slider = facts(AtspiRole::slider);
  slider.asked |= Ask::currentValue;
  slider.currentValue = 30;
  const std::pair<const char*, const char*> rows[] = {
      {"30", ""}, {"30.0", ""}, {"31", "31"}, {" ", ""}, {"30 dB", "30 dB"}, {"Volume", ""}, {"Loudness", "Loudness"}};
  slider.name = "Volume";
  for (const auto& [description, expected] : rows) {
    slider.description = description;
    EXPECT_EQ(properDescription(slider), expected);
  }
}

TEST(HiddenTexts, AreKnownByTheirBullets) {
  EXPECT_TRUE(isAllBullets("\u25CF\u25CF"));
  EXPECT_TRUE(isAllBullets("\u2022"));
  EXPECT_FALSE(isAllBullets("\u2022a"));
  EXPECT_FALSE(isAllBullets("**"));
  EXPECT_FALSE(isAllBullets(""));
}

TEST(Sandboxes, AreNamedByTheirControlGroup) {
  EXPECT_EQ(sandboxedApplication("0::/user.slice/app.slice/app-flatpak-org.example.App-4711.scope\n"),
            "org.example.App");
  EXPECT_EQ(sandboxedApplication("0::/user.slice/session-2.scope\n"), std::nullopt);
  EXPECT_EQ(sandboxedApplication("0::/app-flatpak-.scope"), std::nullopt);
  EXPECT_EQ(sandboxedApplication(""), std::nullopt);
}

TEST(Toolkits, AreToldByNameAndVersion) {
  EXPECT_EQ(&toolkitNamed("gtk", "3.24.38", ""), &gtk3);
  EXPECT_EQ(&toolkitNamed("GTK", "4.8.3", ""), &gtk4);
  EXPECT_EQ(&toolkitNamed("Qt", "5.15", ""), &qt);
  EXPECT_EQ(&toolkitNamed("Chromium", "156", ""), &chromium);
  EXPECT_EQ(&toolkitNamed("Gecko", "153", ""), &gecko);
  EXPECT_EQ(&toolkitNamed("", "", ""), &unknownToolkit);
}

class Resting : public testing::Test {
 protected:
  RestingApplications applications_;
  const RestingApplications::TimePoint start_{};
  static constexpr auto first_ = RestingApplications::firstRest;
};

TEST_F(Resting, EndsByItselfAndGrowsWithEveryMissedChance) {
  applications_.didNotAnswer(":1.5", start_);
  EXPECT_TRUE(applications_.isResting(":1.5", start_ + first_ - 1ms));
  EXPECT_FALSE(applications_.isResting(":1.5", start_ + first_));
  EXPECT_FALSE(applications_.isResting(":1.6", start_));
  applications_.didNotAnswer(":1.5", start_ + first_);
  EXPECT_TRUE(applications_.isResting(":1.5", start_ + first_ + 2 * first_ - 1ms));
  EXPECT_FALSE(applications_.isResting(":1.5", start_ + first_ + 2 * first_));
}

TEST_F(Resting, NeverGrowsBeyondItsLongest) {
  auto now = start_;
  for (int i = 0; i < 20; ++i, now += RestingApplications::longestRest) applications_.didNotAnswer(":1.5", now);
  EXPECT_FALSE(applications_.isResting(":1.5", now));
}

TEST_F(Resting, IsEndedByOneEventAndNotByTheNextOnes) {
  applications_.didNotAnswer(":1.5", start_);
  applications_.sentEvent(":1.5", start_);
  EXPECT_FALSE(applications_.isResting(":1.5", start_));
  applications_.showedLife(":1.5");  // an answer to another question
  applications_.didNotAnswer(":1.5", start_);
  const auto nextChance = start_ + RestingApplications::pauseBetweenChances;
  applications_.sentEvent(":1.5", nextChance - 1ms);
  EXPECT_TRUE(applications_.isResting(":1.5", nextChance - 1ms));
  applications_.sentEvent(":1.5", nextChance);
  EXPECT_FALSE(applications_.isResting(":1.5", nextChance));
}

TEST_F(Resting, EndsWithASignOfLife) {
  applications_.didNotAnswer(":1.5", start_);
  EXPECT_EQ(applications_.count(start_), 1U);
  applications_.showedLife(":1.5");
  EXPECT_FALSE(applications_.isResting(":1.5", start_));
  EXPECT_EQ(applications_.count(start_), 0U);
}

class Highlights : public testing::Test {
 protected:
  AtspiReference click(HighlightedItems::TimePoint when, CGPoint where = {15, 15}) {
    return items_.clicked(where, when);
  }

  HighlightedItems items_;
  const HighlightedItems::TimePoint start_{};
  const AtspiReference open_{":1.5", "/open"};
  const AtspiReference save_{":1.5", "/save"};
  const AtspiReference comboBox_{":1.5", "/combo"};
  const AtspiRectangle place_{10, 10, 100, 20};
  const AtspiRectangle below_{10, 30, 100, 20};
};

TEST_F(Highlights, AreFoundWhereTheyAreAndAMomentAfter) {
  items_.highlighted(open_, place_, {}, start_);
  EXPECT_EQ(click(start_ + 5000ms, {15, 45}), AtspiReference{});
  items_.left(":1.5", start_ + 5000ms);
  EXPECT_EQ(click(start_ + 5000ms + HighlightedItems::grace - 1ms), open_);
  EXPECT_EQ(click(start_ + 5000ms + HighlightedItems::grace), AtspiReference{});
}

TEST_F(Highlights, EndWithTheClick) {
  items_.highlighted(open_, place_, {}, start_);
  EXPECT_EQ(click(start_ + 1000ms), open_);
  EXPECT_EQ(click(start_ + 1010ms), open_) << "the second look at the same click";
  EXPECT_EQ(click(start_ + 2000ms), AtspiReference{});
}

TEST_F(Highlights, GiveTheComboBoxWhileItsListHasOnlyJustOpened) {
  items_.highlighted(open_, place_, comboBox_, start_);
  EXPECT_EQ(click(start_ + 50ms), comboBox_);
  EXPECT_EQ(click(start_ + HighlightedItems::openingClick), open_);
}

TEST_F(Highlights, GiveTheItemThatTheUserMovedTo) {
  items_.highlighted(open_, place_, comboBox_, start_);
  items_.left(":1.5", start_ + 30ms);
  items_.highlighted(save_, below_, comboBox_, start_ + 30ms);
  EXPECT_EQ(click(start_ + 50ms, {15, 35}), save_);
}

}  // namespace
}  // namespace norra::linux_desktop
