#include <gtest/gtest.h>

#include "NorraDataCollector/interpretation/NameSearch.h"
#include "Platform/Simulated/Desktop.h"

namespace norra {
namespace {

using simulated::Attributes;
using simulated::ElementReference;

class NameSearchTest : public testing::Test {
 protected:
  AXUIElement add(const std::string& identifier, const std::string& role, Attributes attributes = {},
                  std::vector<std::string> actions = {}) {
    attributes["AXRole"] = role;
    return desktop_.add(identifier, {.process = 1, .attributes = attributes, .actions = std::move(actions)});
  }

  /// Adds a group of children that must exist.
  AXUIElement addGroup(const std::string& identifier, const std::vector<ElementReference>& children,
                       const std::string& role = "AXGroup") {
    for (const auto& child : children)
      desktop_.setAttributes(child.identifier, {{"AXParent", ElementReference{identifier}}});
    return add(identifier, role, {{"AXChildren", children}});
  }

  std::string found(const AXUIElement& element, SearchDirections directions = SearchDirections::children,
                    bool imagesCount = false) {
    const auto result = searchName(element, directions, imagesCount);
    return result ? result->name : "(none)";
  }

  simulated::Desktop desktop_;
};

TEST_F(NameSearchTest, TakesATextBeforeAControlAndTheSecondControlBeforeTheFirst) {
  add("cancel", "AXButton", {{"AXTitle", "Cancel"}});
  add("ok", "AXButton", {{"AXTitle", "OK"}});
  add("label", "AXStaticText", {{"AXValue", "Name"}});
  EXPECT_EQ(found(addGroup("one", {{"ok"}})), "OK");
  EXPECT_EQ(found(addGroup("two", {{"cancel"}, {"ok"}})), "OK");
  EXPECT_EQ(found(addGroup("three", {{"cancel"}, {"label"}, {"ok"}})), "Name");
  add("nameless", "AXGroup");
  EXPECT_EQ(found(addGroup("four", {{"cancel"}, {"nameless"}})), "Cancel");
}

TEST_F(NameSearchTest, CountsImagesOnlyWhenAsked) {
  add("image", "AXImage", {{"AXDescription", "Warning"}});
  const auto group = addGroup("group", {{"image"}});
  EXPECT_EQ(found(group), "(none)");
  EXPECT_EQ(found(group, SearchDirections::children, true), "Warning");
}

TEST_F(NameSearchTest, VisitsTwelveElementsOnAPath) {
  std::vector<ElementReference> children;
  for (int index = 0; index < 11; ++index) {
    add("empty" + std::to_string(index), "AXGroup");
    children.push_back({"empty" + std::to_string(index)});
  }
  add("late", "AXStaticText", {{"AXTitle", "Late"}});
  children.push_back({"late"});
  EXPECT_EQ(found(addGroup("twelve", children)), "Late");
  add("empty11", "AXGroup");
  children.insert(children.begin(), {"empty11"});
  EXPECT_EQ(found(addGroup("thirteen", children)), "(none)");
}

TEST_F(NameSearchTest, ClimbsThreeLevelsAndNotOutOfARow) {
  add("label", "AXStaticText", {{"AXTitle", "Far"}});
  add("element", "AXGroup");
  addGroup("first", {{"element"}});
  addGroup("second", {{"first"}});
  addGroup("third", {{"second"}, {"label"}});
  const auto element = AXUIElement(desktop_.accessibility().element({"element"}).shared_from_this());
  EXPECT_EQ(found(element), "(none)");
  EXPECT_EQ(found(element, SearchDirections::both), "Far");
  addGroup("third", {{"second"}});
  addGroup("fourth", {{"third"}, {"label"}});
  EXPECT_EQ(found(element, SearchDirections::both), "(none)");
  addGroup("first", {{"element"}, {"label"}}, "AXRow");
  EXPECT_EQ(found(element, SearchDirections::both), "Far");
  addGroup("first", {{"element"}}, "AXRow");
  addGroup("second", {{"first"}, {"label"}});
  EXPECT_EQ(found(element, SearchDirections::both), "(none)");
}

TEST_F(NameSearchTest, ReadsNoMoreOfManyChildren) {
  add("empty", "AXGroup");
  const auto list = addGroup("list", std::vector<ElementReference>(10'000, ElementReference{"empty"}));
  desktop_.accessibility().takeCalls();
  EXPECT_EQ(found(list), "(none)");
  EXPECT_LT(desktop_.accessibility().takeCalls()["AXUIElementCopyAttributeValue"], 100);
}

}  // namespace
}  // namespace norra
