// Elements of applications that behave, that do not, and that are silent.
#include <gmock/gmock.h>

#include <cstdlib>

#include "Platform/Linux/atspi/AtspiRole.h"
#include "tests/Platform/Linux/FakeApplication.h"
#include "tests/Platform/Linux/PrivateBus.h"
#include "tests/Platform/Linux/TestElements.h"

namespace norra::linux_desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::uint64_t bit(AtspiState state) { return std::uint64_t{1} << static_cast<unsigned>(state); }
constexpr auto number(AtspiRole role) { return static_cast<std::uint32_t>(role); }

const FakeElement button{
    .role = number(AtspiRole::pushButton), .name = "Save", .interfaces = {"Action"}, .actions = {"click"}};

FakeElement field(std::string text, std::string displayed = {}) {
  return {.role = number(AtspiRole::text),
          .states = bit(AtspiState::editable),
          .interfaces = {"Text"},
          .text = std::move(text),
          .displayedText = std::move(displayed)};
}

FakeElement passwordField(std::string text) {
  auto element = field(std::move(text));
  element.role = number(AtspiRole::passwordText);
  return element;
}

int replyText(sd_bus_message* call) { return sd_bus_reply_method_return(call, "s", "not what was asked for"); }

class Elements : public testing::Test {
 protected:
  template <typename Value>
  std::optional<Value> read(const AXUIElement& element, const char* attribute) {
    const auto result = element.primitives().copyAttributeValue(attribute);
    const auto* value = std::get_if<Value>(&result.value);
    return result.error == axError::success && value ? std::optional(*value) : std::nullopt;
  }
  std::optional<std::string> text(const AXUIElement& element, const char* attribute) {
    return read<std::string>(element, attribute);
  }
  std::optional<std::string> text(const std::string& key, const char* attribute) {
    return text(element(key), attribute);
  }
  AXUIElement element(const std::string& key) { return elements_.handles.element(application_.reference(key)); }
  std::vector<std::string> actions(const std::string& key) { return element(key).primitives().copyActionNames().value; }
  std::uint64_t waves() const { return elements_.session.shared.statistics.waves; }

  PrivateAccessibilityBus bus_;
  NoWindowsOnScreen windows_;
  TestElements elements_{windows_};
  FakeApplication application_;
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
  application_.set("save", {.role = number(AtspiRole::pushButton), .name = "Store"});
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
  text("save", "AXRole");  // what is read of an application once
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
    application_.answer(member, replyText);
  }
  EXPECT_EQ(element("save").primitives().copyAttributeValue("AXRole").error, axError::failure);
  EXPECT_EQ(text("save", "AXTitle"), "Save");
  EXPECT_THAT(read<std::vector<AXUIElement>>(element("save"), "AXChildren").value(), IsEmpty());
  EXPECT_THAT(actions("save"), IsEmpty());
  EXPECT_EQ(read<AXUIElement>(element("save"), "AXTitleUIElement"), std::nullopt);
}

TEST_F(Elements, WhoseParentsFormACircleHaveNoWindow) {
  application_.set("a", {.role = number(AtspiRole::panel), .parent = "b"});
  application_.set("b", {.role = number(AtspiRole::panel), .parent = "a"});
  EXPECT_EQ(read<AXUIElement>(element("a"), "AXWindow"), std::nullopt);
  EXPECT_EQ(read<AXUIElement>(element("a"), "AXParent"), element("b"));
}

TEST_F(Elements, WithAMillionChildrenAreAskedForAFew) {
  application_.set("list", {.role = number(AtspiRole::list)});
  application_.answer("ChildCount", [](auto* call) { return sd_bus_reply_method_return(call, "v", "i", 1000000); });
  application_.answer("GetChildAtIndex",
                      [](auto* call) { return sd_bus_reply_method_return(call, "(so)", ":1.99", "/item"); });
  EXPECT_THAT(read<std::vector<AXUIElement>>(element("list"), "AXChildren").value(), SizeIs(testing::Le(50)));
  EXPECT_EQ(application_.calls("GetChildren"), 0);
}

TEST_F(Elements, CutNamesOfAMegabyte) {
  application_.set("save", {.role = number(AtspiRole::pushButton), .name = std::string(1000000, 'x')});
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
  gtk4.set("key", {.role = number(AtspiRole::pushButton), .name = "5 5", .relations = {{2, "label"}}});
  gtk4.set("label", {.role = number(AtspiRole::label), .name = "5", .parent = "box"});
  gtk4.set("box", {.role = number(AtspiRole::panel), .parent = "key"});
  gtk4.set("other", {.role = number(AtspiRole::text), .relations = {{2, "label"}}});
  EXPECT_EQ(read<AXUIElement>(elements_.handles.element(gtk4.reference("key")), "AXTitleUIElement"), std::nullopt);
  EXPECT_EQ(text(elements_.handles.element(gtk4.reference("key")), "AXTitle"), "5");
  EXPECT_EQ(read<AXUIElement>(elements_.handles.element(gtk4.reference("other")), "AXTitleUIElement"),
            elements_.handles.element(gtk4.reference("label")));
}

