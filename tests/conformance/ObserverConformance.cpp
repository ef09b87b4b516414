#include "tests/conformance/ConformanceTest.h"
#include "tests/conformance/Elements.h"

namespace norra::conformance {
namespace {

using testing::AnyOf;
using testing::Each;
using testing::Eq;
using testing::IsEmpty;

constexpr std::string_view valueChanged = "AXValueChanged";
constexpr std::string_view focusChanged = "AXFocusedUIElementChanged";

/// An application with two text fields.
class Form {
 public:
  explicit Form(DesktopUnderTest& desktop) : desktop_(desktop), process(desktop.startApplication("Form")) {
    for (const auto* name : {"Name", "Place"}) desktop_.addControl(process, ControlKind::textField, name);
    desktop_.activate(process);
    desktop_.serveUntil([&] { return find(root(), "Place").has_value() && find(root(), "Name").has_value(); });
  }

  AXUIElement root() const { return desktop_.platform().accessibility.createApplication(process); }
  AXUIElement field(const std::string& name) const { return find(root(), name).value_or(root()); }
  void type(const std::string& name, const std::string& text) const { desktop_.setText(process, name, text); }
  /// Types anew now and then: an application may learn a moment later that it is listened to.
  bool typeUntil(const std::string& name, const std::function<bool()>& condition) const {
    constexpr int turnsForAnAnswer = 20;
    int turn = 0;
    return desktop_.serveUntil([&] {
      if (turn % turnsForAnAnswer == 0) type(name, std::to_string(turn));
      ++turn;
      return condition();
    });
  }

 private:
  DesktopUnderTest& desktop_;

 public:
  const ProcessIdentifier process;
};

/// An observer and what it heard.
class Listening {
 public:
  Listening(const Platform& platform, ProcessIdentifier process) {
    auto created = platform.accessibility.createObserver(
        process, [this, &loop = platform.mainRunLoop](const AXUIElement& element, std::string_view notification) {
          EXPECT_TRUE(loop.isCurrent());
          heard_.emplace_back(element, notification);
        });
    EXPECT_EQ(created.error, axError::success);
    observer_ = std::move(created.value);
  }

  AXObserver& observer() { return *observer_; }
  Listening& to(const AXUIElement& element, std::string_view notification = valueChanged) {
    EXPECT_EQ(observer_->addNotification(element, notification), axError::success);
    return *this;
  }
  Listening& onTheRunLoop() {
    observer_->addSourceToMainRunLoop();
    return *this;
  }
  void end() { observer_.reset(); }

  const std::vector<std::pair<AXUIElement, std::string>>& heard() const { return heard_; }
  void forget() { heard_.clear(); }

