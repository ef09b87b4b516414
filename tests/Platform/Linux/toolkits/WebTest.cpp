// What Chromium and Gecko mean by the elements of pages.
#include <gmock/gmock.h>

#include <atomic>

#include "tests/Platform/Linux/FakeApplication.h"
#include "tests/Platform/Linux/PrivateBus.h"
#include "tests/Platform/Linux/TestElements.h"

namespace norra::linux_desktop {
namespace {

constexpr std::uint64_t bit(AtspiState state) { return std::uint64_t{1} << static_cast<unsigned>(state); }
constexpr auto number(AtspiRole role) { return static_cast<std::uint32_t>(role); }
constexpr auto editable = bit(AtspiState::editable);
constexpr auto focusable = bit(AtspiState::focusable);
constexpr auto multiLine = bit(AtspiState::multiLine);
constexpr auto expandable = bit(AtspiState::expandable);

class Web : public testing::TestWithParam<std::pair<const char*, const char*>> {
 protected:
  AXUIElement element(const std::string& key) { return elements_.handles.element(application_.reference(key)); }
  std::optional<std::string> text(const std::string& key, const char* attribute) {
    const auto result = element(key).primitives().copyAttributeValue(attribute);
    const auto* value = std::get_if<std::string>(&result.value);
    return value ? std::optional(*value) : std::nullopt;
  }
  std::string described(const std::string& key) {
    elements_.epoch.begin();
    return text(key, "AXRole").value_or("") + " " + text(key, "AXSubrole").value_or("");
  }

  PrivateAccessibilityBus bus_;
  OneWindow windows_;
  TestElements elements_{windows_};
  FakeApplication application_{GetParam().first, GetParam().second};
};

TEST_P(Web, CallsElementsByWhatTheyAreForWhoSeesThePage) {
  const std::map<std::string, std::string> none{{"tag", "div"}};
  const auto called = [](const char* role) {
    return std::map<std::string, std::string>{{"tag", "div"}, {"xml-roles", role}};
  };
  const std::pair<FakeElement, const char*> rows[] = {
      {{.role = number(AtspiRole::section), .attributes = none}, "AXGroup "},
      {{.role = number(AtspiRole::section), .states = editable | focusable | multiLine, .attributes = none},
       "AXTextArea "},
      {{.role = number(AtspiRole::section), .states = editable, .attributes = none}, "AXGroup "},
      {{.role = number(AtspiRole::section), .interfaces = {"Action"}, .attributes = none, .actions = {"click"}},
       "AXButton "},
      {{.role = number(AtspiRole::section), .interfaces = {"Action"}, .attributes = none, .actions = {"clickAncestor"}},
       "AXGroup "},
      {{.role = number(AtspiRole::section),
        .interfaces = {"Action"},
        .children = {"inside", "other"},
        .attributes = none,
        .actions = {"click"}},
       "AXGroup "},
      {{.role = number(AtspiRole::image), .states = focusable, .interfaces = {"Action"}, .actions = {"click"}},
       "AXButton "},
      {{.role = number(AtspiRole::image), .interfaces = {"Action"}, .actions = {"click"}}, "AXImage "},
      {{.role = number(AtspiRole::entry), .states = editable | multiLine, .attributes = called("searchbox")},
       "AXTextField AXSearchField"},
      {{.role = number(AtspiRole::entry), .states = editable | multiLine, .attributes = called("textbox")},
       "AXTextArea "},
      {{.role = number(AtspiRole::pushButton), .states = expandable}, "AXCheckBox AXToggle"},
      {{.role = number(AtspiRole::pushButton), .states = expandable | bit(AtspiState::hasPopup)}, "AXMenuButton "},
      {{.role = number(AtspiRole::documentFrame), .attributes = called("document")}, "AXGroup "},
      {{.role = number(AtspiRole::documentFrame)}, "AXWebArea "},
      {{.role = number(AtspiRole::columnHeader)}, "AXCell "},
      {{.role = number(AtspiRole::columnHeader), .states = focusable}, "AXButton AXSortButton"},
      {{.role = number(AtspiRole::menuItem), .parent = "bar", .attributes = called("menuitem")}, "AXMenuItem "},
      {{.role = number(AtspiRole::menuItem), .parent = "bar"}, "AXMenuBarItem "},
  };
  application_.set("bar", {.role = number(AtspiRole::menuBar)});
  for (const auto& [element, expected] : rows) {
    application_.set("it", element);
    EXPECT_EQ(described("it"), expected) << element.role << " " << element.states;
  }
}

TEST_P(Web, TellsWhetherADisclosureIsOpen) {
  for (const auto& [states, expected] :
       {std::pair(expandable, 0), std::pair(expandable | bit(AtspiState::expanded), 1)}) {
    elements_.epoch.begin();
    application_.set("summary", {.role = number(AtspiRole::toggleButton), .states = states});
    const auto value = element("summary").primitives().copyAttributeValue("AXValue").value;
    EXPECT_EQ(std::get<NSNumber>(value), NSNumber{std::int64_t{expected}});
  }
}

class Select : public Web {
 protected:
  Select() {
    application_.set("select", {.role = number(AtspiRole::comboBox), .name = "Cargo", .children = {"list"}});
    application_.set("list", {.role = number(AtspiRole::menu),
                              .interfaces = {"Selection"},
                              .parent = "select",
                              .children = {"tea", "salt"}});
    for (const auto* name : {"tea", "salt"}) {
      application_.set(name, {.role = number(AtspiRole::menuItem), .name = name, .parent = "list"});
    }
    application_.answer("GetSelectedChild", [this](sd_bus_message* call) {
      const auto chosen = application_.reference(chosen_.load());
      return sd_bus_reply_method_return(call, "(so)", chosen.busName.c_str(), chosen.path.c_str());
    });
  }
  AtspiReference followedAfter(const char* key) {
    elements_.epoch.begin();
    elements_.focus.arrived(application_.reference(key));
    return elements_.focus.settle(application_.reference(key).busName);
  }

