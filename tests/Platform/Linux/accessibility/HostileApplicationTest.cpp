// All that is read of an application for a click and for a key, where the application is hostile.
#include <gmock/gmock.h>
#include <unistd.h>

#include <cctype>

#include "tests/Platform/Linux/HostileFaults.h"
#include "tests/Platform/Linux/PrivateBus.h"
#include "tests/Platform/Linux/TestElements.h"

namespace norra::linux_desktop {
namespace {

constexpr int maxAncestors = 20;
// For all attributes of an element, of its ancestors and of their first children.
constexpr int maxCalls = 2'000;

std::string wordOf(const testing::TestParamInfo<HostileFault>& fault) {
  std::string word = fault.param.name;
  std::erase_if(word, [](unsigned char character) { return std::isalnum(character) == 0; });
  return word;
}

class HostileApplication : public testing::TestWithParam<HostileFault> {
 protected:
  HostileApplication() {
    showReef(application_);
    innocent_.set("save", {.role = 43, .name = "Save"});
  }

  std::optional<AXUIElement> clicked() {
    return elements_.handles.systemWide().primitives().copyElementAtPosition(10, 10).value;
  }

  static std::optional<AXUIElement> elementIn(const AXUIElement& element, const char* attribute) {
    const auto result = element.primitives().copyAttributeValue(attribute);
    const auto* value = std::get_if<AXUIElement>(&result.value);
    return value ? std::optional(*value) : std::nullopt;
  }

  // copyAttributeNames reads every attribute.
  void readWithAncestors(std::optional<AXUIElement> element) {
    for (int level = 0; element && level < maxAncestors; ++level) {
      element->primitives().copyAttributeNames();
      element->primitives().copyActionNames();
      element = elementIn(*element, "AXParent");
    }
  }

  std::optional<std::string> nameOfTheInnocent() {
    const auto result =
        elements_.handles.element(innocent_.reference("save")).primitives().copyAttributeValue("AXTitle");
    const auto* name = std::get_if<std::string>(&result.value);
    return name ? std::optional(*name) : std::nullopt;
  }

  PrivateAccessibilityBus bus_;
  OneWindow windows_;
  TestElements elements_{windows_};
  FakeApplication innocent_;
  FakeApplication application_;
};

TEST_P(HostileApplication, CostsBoundedlyManyCallsAndHarmsNoOther) {
  readWithAncestors(clicked());
  ASSERT_GT(application_.received(), 20) << "it is looked at";
  elements_.epoch.begin();
  ASSERT_EQ(nameOfTheInnocent(), "Save");
  const auto fault = GetParam().begin(application_);
  for (int event = 0; event < 3; ++event) {
    const auto before = elements_.session.shared.statistics.reads.load();
    elements_.epoch.begin();
    readWithAncestors(clicked());
    readWithAncestors(elementIn(elements_.handles.systemWide(), "AXFocusedUIElement"));
    EXPECT_LT(elements_.session.shared.statistics.reads - before, maxCalls);
    elements_.epoch.begin();
    EXPECT_EQ(nameOfTheInnocent(), "Save");
  }
}

INSTANTIATE_TEST_SUITE_P(, HostileApplication, testing::ValuesIn(hostileFaults().begin(), hostileFaults().end()),
                         wordOf);

}  // namespace
}  // namespace norra::linux_desktop
