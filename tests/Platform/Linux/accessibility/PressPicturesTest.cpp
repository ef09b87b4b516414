// What a click is told by when its application acts on it before anybody asks.
#include <gmock/gmock.h>

#include <atomic>
#include <functional>

#include "Platform/Linux/accessibility/PressPictures.h"
#include "tests/Platform/Linux/TestElements.h"
#include "tests/Platform/Linux/Waiting.h"

namespace norra::linux_desktop {
namespace {

constexpr CGPoint place{10, 10};
constexpr CGPoint elsewhere{30, 10};
constexpr auto checked = bit(AtspiState::checked);

std::optional<std::string> nameOf(const AXUIElement& element) { return textOf(element, "AXTitle"); }

std::optional<std::int64_t> numberOf(const AXUIElement& element) {
  const auto number = valueOf<NSNumber>(element, "AXValue");
  return number ? std::optional(std::get<std::int64_t>(number->value)) : std::nullopt;
}

// As the core asks: the element, its ancestors, and whose it is. Told is what has a name.
bool askAll(const AXUIElement& clicked) {
  for (auto element = std::optional(clicked); element; element = valueOf<AXUIElement>(*element, "AXParent")) {
    for (const auto* attribute : {"AXRole", "AXTitle", "AXValue", "AXSelected"}) {
      element->primitives().copyAttributeValue(attribute);
    }
  }
  return nameOf(clicked) && clicked.primitives().getPid().value != 0;
}

class PressPicturesTest : public FakeApplicationTest {
 protected:
  explicit PressPicturesTest(std::string toolkit = "Qt", std::string version = "5.15.8")
      : FakeApplicationTest(std::move(toolkit), std::move(version)) {
    application_.set("root", {.role = AtspiRole::application, .children = {"window"}});
    application_.set("window", {.role = AtspiRole::frame,
                                .states = bit(AtspiState::visible),
                                .children = {"target"},
                                .extents = {0, 0, 100, 100}});
    set(AtspiRole::pushButton, "Play");
  }

  void set(AtspiRole role, std::string name, std::uint64_t states = 0) {
    application_.set("target", {.role = role, .name = std::move(name), .states = states, .parent = "window"});
  }

  void press() { pictures_.notePress(place); }
  std::optional<AXUIElement> release(CGPoint released = place) {
    pictures_.noteRelease();
    elements_.epoch.begin();
    return pictures_.elementAt(released);
  }
  // The picture of a press that is over: what happens from now on is not in it.
  AXUIElement pressed() {
    press();
    return release().value();
  }

  PressPictures pictures_{elements_.session, elements_.pointed, elements_.handles, askAll};
};

TEST_F(PressPicturesTest, ShowWhatWasPressedWithoutACall) {
  const auto element = pressed();
  const auto calls = application_.calls();
  set(AtspiRole::pushButton, "Pause");
  EXPECT_EQ(nameOf(element), "Play");
  application_.remove("target");
  EXPECT_EQ(nameOf(element), "Play");
  EXPECT_EQ(textOf(element, "AXRole"), "AXButton");
  EXPECT_EQ(element.primitives().getPid().value, getpid());
  EXPECT_EQ(application_.calls(), calls);
}

TEST_F(PressPicturesTest, TellWhatTheClickDidByOneCall) {
  set(AtspiRole::checkBox, "Lanterns");
  const auto element = pressed();
  set(AtspiRole::checkBox, "No lanterns", checked);
  const auto calls = application_.calls();
  EXPECT_EQ(numberOf(element), 1);
  EXPECT_EQ(nameOf(element), "Lanterns");
  EXPECT_EQ(application_.calls(), calls + 1);
}

// As that of a switch does, which has to move.
TEST_F(PressPicturesTest, WaitForAStateThatComesAMomentLater) {
  set(AtspiRole::checkBox, "Lanterns");
  const auto element = pressed();
  std::atomic<int> asked = 0;
  application_.answer("GetState", [&](sd_bus_message*) {
    if (++asked == 2) set(AtspiRole::checkBox, "Lanterns", checked);
    return -1;
  });
  EXPECT_EQ(numberOf(element), 1);
}

class PressPicturesInChromiumTest : public PressPicturesTest {
 protected:
  PressPicturesInChromiumTest() : PressPicturesTest("Chromium", "156.0") {
    application_.set(
        "cover", {.role = AtspiRole::pushButton, .name = "Accept", .parent = "window", .extents = {0, 0, 100, 100}});
    application_.answer("GetAccessibleAtPoint", [this](sd_bus_message* call) {
      const auto found = application_.reference(hitTests_++ == 0 ? "target" : "cover");
      if (hitTests_ == 2) act_();
      return sd_bus_reply_method_return(call, "(so)", found.busName.c_str(), found.path.c_str());
    });
  }
  void setTarget(std::int32_t left, std::uint64_t states = 0) {
    application_.set("target", {.role = AtspiRole::pushButton,
                                .name = "Play",
                                .states = states,
                                .parent = "window",
                                .extents = {left, 0, 50, 20}});
  }