TEST_F(Elements, ThatShowATextAreNotNamedByTheirTooltip) {
  application_.set("home",
                   {.role = number(AtspiRole::listItem), .description = "Open your folder", .children = {"box"}});
  application_.set("box", {.role = number(AtspiRole::panel), .children = {"icon", "text"}});
  application_.set("icon", {.role = number(AtspiRole::icon), .name = "Add", .parent = "box"});
  application_.set("text", {.role = number(AtspiRole::label), .name = "Home", .states = bit(AtspiState::showing)});
  application_.set("eject", {.role = number(AtspiRole::pushButton), .description = "Unmount", .children = {"icon"}});
  EXPECT_EQ(text("home", "AXDescription"), std::nullopt);
  EXPECT_EQ(text("icon", "AXTitle"), std::nullopt);
  EXPECT_EQ(text("eject", "AXDescription"), "Unmount");
}

TEST_F(Elements, ThatOnlyDisplayBulletsAreSecureInGtk4) {
  FakeApplication gtk4("GTK", "4.8.3");
  gtk4.set("hidden", field("secret", "\u25CF\u25CF\u25CF\u25CF\u25CF\u25CF"));
  gtk4.set("shown", field("kayak", "kayak"));
  const auto hidden = elements_.handles.element(gtk4.reference("hidden"));
  EXPECT_EQ(text(hidden, "AXSubrole"), "AXSecureTextField");
  EXPECT_EQ(text(hidden, "AXValue"), "\u2022\u2022\u2022\u2022\u2022\u2022");
  EXPECT_EQ(text(elements_.handles.element(gtk4.reference("shown")), "AXValue"), "kayak");
  EXPECT_EQ(gtk4.calls("GetText"), 0);
}

TEST_F(Elements, OfWebPagesHaveADomIdentifier) {
  FakeApplication browser("Chromium", "156");
  browser.set("named", {.attributes = {{"tag", "p"}, {"id", "intro"}}});
  browser.set("nameless", {.attributes = {{"tag", "p"}}});
  browser.set("toolbar", {.attributes = {{"id", "view_1036"}}});
  EXPECT_EQ(text(elements_.handles.element(browser.reference("named")), "AXDOMIdentifier"), "intro");
  EXPECT_EQ(text(elements_.handles.element(browser.reference("nameless")), "AXDOMIdentifier"), "");
  EXPECT_EQ(text(elements_.handles.element(browser.reference("toolbar")), "AXDOMIdentifier"), std::nullopt);
  EXPECT_EQ(text("root", "AXDOMIdentifier"), std::nullopt);
}

TEST_F(Elements, InAPageOfGtk3LieInTheTabListAndNotInTheTab) {
  application_.set("page", {.parent = "tab"});
  application_.set("tab", {.role = number(AtspiRole::pageTab), .parent = "tabs", .children = {"page"}});
  application_.set("tabs", {.role = number(AtspiRole::pageTabList)});
  EXPECT_EQ(read<AXUIElement>(element("page"), "AXParent"), element("tabs"));
  EXPECT_EQ(read<std::vector<AXUIElement>>(element("tab"), "AXChildren"), std::nullopt);
}

TEST_F(Elements, AreTheGroupOfTheRadioButtonUnderThePointerWhateverWasReadBefore) {
  application_.set("radio", {.role = number(AtspiRole::radioButton), .parent = "row"});
  application_.set("row", {.role = number(AtspiRole::filler), .parent = "sizes"});
  application_.set("sizes", {.role = number(AtspiRole::panel), .parent = "all"});
  application_.set("all", {.role = number(AtspiRole::panel)});
  EXPECT_EQ(text("sizes", "AXRole"), "AXGroup");
  read<AXUIElement>(element("radio"), "AXParent");
  read<AXUIElement>(element("row"), "AXParent");
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
  const auto slow = elements_.handles.element(silent.reference("save"));
  EXPECT_EQ(text(slow, "AXTitle"), "Save");
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
    EXPECT_EQ(text(elements_.handles.element(other.reference("open")), "AXTitle"), "Save");
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
