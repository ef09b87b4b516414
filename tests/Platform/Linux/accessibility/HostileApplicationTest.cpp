// All that is read of an application for a click and for a key, where the application is hostile.
#include <gmock/gmock.h>

#include <cctype>

#include "tests/Platform/Linux/HostileFaults.h"
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

class HostileApplication : public FakeApplicationTest, public testing::WithParamInterface<HostileFault> {
 protected:
  HostileApplication() {
    showReef(application_);
    innocent_.set("save", {.role = AtspiRole::pushButton, .name = "Save"});
  }

  std::optional<AXUIElement> clicked() {
    return elements_.handles.systemWide().primitives().copyElementAtPosition(10, 10).value;
  }

  // copyAttributeNames reads every attribute.
  void readWithAncestors(std::optional<AXUIElement> element) {
    for (int level = 0; element && level < maxAncestors; ++level) {
      element->primitives().copyAttributeNames();
      element->primitives().copyActionNames();
      element = valueOf<AXUIElement>(*element, "AXParent");
    }
  }

  std::optional<std::string> nameOfTheInnocent() {
    return textOf(elements_.handles.element(innocent_.reference("save")), "AXTitle");
  }

  FakeApplication innocent_;
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
    readWithAncestors(valueOf<AXUIElement>(elements_.handles.systemWide(), "AXFocusedUIElement"));
    EXPECT_LT(elements_.session.shared.statistics.reads - before, maxCalls);
    elements_.epoch.begin();
    EXPECT_EQ(nameOfTheInnocent(), "Save");
  }
}

INSTANTIATE_TEST_SUITE_P(, HostileApplication, testing::ValuesIn(hostileFaults().begin(), hostileFaults().end()),
                         wordOf);

}  // namespace
}  // namespace norra::linux_desktop
