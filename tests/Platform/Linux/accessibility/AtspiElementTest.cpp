// Elements of applications that behave, that do not, and that are silent.
#include <gmock/gmock.h>

#include <cstdlib>

#include "tests/Platform/Linux/TestElements.h"

namespace norra::linux_desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const FakeElement button{.role = AtspiRole::pushButton, .name = "Save", .interfaces = {"Action"}, .actions = {"click"}};

FakeElement field(std::string text, std::string displayed = {}) {
  return {.role = AtspiRole::text,
          .states = bit(AtspiState::editable),
          .interfaces = {"Text"},
          .text = std::move(text),
          .displayedText = std::move(displayed)};
}

FakeElement passwordField(std::string text) {
  auto element = field(std::move(text));
  element.role = AtspiRole::passwordText;
  return element;
}

class Elements : public FakeApplicationTest {
 protected:
  AXUIElement elementOf(const FakeApplication& other, const std::string& key) {
    return elements_.handles.element(other.reference(key));
  }
  std::uint64_t waves() const { return elements_.session.shared.statistics.waves; }
};

TEST_F(Elements, AnswerWhatTheyAre) {
  application_.set("save", button);
  EXPECT_EQ(text("save", "AXRole"), "AXButton");
  EXPECT_EQ(text("save", "AXTitle"), "Save");
  EXPECT_EQ(text("save", "AXRoleDescription"), "some role");
  EXPECT_THAT(actions("save"), ElementsAre("AXPress"));
  EXPECT_EQ(element("save").primitives().getPid().value, getpid());
  EXPECT_EQ(element("save"), element("save"));
  EXPECT_FALSE(element("save") == element("open"));
}

TEST_F(Elements, AreReadOnceInAnEventAndAnewInTheNext) {
  application_.set("save", button);
  EXPECT_EQ(text("save", "AXTitle"), "Save");
  const auto calls = application_.calls();
  application_.set("save", {.role = AtspiRole::pushButton, .name = "Store"});
  for (const auto* attribute : {"AXRole", "AXSubrole", "AXTitle", "AXDescription", "AXTitleUIElement", "AXSelected"}) {
    element("save").primitives().copyAttributeValue(attribute);
  }
  EXPECT_EQ(text("save", "AXTitle"), "Save");
  EXPECT_EQ(application_.calls(), calls);
  elements_.epoch.begin();
  EXPECT_EQ(text("save", "AXTitle"), "Store");
}

TEST_F(Elements, NeedTwoWavesForTheNameOfAButton) {
  application_.set("save", button);
  text("save", "AXRoleDescription");  // what is read of an application once
  elements_.epoch.begin();
  const auto before = waves();
  for (const auto* attribute : {"AXRole", "AXURL", "AXTitle", "AXDescription", "AXPlaceholderValue", "AXValue",
                                "AXHelp", "AXIdentifier", "AXTitleUIElement", "AXSubrole", "AXRoleDescription"}) {
    element("save").primitives().copyAttributeValue(attribute);
  }
  EXPECT_LE(waves() - before, 2U);
}

TEST_F(Elements, ThatAreGoneGiveErrors) {
  EXPECT_EQ(element("gone").primitives().copyAttributeValue("AXRole").error, axError::invalidUIElement);
  EXPECT_EQ(text("gone", "AXTitle"), std::nullopt);
  EXPECT_THAT(actions("gone"), IsEmpty());
  application_.set("save", button);
  EXPECT_EQ(text("save", "AXTitle"), "Save");
  application_.remove("save");
  elements_.epoch.begin();
  EXPECT_EQ(text("save", "AXTitle"), std::nullopt);
}

TEST_F(Elements, WithAnswersOfWrongTypesGiveNothing) {
  application_.set("save", button);
  for (const auto* member : {"GetRole", "GetState", "GetInterfaces", "GetRelationSet", "ChildCount", "NActions"}) {
    application_.answerWith(member, "s", "not what was asked for");
  }
  EXPECT_EQ(element("save").primitives().copyAttributeValue("AXRole").error, axError::failure);
  EXPECT_EQ(text("save", "AXTitle"), "Save");
  EXPECT_THAT(read<std::vector<AXUIElement>>("save", "AXChildren").value(), IsEmpty());
  EXPECT_THAT(actions("save"), IsEmpty());
  EXPECT_EQ(read<AXUIElement>("save", "AXTitleUIElement"), std::nullopt);
}

TEST_F(Elements, WhoseParentsFormACircleHaveNoWindow) {
  application_.set("a", {.role = AtspiRole::panel, .parent = "b"});
  application_.set("b", {.role = AtspiRole::panel, .parent = "a"});
  EXPECT_EQ(read<AXUIElement>("a", "AXWindow"), std::nullopt);
  EXPECT_EQ(read<AXUIElement>("a", "AXParent"), element("b"));
}

