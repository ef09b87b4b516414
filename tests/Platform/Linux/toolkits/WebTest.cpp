// What Chromium and Gecko mean by the elements of pages.
#include <gmock/gmock.h>

#include <atomic>

#include "tests/Platform/Linux/TestElements.h"

namespace norra::linux_desktop {
namespace {

constexpr auto editable = bit(AtspiState::editable);
constexpr auto focusable = bit(AtspiState::focusable);
constexpr auto multiLine = bit(AtspiState::multiLine);
constexpr auto expandable = bit(AtspiState::expandable);

class Web : public FakeApplicationTest, public testing::WithParamInterface<std::pair<const char*, const char*>> {
 protected:
  Web() : FakeApplicationTest(GetParam().first, GetParam().second) {}

  std::string described(const std::string& key) {
    elements_.epoch.begin();
    return text(key, "AXRole").value_or("") + " " + text(key, "AXSubrole").value_or("");
  }
};

TEST_P(Web, CallsElementsByWhatTheyAreForWhoSeesThePage) {
  const std::map<std::string, std::string> none{{"tag", "div"}};
  const auto called = [](const char* role) {
    return std::map<std::string, std::string>{{"tag", "div"}, {"xml-roles", role}};
  };
  const std::pair<FakeElement, const char*> rows[] = {
      {{.role = AtspiRole::section, .attributes = none}, "AXGroup "},
      {{.role = AtspiRole::section, .states = editable | focusable | multiLine, .attributes = none}, "AXTextArea "},
      {{.role = AtspiRole::section, .states = editable, .attributes = none}, "AXGroup "},
      {{.role = AtspiRole::section, .interfaces = {"Action"}, .attributes = none, .actions = {"click"}}, "AXButton "},
      {{.role = AtspiRole::section, .interfaces = {"Action"}, .attributes = none, .actions = {"clickAncestor"}},
       "AXGroup "},
      {{.role = AtspiRole::section,
        .interfaces = {"Action"},
        .children = {"inside", "other"},
        .attributes = none,
        .actions = {"click"}},
       "AXGroup "},
      {{.role = AtspiRole::section,
        .interfaces = {"Action"},
        .children = {"title", "words"},
        .attributes = none,
        .actions = {"click"}},
       "AXButton "},
      {{.role = AtspiRole::heading, .interfaces = {"Action"}, .attributes = none, .actions = {"click"}}, "AXButton "},
      {{.role = AtspiRole::staticText, .interfaces = {"Action"}, .actions = {"click"}}, "AXStaticText "},
      {{.role = AtspiRole::image, .states = focusable, .interfaces = {"Action"}, .actions = {"click"}}, "AXButton "},
      {{.role = AtspiRole::image, .interfaces = {"Action"}, .actions = {"click"}}, "AXImage "},
      {{.role = AtspiRole::entry, .states = editable | multiLine, .attributes = called("searchbox")},
       "AXTextField AXSearchField"},
      {{.role = AtspiRole::entry, .states = editable | multiLine, .attributes = called("textbox")}, "AXTextArea "},
      {{.role = AtspiRole::pushButton, .states = expandable}, "AXCheckBox AXToggle"},
      {{.role = AtspiRole::pushButton, .states = expandable | bit(AtspiState::hasPopup)}, "AXMenuButton "},
      {{.role = AtspiRole::documentFrame, .attributes = called("document")}, "AXGroup "},
      {{.role = AtspiRole::documentFrame}, "AXWebArea "},
      {{.role = AtspiRole::columnHeader}, "AXCell "},
      {{.role = AtspiRole::columnHeader, .states = focusable}, "AXButton AXSortButton"},
      {{.role = AtspiRole::menuItem, .parent = "bar", .attributes = called("menuitem")}, "AXMenuItem "},
      {{.role = AtspiRole::menuItem, .parent = "bar"}, "AXMenuBarItem "},
  };
  application_.set("bar", {.role = AtspiRole::menuBar});
  application_.set("title", {.role = AtspiRole::heading, .name = "Charts"});
  application_.set("words", {.role = AtspiRole::paragraph});
  for (const auto& [element, expected] : rows) {
    application_.set("it", element);
    EXPECT_EQ(described("it"), expected) << static_cast<int>(element.role) << " " << element.states;
  }
}

TEST_P(Web, OffersToTypeIntoWhatAPageMakesAnEditorOf) {
  const FakeElement editor{
      .role = AtspiRole::section, .states = editable | focusable | multiLine, .attributes = {{"tag", "div"}}};
  application_.set("it", editor);
  EXPECT_THAT(element("it").primitives().copyActionNames().value, testing::ElementsAre("AXConfirm"));
}

TEST_P(Web, TellsWhetherADisclosureIsOpen) {
  for (const auto& [states, expected] :
       {std::pair(expandable, 0), std::pair(expandable | bit(AtspiState::expanded), 1)}) {
    elements_.epoch.begin();
    application_.set("summary", {.role = AtspiRole::toggleButton, .states = states});
    EXPECT_EQ(read<NSNumber>("summary", "AXValue"), NSNumber{std::int64_t{expected}});
  }
}

TEST_P(Web, TellsWhatOneThatHasGoneMeanwhileWasByItsRole) {
  application_.answer("GetLocalizedRoleName", [this](sd_bus_message* call) {
    application_.set("option", {.role = AtspiRole{}});
    return sd_bus_reply_method_return(call, "s", "invalid");
  });
  application_.set("option", {.role = AtspiRole::listItem});
  EXPECT_EQ(text("option", "AXRoleDescription"), std::nullopt);
  application_.answer("GetLocalizedRoleName",
                      [](sd_bus_message* call) { return sd_bus_reply_method_return(call, "s", "list item"); });
  application_.set("option", {.role = AtspiRole::listItem});
  elements_.epoch.begin();
  EXPECT_EQ(text("option", "AXRoleDescription"), "list item");
}

class Select : public Web {
 protected:
  Select() {
    application_.set("select", {.role = AtspiRole::comboBox, .name = "Cargo", .children = {"list"}});
    application_.set(
        "list",
        {.role = AtspiRole::menu, .interfaces = {"Selection"}, .parent = "select", .children = {"tea", "salt"}});
    for (const auto* name : {"tea", "salt"}) {
      application_.set(name, {.role = AtspiRole::menuItem, .name = name, .parent = "list"});
    }
    application_.answer("GetSelectedChild", [this](sd_bus_message* call) {
      const auto chosen = reference(chosen_.load());
      return sd_bus_reply_method_return(call, "(so)", chosen.busName.c_str(), chosen.path.c_str());
    });
  }
  AtspiReference followedAfter(const char* key) {
    elements_.epoch.begin();
    elements_.focus.arrived(reference(key));
    return elements_.focus.settle(reference(key).busName);
  }

