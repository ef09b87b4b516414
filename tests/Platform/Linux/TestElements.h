// What reads elements, put together as the platform does it, for tests that begin their epochs themselves.
#pragma once

#include <gmock/gmock.h>
#include <unistd.h>

#include "Platform/Linux/accessibility/ElementHandles.h"
#include "Platform/Linux/toolkits/Toolkits.h"
#include "tests/Platform/Linux/FakeApplication.h"
#include "tests/Platform/Linux/PrivateBus.h"
#include "tests/conformance/Elements.h"

namespace norra::linux_desktop {

using conformance::read;
using conformance::valueOf;

inline std::optional<std::string> textOf(const AXUIElement& element, std::string_view attribute) {
  return valueOf<std::string>(element, attribute);
}

/// The windows that a test says; of this process where it says nothing.
class TestWindows final : public WindowsOnScreen {
 public:
  std::optional<WindowOnScreen> topLevelWindowAt(CGPoint) override { return pointed; }
  std::optional<WindowOnScreen> activeWindow() override { return active; }

  static WindowOnScreen ofProcess(ProcessIdentifier process, ScreenRectangle place = {}, std::string title = {}) {
    return {.window = 1, .process = process, .frame = place, .client = place, .shadow = {}, .title = std::move(title)};
  }

  std::optional<WindowOnScreen> pointed = ofProcess(getpid());
  std::optional<WindowOnScreen> active = pointed;
};

struct TestElements {
  explicit TestElements(WindowsOnScreen& onScreen) : windows(onScreen) {}

  WindowsOnScreen& windows;
  CountedEpoch epoch;
  AtspiSession session{epoch, toolkitNamed};
  Focus focus{session};
  PointedElement pointed{session, focus, windows};
  ElementHandles handles{session, focus, pointed, windows};
};

/// One application on an accessibility bus of its own, and its elements by their keys.
class FakeApplicationTest : public testing::Test {
 protected:
  explicit FakeApplicationTest(std::string toolkit = "gtk", std::string version = "3.24.38")
      : application_(std::move(toolkit), std::move(version)) {}

  AtspiReference reference(const std::string& key) const { return application_.reference(key); }
  AXUIElement element(const std::string& key) { return elements_.handles.element(reference(key)); }
  ElementView view(const std::string& key) { return {elements_.session.reader(), reference(key)}; }

  template <typename Value>
  std::optional<Value> read(const std::string& key, std::string_view attribute) {
    return valueOf<Value>(element(key), attribute);
  }
  std::optional<std::string> text(const std::string& key, std::string_view attribute) {
    return read<std::string>(key, attribute);
  }
  std::vector<std::string> actions(const std::string& key) { return element(key).primitives().copyActionNames().value; }

  PrivateAccessibilityBus bus_;
  TestWindows windows_;
  TestElements elements_{windows_};
  FakeApplication application_;
};

}  // namespace norra::linux_desktop