TEST_F(Elements, WithAMillionChildrenAreAskedForAFew) {
  application_.set("list", {.role = AtspiRole::list});
  application_.answerWith("ChildCount", "v", "i", 1000000);
  application_.answerWith("GetChildAtIndex", "(so)", ":1.99", "/item");
  EXPECT_THAT(read<std::vector<AXUIElement>>("list", "AXChildren").value(), SizeIs(testing::Le(50)));
  EXPECT_EQ(application_.calls("GetChildren"), 0);
}

TEST_F(Elements, CutNamesOfAMegabyte) {
  application_.set("save", {.role = AtspiRole::pushButton, .name = std::string(1000000, 'x')});
  EXPECT_THAT(text("save", "AXTitle").value(), SizeIs(longestText));
}

TEST_F(Elements, WithPasswordsGiveBulletsAndAreNotAskedForTheirText) {
  application_.set("password", passwordField("secret"));
  EXPECT_EQ(text("password", "AXSubrole"), "AXSecureTextField");
  EXPECT_EQ(text("password", "AXValue"), "\u2022\u2022\u2022\u2022\u2022\u2022");
  EXPECT_EQ(application_.calls("GetText") + application_.calls("GetStringAtOffset"), 0);
}

TEST_F(Elements, ThatWerePasswordsOnceStayPasswords) {
  application_.set("password", passwordField("secret"));
  EXPECT_EQ(text("password", "AXSubrole"), "AXSecureTextField");
  application_.set("password", field("secret"));
  elements_.epoch.begin();
  EXPECT_EQ(text("password", "AXSubrole"), "AXSecureTextField");
  EXPECT_EQ(text("password", "AXValue")->find("secret"), std::string::npos);
  EXPECT_EQ(application_.calls("GetText"), 0);
}

TEST_F(Elements, WithoutAnAnswerAboutTheRoleAreNotAskedForTheirText) {
  application_.set("password", passwordField("secret"));
  application_.answer("GetRole", [](auto* call) {
    return sd_bus_reply_method_errorf(call, "org.freedesktop.DBus.Error.Failed", "busy");
  });
  EXPECT_EQ(text("password", "AXValue"), std::nullopt);
  EXPECT_EQ(application_.calls("GetText") + application_.calls("GetStringAtOffset"), 0);
}

TEST_F(Elements, OfOrdinaryFieldsGiveTheirText) {
  application_.set("field", field("kayak"));
  EXPECT_EQ(text("field", "AXRole"), "AXTextField");
  EXPECT_EQ(text("field", "AXSubrole"), std::nullopt);
  EXPECT_EQ(text("field", "AXValue"), "kayak");
}

TEST_F(Elements, LabelledByAPartOfThemselvesHaveNoTitleElement) {
  FakeApplication gtk4("GTK", "4.8.3");
  gtk4.set("key",
           {.role = AtspiRole::pushButton, .name = "5 5", .relations = {{AtspiRelationType::labelledBy, "label"}}});
  gtk4.set("label", {.role = AtspiRole::label, .name = "5", .parent = "box"});
  gtk4.set("box", {.role = AtspiRole::panel, .parent = "key"});
  gtk4.set("other", {.role = AtspiRole::text, .relations = {{AtspiRelationType::labelledBy, "label"}}});
  EXPECT_EQ(valueOf<AXUIElement>(elementOf(gtk4, "key"), "AXTitleUIElement"), std::nullopt);
  EXPECT_EQ(textOf(elementOf(gtk4, "key"), "AXTitle"), "5");
  EXPECT_EQ(valueOf<AXUIElement>(elementOf(gtk4, "other"), "AXTitleUIElement"), elementOf(gtk4, "label"));
}

TEST_F(Elements, ThatShowATextAreNotNamedByTheirTooltip) {
  application_.set("home", {.role = AtspiRole::listItem, .description = "Open your folder", .children = {"box"}});
  application_.set("box", {.role = AtspiRole::panel, .children = {"icon", "text"}});
  application_.set("icon", {.role = AtspiRole::icon, .name = "Add", .parent = "box"});
  application_.set("text", {.role = AtspiRole::label, .name = "Home", .states = bit(AtspiState::showing)});
  application_.set("eject", {.role = AtspiRole::pushButton, .description = "Unmount", .children = {"icon"}});
  EXPECT_EQ(text("home", "AXDescription"), std::nullopt);
  EXPECT_EQ(text("icon", "AXTitle"), std::nullopt);
  EXPECT_EQ(text("eject", "AXDescription"), "Unmount");
}

TEST_F(Elements, ThatOnlyDisplayBulletsAreSecureInGtk4) {
  FakeApplication gtk4("GTK", "4.8.3");
  gtk4.set("hidden", field("secret", "\u25CF\u25CF\u25CF\u25CF\u25CF\u25CF"));
  gtk4.set("shown", field("kayak", "kayak"));
  const auto hidden = elementOf(gtk4, "hidden");
  EXPECT_EQ(textOf(hidden, "AXSubrole"), "AXSecureTextField");
  EXPECT_EQ(textOf(hidden, "AXValue"), "\u2022\u2022\u2022\u2022\u2022\u2022");
  EXPECT_EQ(textOf(elementOf(gtk4, "shown"), "AXValue"), "kayak");
  EXPECT_EQ(gtk4.calls("GetText"), 0);
}

