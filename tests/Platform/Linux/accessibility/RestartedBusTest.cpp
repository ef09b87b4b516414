// A bus that was started anew gives the names of the former one to other applications.
#include "tests/Platform/Linux/TestElements.h"

namespace norra::linux_desktop {
namespace {

FakeElement field(std::string text, std::string displayed) {
  return {.role = AtspiRole::text,
          .states = bit(AtspiState::editable),
          .interfaces = {"Text"},
          .text = std::move(text),
          .displayedText = std::move(displayed)};
}

class RestartedBus : public testing::Test {
 protected:
  void restart() {
    application_.reset();
    bus_.reset();
    elements_.epoch.begin();
    bus_.emplace();
  }

  AXUIElement start(const char* toolkit, const char* version, FakeElement element) {
    application_.emplace(toolkit, version);
    application_->set("field", std::move(element));
    return elements_.handles.element(application_->reference("field"));
  }

  std::optional<PrivateAccessibilityBus> bus_{std::in_place};
  TestWindows windows_;
  TestElements elements_{windows_};
  std::optional<FakeApplication> application_;
};

TEST_F(RestartedBus, DoesNotLendTheKnowledgeOfOneApplicationToAnother) {
  const auto former = start("gtk", "3.24.38", field("kayak", ""));
  const auto formerName = application_->reference("field").busName;
  EXPECT_EQ(textOf(former, "AXValue"), "kayak");
  restart();
  start("GTK", "4.8.3", field("secret", "\u25CF\u25CF\u25CF\u25CF\u25CF\u25CF"));
  const auto reference = application_->reference("field");
  ASSERT_EQ(reference.busName, formerName);
  textOf(elements_.handles.element(reference), "AXRole");  // meets the bus
  elements_.epoch.begin();
  EXPECT_EQ(textOf(elements_.handles.element(reference), "AXSubrole"), "AXSecureTextField");
  EXPECT_EQ(application_->calls("GetText"), 0);
}

TEST_F(RestartedBus, TakesTheElementsOfTheFormerOneAway) {
  const auto former = start("gtk", "3.24.38", field("kayak", ""));
  EXPECT_EQ(textOf(former, "AXValue"), "kayak");
  restart();
  start("gtk", "3.24.38", field("canoe", ""));
  const auto present = elements_.handles.element(application_->reference("field"));
  textOf(present, "AXRole");
  elements_.epoch.begin();
  EXPECT_EQ(textOf(former, "AXValue"), std::nullopt);
  EXPECT_EQ(former.primitives().getPid().error, axError::invalidUIElement);
  EXPECT_EQ(textOf(elements_.handles.element(application_->reference("field")), "AXValue"), "canoe");
}

}  // namespace
}  // namespace norra::linux_desktop