  std::atomic<const char*> chosen_ = "salt";
};

TEST_P(Select, HoldsWhatIsChosenInItsClosedList) {
  EXPECT_EQ(text("select", "AXRole"), "AXPopUpButton");
  EXPECT_EQ(text("select", "AXValue"), "salt");
}

TEST_P(Select, GetsTheKeysForItsOpenListAndIsNewsOnlyWhenItCloses) {
  const auto select = reference("select");
  const auto application = elements_.session.applications.of(select.busName);
  EXPECT_EQ(followedAfter("salt"), select);
  EXPECT_EQ(application->focus.open(), select);
  chosen_ = "tea";
  EXPECT_EQ(followedAfter("tea"), select);
  EXPECT_EQ(followedAfter("select"), select);
  EXPECT_TRUE(application->focus.open().isNull());
  const auto former = application->takeFormerValue(select);
  ASSERT_TRUE(former);
  EXPECT_EQ(std::get<std::string>(*former), "salt");
  EXPECT_FALSE(application->takeFormerValue(select));
}

TEST_P(Web, TakesAControlInALinkForNoPartOfIt) {
  application_.set("page", {.role = AtspiRole::documentWeb});
  application_.set("card", {.role = AtspiRole::link, .parent = "page"});
  application_.set("heart", {.role = AtspiRole::pushButton, .parent = "card"});
  application_.set("words", {.role = AtspiRole::heading, .parent = "card"});
  const auto parentOf = [this](const char* key) {
    return std::get<AXUIElement>(element(key).primitives().copyAttributeValue("AXParent").value);
  };
  EXPECT_EQ(parentOf("heart"), element("page"));
  EXPECT_EQ(parentOf("words"), element("card"));
}

TEST_P(Web, LooksForOptionsInWhatTheFocusHasOpened) {
  application_.set("window", {.role = AtspiRole::frame, .children = {"behind"}});
  application_.set("behind", {.role = AtspiRole::pushButton, .parent = "window"});
  application_.set("opener", {.role = AtspiRole::comboBox,
                              .states = bit(AtspiState::expanded),
                              .relations = {{AtspiRelationType::controllerFor, "list"}}});
  application_.set("list", {.role = AtspiRole::listBox, .children = {"option"}, .extents = {0, 0, 20, 20}});
  application_.set(
      "option",
      {.role = AtspiRole::listItem, .states = bit(AtspiState::showing), .parent = "list", .extents = {0, 0, 20, 10}});
  ElementView window(elements_.session.reader(), application_.reference("window"));
  window.need(Ask::role);
  const auto opener = [this] { return application_.reference("opener"); };
  const auto found = window.toolkit().elementAt(window, {.point = {5, 5}, .window = {}, .focusedBefore = opener});
  EXPECT_EQ(found, application_.reference(window.toolkit().guessesAtFirst ? "option" : "behind"));
}

TEST_P(Web, ClicksWhatALabelTicksButNotALinkInIt) {
  for (const auto& [inner, expected] : {std::pair(AtspiRole::section, "box"), std::pair(AtspiRole::link, "inner")}) {
    application_.set("window", {.role = AtspiRole::frame, .children = {"label", "inner"}});
    application_.set("label", {.role = AtspiRole::label, .relations = {{AtspiRelationType::labelFor, "box"}}});
    application_.set("inner", {.role = inner, .parent = "label"});
    application_.set("box", {.role = AtspiRole::checkBox, .name = "Oil"});
    elements_.epoch.begin();
    const auto application = elements_.session.applications.of(reference("window").busName);
    view("window").need(Ask::role);
    const auto found = application->toolkit().elementAt(view("window"), {.point = {5, 5}, .window = {}});
    EXPECT_EQ(found, reference(expected));
  }
}

constexpr auto browserName = [](const auto& browser) { return std::string(browser.param.first); };
const auto browsers = testing::Values(std::pair("Chromium", "156.0"), std::pair("Gecko", "153.0"));
INSTANTIATE_TEST_SUITE_P(Browsers, Web, browsers, browserName);
INSTANTIATE_TEST_SUITE_P(Browsers, Select, browsers, browserName);

}  // namespace
}  // namespace norra::linux_desktop