  int hitTests_ = 0;
  std::function<void()> act_ = [] {};
};

TEST_F(PressPicturesInChromiumTest, AreOfWhatIsFoundOutLaterUnlessThePageHasActed) {
  constexpr auto opensMore = bit(AtspiState::hasPopup);
  struct Row {
    std::int32_t left;  // of the target: beyond the place of the press where that is on the target's label
    std::function<void()> act;
    const char* expected;
  };
  const Row rows[] = {
      {0, [] {}, "Accept"},
      {0, [this] { application_.remove("target"); }, "Play"},
      {0, [this] { setTarget(60); }, "Play"},
      {0, [this] { setTarget(0, opensMore); }, "Play"},
      {60, [] {}, "Accept"},
  };
  for (const auto& [left, act, expected] : rows) {
    setTarget(left);
    hitTests_ = 0;
    act_ = act;
    EXPECT_EQ(nameOf(pressed()), expected);
  }
}

TEST_F(PressPicturesTest, KnowTheWindowThatHasComeToTheFrontBeforeAPress) {
  pictures_.noteActivation();
  const auto window = windows_.activeWindow().value();
  waitUntil([&] { return !elements_.pointed.knownTopLevelOf(window).isNull(); });
  EXPECT_EQ(elements_.pointed.knownTopLevelOf(window), reference("window"));
}

TEST_F(PressPicturesTest, DoNotKnowTheStateOfWhatHasGoneAndTakeItForChosen) {
  set(AtspiRole::checkBox, "Lanterns", checked);
  const auto element = pressed();
  application_.remove("target");
  EXPECT_EQ(numberOf(element), std::nullopt);
  EXPECT_EQ(std::get<bool>(valueOf<NSNumber>(element, "AXSelected")->value), true);
}

TEST_F(PressPicturesTest, AreOfThePlaceOfThePressAndOfWhatIsTold) {
  press();
  EXPECT_FALSE(release(elsewhere));
  EXPECT_TRUE(release());
  set(AtspiRole::pushButton, "");
  press();
  EXPECT_FALSE(release());
}

TEST_F(PressPicturesTest, AreOfAllThatWasPressed) {
  application_.set("target",
                   {.role = AtspiRole::pushButton, .name = "Play", .parent = "window", .extents = {0, 0, 50, 20}});
  press();
  EXPECT_TRUE(release(elsewhere));
  EXPECT_FALSE(release({60, 10}));
}

TEST_F(PressPicturesTest, AreOfTheLastPressThatWasReleased) {
  const auto first = pressed();
  set(AtspiRole::pushButton, "Pause");
  press();
  EXPECT_EQ(nameOf(pictures_.elementAt(place).value()), "Play") << "its second look";
  EXPECT_EQ(nameOf(release().value()), "Pause");
}

TEST_F(PressPicturesTest, OfADoubleClickAreTheFirstOfAnItem) {
  set(AtspiRole::listItem, "Charts");
  const auto first = pressed();
  set(AtspiRole::listItem, "bay.txt");
  EXPECT_EQ(nameOf(pressed()), "Charts") << "it was opened, and the list shows what is in it";
  EXPECT_EQ(nameOf(pressed()), "bay.txt") << "a third press is a new click";
  set(AtspiRole::listItem, "tides.txt");
  std::this_thread::sleep_for(PressPictures::doubleClickTime);
  EXPECT_EQ(nameOf(pressed()), "tides.txt");
}

TEST_F(PressPicturesTest, OfASilentApplicationAreNotAwaitedForLong) {
  application_.setSilent(true);
  press();
  EXPECT_FALSE(release());
  application_.setSilent(false);
}

}  // namespace
}  // namespace norra::linux_desktop
