#include <gmock/gmock.h>

#include "Platform/Linux/elements/Naming.h"
#include "Platform/Linux/elements/Text.h"
#include "Platform/Linux/toolkits/Toolkits.h"

namespace norra::linux_desktop {
namespace {

TEST(Names, LeaveOutWhatToolkitsSayInsteadOfAName) {
  struct Row {
    const char* name;
    AtspiRole role;
    const Toolkit& toolkit;
    const char* expected;
  };
  const Row rows[] = {{"GtkButton", AtspiRole::pushButton, gtk4, ""},
                      {"EditorSearchEntry", AtspiRole::text, gtk4, ""},
                      {"SearchEntry", AtspiRole::text, gtk4, "SearchEntry"},
                      {"NautilusNameCell", AtspiRole::listItem, gtk4, ""},
                      {"GcalDateChooserDay", AtspiRole::pushButton, gtk4, ""},
                      {"ClocksWindow", AtspiRole::window, gtk4, ""},
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
  auto slider = AtspiFacts{};
  slider.asked |= Ask::currentValue;
  slider.currentValue = 30;
  const std::pair<const char*, const char*> rows[] = {{"30", ""},         {"30.0", ""},     {"30,0", ""},
                                                      {"31", "31"},       {"30,1", "30,1"}, {" ", ""},
                                                      {"30 dB", "30 dB"}, {"Volume", ""},   {"Loudness", "Loudness"}};
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

}  // namespace
}  // namespace norra::linux_desktop