TEST_F(Elements, OfWebPagesHaveADomIdentifier) {
  FakeApplication browser("Chromium", "156");
  browser.set("named", {.attributes = {{"tag", "p"}, {"id", "intro"}}});
  browser.set("nameless", {.attributes = {{"tag", "p"}}});
  browser.set("toolbar", {.attributes = {{"id", "view_1036"}}});
  EXPECT_EQ(textOf(elementOf(browser, "named"), "AXDOMIdentifier"), "intro");
  EXPECT_EQ(textOf(elementOf(browser, "nameless"), "AXDOMIdentifier"), "");
  EXPECT_EQ(textOf(elementOf(browser, "toolbar"), "AXDOMIdentifier"), std::nullopt);
  EXPECT_EQ(text("root", "AXDOMIdentifier"), std::nullopt);
}

TEST_F(Elements, InAPageOfGtk3LieInTheTabListAndNotInTheTab) {
  application_.set("page", {.parent = "tab"});
  application_.set("tab", {.role = AtspiRole::pageTab, .parent = "tabs", .children = {"page"}});
  application_.set("tabs", {.role = AtspiRole::pageTabList});
  EXPECT_EQ(read<AXUIElement>("page", "AXParent"), element("tabs"));
  EXPECT_EQ(read<std::vector<AXUIElement>>("tab", "AXChildren"), std::nullopt);
}

TEST_F(Elements, AreTheGroupOfTheRadioButtonUnderThePointerWhateverWasReadBefore) {
  application_.set("radio", {.role = AtspiRole::radioButton, .parent = "row"});
  application_.set("row", {.role = AtspiRole::filler, .parent = "sizes"});
  application_.set("sizes", {.role = AtspiRole::panel, .parent = "all"});
  application_.set("all", {.role = AtspiRole::panel});
  EXPECT_EQ(text("sizes", "AXRole"), "AXGroup");
  read<AXUIElement>("radio", "AXParent");
  read<AXUIElement>("row", "AXParent");
  EXPECT_EQ(text("sizes", "AXRole"), "AXGroup");
  elements_.epoch.begin();
  elements_.session.reader().notePointed(application_.reference("radio"));
  EXPECT_EQ(text("sizes", "AXRole"), "AXRadioGroup");
  EXPECT_EQ(text("row", "AXRole"), "AXGroup");
  EXPECT_EQ(text("all", "AXRole"), "AXGroup");
}

TEST_F(Elements, OfASilentApplicationFailWithoutHarmToOthers) {
  FakeApplication silent;
  silent.set("save", button);
  application_.set("save", button);
  const auto slow = elementOf(silent, "save");
  EXPECT_EQ(textOf(slow, "AXTitle"), "Save");
  silent.setSilent(true);
  elements_.epoch.begin();
  EXPECT_EQ(slow.primitives().copyAttributeValue("AXRole").error, axError::cannotComplete);
  EXPECT_GT(elements_.session.shared.statistics.timeOuts, 0U);
  const auto reads = elements_.session.shared.statistics.reads.load();
  elements_.epoch.begin();
  EXPECT_EQ(slow.primitives().copyAttributeValue("AXRole").error, axError::cannotComplete);
  EXPECT_EQ(elements_.session.shared.statistics.reads, reads) << "it rests and is not asked";
  EXPECT_EQ(text("save", "AXTitle"), "Save");
}

TEST_F(Elements, OfAnApplicationThatGoesOnAreReadAgain) {
  application_.set("save", button);
  EXPECT_EQ(text("save", "AXTitle"), "Save");
  application_.setSilent(true);
  elements_.epoch.begin();
  EXPECT_EQ(text("save", "AXTitle"), std::nullopt);
  const auto asked = application_.calls("GetRole");
  application_.setSilent(false);
  while (application_.calls("GetRole") == asked) std::this_thread::yield();  // until it answers what it was asked
  FakeApplication other;
  other.set("open", button);
  // Its late answers, which must not be taken for others', are the sign of life.
  std::optional<std::string> name;
  for (int i = 0; i < 1000 && !name; ++i) {
    elements_.epoch.begin();
    EXPECT_EQ(textOf(elementOf(other, "open"), "AXTitle"), "Save");
    name = text("save", "AXTitle");
  }
  EXPECT_EQ(name, "Save");
}

TEST_F(Elements, GiveErrorsWithoutABus) {
  setenv("AT_SPI_BUS_ADDRESS", "unix:path=/nowhere", 1);
  TestElements lost(windows_);
  const auto orphan = lost.handles.element(application_.reference("save"));
  EXPECT_EQ(orphan.primitives().copyAttributeValue("AXRole").error, axError::cannotComplete);
  EXPECT_NE(orphan.primitives().getPid().error, axError::success);
}

}  // namespace
}  // namespace norra::linux_desktop