  std::atomic<const char*> chosen_ = "salt";
};

TEST_P(Select, HoldsWhatIsChosenInItsClosedList) {
  EXPECT_EQ(text("select", "AXRole"), "AXPopUpButton");
  EXPECT_EQ(text("select", "AXValue"), "salt");
}

TEST_P(Select, GetsTheKeysForItsOpenListAndIsNewsOnlyWhenItCloses) {
  const auto select = application_.reference("select");
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

TEST_P(Web, ClicksWhatALabelTicksButNotALinkInIt) {
  constexpr std::uint32_t labelFor = 1;
  for (const auto& [inner, expected] : {std::pair(AtspiRole::section, "box"), std::pair(AtspiRole::link, "inner")}) {
    application_.set("window", {.role = number(AtspiRole::frame), .children = {"label", "inner"}});
    application_.set("label", {.role = number(AtspiRole::label), .relations = {{labelFor, "box"}}});
    application_.set("inner", {.role = number(inner), .parent = "label"});
    application_.set("box", {.role = number(AtspiRole::checkBox), .name = "Oil"});
    elements_.epoch.begin();
    const auto application = elements_.session.applications.of(application_.reference("window").busName);
    ElementView(elements_.session.reader(), application_.reference("window")).need(Ask::role);
    const auto found = application->toolkit().elementAt({elements_.session.reader(), application_.reference("window")},
                                                        {.point = {5, 5}, .window = {}});
    EXPECT_EQ(found, application_.reference(expected));
  }
}

constexpr auto browserName = [](const auto& browser) { return std::string(browser.param.first); };
const auto browsers = testing::Values(std::pair("Chromium", "156.0"), std::pair("Gecko", "153.0"));
INSTANTIATE_TEST_SUITE_P(Browsers, Web, browsers, browserName);
INSTANTIATE_TEST_SUITE_P(Browsers, Select, browsers, browserName);

}  // namespace
}  // namespace norra::linux_desktop
