// What a key press is told by when its application acts on it before anybody asks.
#include <gmock/gmock.h>

#include "Platform/Linux/accessibility/FocusPicture.h"
#include "Platform/Linux/runtime/EventLoop.h"
#include "tests/Platform/Linux/TestElements.h"
#include "tests/Platform/Linux/Waiting.h"

namespace norra::linux_desktop {
namespace {

constexpr std::uint64_t editable = bit(AtspiState::editable);

bool askAll(const AXUIElement& focused) {
  for (const auto* attribute : {"AXTitle", "AXValue", "AXRoleDescription"}) textOf(focused, attribute);
  return textOf(focused, "AXRole") && focused.primitives().getPid().value != 0;
}

class FocusPictureTest : public FakeApplicationTest {
 protected:
  FocusPictureTest() : FakeApplicationTest("Qt", "5.15.8") {
    application_.set("root", {.role = AtspiRole::application, .children = {"button", "field"}});
    setButton("Play");
    setField("tea");
  }

  void setButton(std::string name) {
    application_.set("button", {.role = AtspiRole::pushButton, .name = std::move(name), .children = {"label"}});
  }
  void setField(std::string text, AtspiRole role = AtspiRole::entry) {
    application_.set("field", {.role = role, .states = editable, .interfaces = {"Text"}, .text = std::move(text)});
  }

  AXUIElement focus(const char* key) {
    elements_.epoch.begin();
    picture_.take(reference(key));
    elements_.epoch.begin();
    return picture_.of(reference(key)).value();
  }

  // Serves the loop until the focused element is called so.
  bool becomes(const char* key, const std::string& name, const std::function<void()>& send) {
    return serveUntil(loop_.event(), [&] {
      elements_.epoch.begin();
      if (textOf(picture_.of(reference(key)).value(), "AXTitle") == name) return true;
      send();
      return false;
    });
  }

  EventLoop loop_;
  AtspiEvents events_{loop_.event(), elements_.session.shared, [](const std::string&) {}};
  FocusPicture picture_{elements_.session, elements_.handles, events_, askAll};
  std::unique_ptr<Registration> use_ = picture_.use();
};

TEST_F(FocusPictureTest, ShowsWhatHadTheFocusWithoutACall) {
  const auto button = focus("button");
  const auto calls = application_.calls();
  setButton("Pause");
  EXPECT_EQ(textOf(button, "AXTitle"), "Play");
  application_.remove("button");
  EXPECT_EQ(textOf(picture_.of(reference("button")).value(), "AXTitle"), "Play");
  EXPECT_EQ(textOf(button, "AXRole"), "AXButton");
  EXPECT_EQ(button.primitives().getPid().value, getpid());
  EXPECT_EQ(application_.calls(), calls);
}

TEST_F(FocusPictureTest, StaysWhenTheElementHasGone) {
  focus("button");
  application_.remove("button");
  EXPECT_EQ(textOf(focus("button"), "AXTitle"), "Play");
}

TEST_F(FocusPictureTest, IsTakenAnewWhenTheElementIsCalledOtherwise) {
  focus("button");
  setButton("Pause");
  EXPECT_TRUE(
      becomes("button", "Pause", [this] { application_.sendEvent("button", "PropertyChange", "accessible-name", 0); }));
  setButton("Stop");
  EXPECT_TRUE(becomes("button", "Stop", [this] { picture_.noteInput(); })) << "without an event";
}

TEST_F(FocusPictureTest, ShowsTheValueThatWasToldLastAndNoSecret) {
  const auto field = focus("field");
  setField("teapot");
  EXPECT_EQ(textOf(field, "AXValue"), "tea");
  elements_.epoch.begin();
  picture_.noteValue(reference("field"));
  EXPECT_EQ(textOf(field, "AXValue"), "teapot");
  setField("hunter2", AtspiRole::passwordText);
  elements_.epoch.begin();
  picture_.noteValue(reference("field"));
  EXPECT_EQ(textOf(field, "AXValue").value().find("hunter2"), std::string::npos);
}

TEST_F(FocusPictureTest, IsOfTheElementThatHasTheFocusAndOnlyWhileItIsUsed) {
  focus("button");
  EXPECT_FALSE(picture_.of(reference("field")));
  use_.reset();
  EXPECT_FALSE(picture_.of(reference("button")));
  picture_.take(reference("button"));
  EXPECT_FALSE(picture_.of(reference("button")));
}

}  // namespace
}  // namespace norra::linux_desktop
