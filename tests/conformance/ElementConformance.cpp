#include "tests/conformance/ConformanceTest.h"
#include "tests/conformance/Elements.h"

namespace norra::conformance {
namespace {

using testing::AnyOf;
using testing::Contains;
using testing::Eq;
using testing::Not;

/// No process has it.
constexpr ProcessIdentifier nobody = 0x7FFFFFF0;

/// An application with a button and a text field.
class Notes {
 public:
  explicit Notes(DesktopUnderTest& desktop) : desktop_(desktop), process(desktop.startApplication("Notes")) {
    desktop_.addControl(process, ControlKind::button, "Save");
    desktop_.addControl(process, ControlKind::textField, "Subject");
    desktop_.activate(process);
  }

  AXUIElement root() const { return desktop_.platform().accessibility.createApplication(process); }
  std::optional<AXUIElement> find(const std::string& name) const {
    std::optional<AXUIElement> found;
    desktop_.serveUntil([&] { return (found = conformance::find(root(), name)).has_value(); });
    return found;
  }

 private:
  DesktopUnderTest& desktop_;

 public:
  const ProcessIdentifier process;
};

/// What every read of the element gives; all are failures, or none is.
std::vector<AXError> errorsOfReads(const AXUIElement& element) {
  const auto& primitives = element.primitives();
  return {read(element, "AXRole").error, read(element, "AXTitle").error, primitives.copyAttributeNames().error,
          primitives.copyActionNames().error};
}

TEST_P(ElementConformance, AnApplicationLeadsToItsControlsAndBack) {
  const Notes notes(*desktop);
  const auto button = notes.find("Save");
  ASSERT_TRUE(button);
  EXPECT_EQ(valueOf<std::string>(notes.root(), "AXRole"), "AXApplication");
  EXPECT_EQ(valueOf<std::string>(*button, "AXRole"), "AXButton");
  EXPECT_TRUE(isWithin(*button, notes.root()));
  EXPECT_FALSE(isWithin(notes.root(), *button));
}

TEST_P(ElementConformance, HandlesOfOneElementAreEqual) {
  const Notes notes(*desktop);
  desktop->addControl(notes.process, ControlKind::button, "Close");
  ASSERT_TRUE(notes.find("Close"));
  EXPECT_EQ(*notes.find("Close"), *notes.find("Close"));
  EXPECT_FALSE(*notes.find("Close") == *notes.find("Save"));
  EXPECT_EQ(notes.root(), notes.root());
  EXPECT_EQ(notes.find("Save")->primitives().createApplication(notes.process), notes.root());
  EXPECT_FALSE(notes.root() == platform().accessibility.createApplication(nobody));
  auto& accessibility = platform().accessibility;
  EXPECT_EQ(accessibility.createSystemWide(), accessibility.createSystemWide());
}

TEST_P(ElementConformance, AnElementKnowsItsProcess) {
  const Notes notes(*desktop);
  ASSERT_TRUE(notes.find("Save"));
  for (const auto& element : {notes.root(), *notes.find("Save")}) {
    EXPECT_EQ(element.primitives().getPid().error, axError::success);
    EXPECT_EQ(element.primitives().getPid().value, notes.process);
  }
}

TEST_P(ElementConformance, AnAttributeThatIsNotThereIsUnsupportedOrHasNoValue) {
  const Notes notes(*desktop);
  const auto button = notes.find("Save");
  ASSERT_TRUE(button);
  for (const auto* attribute : {"AXSelectedRows", "AXURL", "AXColumns", "AXDOMIdentifier", "NorraNoSuchAttribute"}) {
    EXPECT_THAT(read(*button, attribute).error, AnyOf(Eq(axError::attributeUnsupported), Eq(axError::noValue)))
        << attribute;
  }
}

TEST_P(ElementConformance, AnElementNamesItsAttributesAndActions) {
  const Notes notes(*desktop);
  const auto button = notes.find("Save");
  ASSERT_TRUE(button);
  const auto names = button->primitives().copyAttributeNames();
  EXPECT_EQ(names.error, axError::success);
  EXPECT_THAT(names.value, Contains("AXRole"));
  EXPECT_THAT(names.value, Not(Contains("NorraNoSuchAttribute")));
  EXPECT_THAT(button->primitives().copyActionNames().value, Contains("AXPress"));
}

TEST_P(ElementConformance, ReadsOfAVanishedElementFailWhileItsProcessIsStillKnown) {
  const Notes notes(*desktop);
  const auto button = notes.find("Save");
  ASSERT_TRUE(button);
  ASSERT_EQ(button->primitives().getPid().error, axError::success);
  desktop->removeControl(notes.process, "Save");
  EXPECT_TRUE(serveUntil([&] { return read(*button, "AXRole").error != axError::success; }));
  EXPECT_THAT(errorsOfReads(*button), testing::Each(axError::invalidUIElement));
  EXPECT_EQ(button->primitives().getPid().value, notes.process);
  EXPECT_EQ(*button, AXUIElement(*button));
}

TEST_P(ElementConformance, ReadsOfAnEndedApplicationFail) {
  const Notes notes(*desktop);
  const auto button = notes.find("Save");
  ASSERT_TRUE(button);
  const auto root = notes.root();
  desktop->endApplication(notes.process);
  for (const auto& element : {root, *button}) {
    EXPECT_TRUE(serveUntil([&] { return read(element, "AXRole").error != axError::success; }));
    EXPECT_THAT(errorsOfReads(element), testing::Each(Not(Eq(axError::success))));
  }
}

TEST_P(ElementConformance, AProcessWithoutElementsHasAHandleOnWhichEveryReadFails) {
  const auto element = platform().accessibility.createApplication(nobody);
  EXPECT_THAT(errorsOfReads(element), testing::Each(axError::invalidUIElement));
  EXPECT_EQ(element.primitives().getPid().value, nobody);
  EXPECT_EQ(element, platform().accessibility.createApplication(nobody));
}

TEST_P(ElementConformance, AHitTestFindsTheControlUnderThePoint) {
  const Notes notes(*desktop);
  const auto screen = platform().accessibility.createSystemWide();
  for (const auto* name : {"Save", "Subject"}) {
    const auto control = notes.find(name);
    ASSERT_TRUE(control);
    const auto isHit = [&] {
      const auto [x, y] = desktop->middleOf(notes.process, name);
      const auto hit = screen.primitives().copyElementAtPosition(static_cast<float>(x), static_cast<float>(y));
      return hit.error == axError::success && hit.value && isWithin(*hit.value, *control);
    };
    EXPECT_TRUE(serveUntil(isHit)) << name;
  }
}

TEST_P(ElementConformance, AHitTestOffTheScreenFindsNothing) {
  const Notes notes(*desktop);
  const auto hit = platform().accessibility.createSystemWide().primitives().copyElementAtPosition(-5000, -5000);
  EXPECT_EQ(hit.value, std::nullopt);
}

TEST_P(ElementConformance, TheFocusIsFoundFromTheSystemAndFromTheApplication) {
  const Notes notes(*desktop);
  const auto screen = platform().accessibility.createSystemWide();
  for (const auto* name : {"Subject", "Save"}) {
    const auto control = notes.find(name);
    ASSERT_TRUE(control);
    desktop->focus(notes.process, name);
    EXPECT_TRUE(serveUntil([&] { return valueOf<AXUIElement>(screen, "AXFocusedUIElement") == control; })) << name;
  }
  // An application need not name what cannot change but by what is done to it.
  desktop->focus(notes.process, "Subject");
  const auto subject = notes.find("Subject");
  EXPECT_TRUE(serveUntil([&] { return valueOf<AXUIElement>(notes.root(), "AXFocusedUIElement") == subject; }));
}

TEST_P(ElementConformance, TheFocusedWindowHasItsTitle) {
  const Notes notes(*desktop);
  const auto hasTitle = [&] {
    const auto window = valueOf<AXUIElement>(notes.root(), "AXFocusedWindow");
    return window && valueOf<std::string>(*window, "AXTitle") == "Notes";
  };
  EXPECT_TRUE(serveUntil(hasTitle));
}

TEST_P(ElementConformance, ATextFieldHoldsItsText) {
  const Notes notes(*desktop);
  const auto field = notes.find("Subject");
  ASSERT_TRUE(field);
  for (const auto* text : {"Grüße 😀", ""}) {
    desktop->setText(notes.process, "Subject", text);
    EXPECT_TRUE(serveUntil([&] { return valueOf<std::string>(*field, "AXValue") == text; })) << text;
  }
}

TEST_P(ElementConformance, AnExecutorReadsWhatTheMainThreadReads) {
  const Notes notes(*desktop);
  const auto button = notes.find("Save");
  ASSERT_TRUE(button);
  const auto executor = platform().serialExecutors.createSerialExecutor();
  ASSERT_TRUE(runOn(*executor, [&] {
    EXPECT_EQ(valueOf<std::string>(*button, "AXRole"), "AXButton");
    EXPECT_EQ(find(notes.root(), "Save"), button);
    EXPECT_EQ(button->primitives().getPid().value, notes.process);
    EXPECT_THAT(button->primitives().copyActionNames().value, Contains("AXPress"));
  }));
}

TEST_P(ElementConformance, ARoleIsDescribedInWordsOrNotAtAll) {
  const auto screen = platform().accessibility.createSystemWide();
  EXPECT_NE(screen.primitives().roleDescription("AXButton", std::nullopt), "");
  EXPECT_EQ(screen.primitives().roleDescription("NorraNoSuchRole", std::nullopt), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Desktop, ElementConformance, testing::Values(desktopUnderTest()), nameOf);

}  // namespace
}  // namespace norra::conformance