 private:
  std::vector<std::pair<AXUIElement, std::string>> heard_;
  std::unique_ptr<AXObserver> observer_;
};

TEST_P(ObserverConformance, AnObserverHearsWhatItRegisteredAndNothingElse) {
  const Form form(*desktop);
  Listening ofName(platform(), form.process);
  Listening ofPlace(platform(), form.process);
  ofName.to(form.field("Name")).onTheRunLoop();
  ofPlace.to(form.field("Place")).onTheRunLoop();
  ASSERT_TRUE(form.typeUntil("Name", [&] { return !ofName.heard().empty(); }));
  ASSERT_TRUE(form.typeUntil("Place", [&] { return !ofPlace.heard().empty(); }));
  EXPECT_THAT(ofName.heard(), Each(Eq(std::pair(form.field("Name"), std::string(valueChanged)))));
  EXPECT_THAT(ofPlace.heard(), Each(Eq(std::pair(form.field("Place"), std::string(valueChanged)))));
}

TEST_P(ObserverConformance, AnObserverHearsOnlyWhileItsSourceIsOnTheRunLoop) {
  const Form form(*desktop);
  Listening before(platform(), form.process);
  Listening after(platform(), form.process);
  Listening all(platform(), form.process);
  for (auto* observer : {&before, &after, &all}) observer->to(form.field("Name"));
  after.onTheRunLoop().onTheRunLoop();
  after.observer().removeSourceFromMainRunLoop();
  after.observer().removeSourceFromMainRunLoop();
  all.onTheRunLoop();
  for (int time = 0; time < 2; ++time) {
    all.forget();
    ASSERT_TRUE(form.typeUntil("Name", [&] { return !all.heard().empty(); }));
  }
  EXPECT_THAT(before.heard(), IsEmpty());
  EXPECT_THAT(after.heard(), IsEmpty());
  before.onTheRunLoop();
  EXPECT_TRUE(form.typeUntil("Name", [&] { return !before.heard().empty(); }));
}

TEST_P(ObserverConformance, ARemovedNotificationIsHeardNoMore) {
  const Form form(*desktop);
  Listening leaving(platform(), form.process);
  Listening staying(platform(), form.process);
  const auto name = form.field("Name");
  for (auto* observer : {&leaving, &staying}) observer->to(name).onTheRunLoop();
  EXPECT_EQ(leaving.observer().removeNotification(name, valueChanged), axError::success);
  EXPECT_EQ(leaving.observer().removeNotification(name, valueChanged), axError::notificationNotRegistered);
  EXPECT_EQ(staying.observer().removeNotification(form.field("Place"), valueChanged),
            axError::notificationNotRegistered);
  for (int time = 0; time < 2; ++time) {
    staying.forget();
    ASSERT_TRUE(form.typeUntil("Name", [&] { return !staying.heard().empty(); }));
  }
  EXPECT_THAT(leaving.heard(), IsEmpty());
}

TEST_P(ObserverConformance, ASecondRegistrationChangesNothing) {
  const Form form(*desktop);
  Listening twice(platform(), form.process);
  Listening once(platform(), form.process);
  const auto name = form.field("Name");
  for (auto* observer : {&twice, &once}) observer->to(name).onTheRunLoop();
  EXPECT_THAT(twice.observer().addNotification(name, valueChanged),
              AnyOf(Eq(axError::success), Eq(axError::notificationAlreadyRegistered)));
  ASSERT_TRUE(form.typeUntil("Name", [&] { return !once.heard().empty() && !twice.heard().empty(); }));
  const auto before = once.heard().size();
  form.type("Name", "");
  ASSERT_TRUE(serveUntil([&] { return once.heard().size() > before; }));
  EXPECT_TRUE(serveUntil([&] { return twice.heard().size() == once.heard().size(); }));
}

TEST_P(ObserverConformance, AnObserverHearsNothingAfterItsEnd) {
  const Form form(*desktop);
  Listening ending(platform(), form.process);
  Listening staying(platform(), form.process);
  for (auto* observer : {&ending, &staying}) observer->to(form.field("Name")).onTheRunLoop();
  ending.end();
  for (int time = 0; time < 2; ++time) {
    staying.forget();
    ASSERT_TRUE(form.typeUntil("Name", [&] { return !staying.heard().empty(); }));
  }
  EXPECT_THAT(ending.heard(), IsEmpty());
}

TEST_P(ObserverConformance, AnApplicationTellsOfItsFocus) {
  const Form form(*desktop);
  desktop->focus(form.process, "Name");
  ASSERT_TRUE(
      serveUntil([&] { return valueOf<AXUIElement>(form.root(), "AXFocusedUIElement") == form.field("Name"); }));
  Listening listening(platform(), form.process);
  listening.to(form.root(), focusChanged).onTheRunLoop();
  desktop->focus(form.process, "Place");
  ASSERT_TRUE(serveUntil([&] { return !listening.heard().empty(); }));
  const auto& [element, notification] = listening.heard().front();
  EXPECT_EQ(notification, focusChanged);
  EXPECT_EQ(element.primitives().getPid().value, form.process);
  EXPECT_TRUE(isWithin(element, form.root())) << "its application is found from there";
  EXPECT_EQ(valueOf<AXUIElement>(form.root(), "AXFocusedUIElement"), form.field("Place"));
}

INSTANTIATE_TEST_SUITE_P(Desktop, ObserverConformance, testing::Values(desktopUnderTest()), nameOf);

}  // namespace
}  // namespace norra::conformance
