#include <gtest/gtest.h>

#include "NorraBase/Text.h"
#include "NorraDataCollector/accessibility/FocusedElementData.h"
#include "NorraDataCollector/accessibility/SelectionChanges.h"
#include "NorraDataCollector/accessibility/ValueChanges.h"
#include "NorraDataCollector/elements/AccessibilityConstants.h"
#include "NorraDataCollector/interpretation/ClickClassification.h"
#include "NorraDataCollector/interpretation/NameLists.h"
#include "NorraDataCollector/interpretation/WebContext.h"

namespace norra {
namespace {

/// An element of an application that answers however it likes, and that counts what it is asked.
class HostileElement : public AXUIElementPrimitives, public std::enable_shared_from_this<HostileElement> {
 public:
  using Answer = std::function<AXAttributeValue(const AXUIElement& self, std::string_view attribute)>;

  HostileElement(Answer answer, int& reads) : answer_(std::move(answer)), reads_(reads) {}

  AXUIElement another() const { return AXUIElement(std::make_shared<HostileElement>(answer_, reads_)); }

  AXResult<AXAttributeValue> copyAttributeValue(std::string_view attribute) const override {
    ++reads_;
    return {axError::success, answer_(AXUIElement(shared_from_this()), attribute)};
  }
  AXResult<std::vector<std::string>> copyActionNames() const override { return {axError::success, {"AXPress"}}; }
  AXResult<ProcessIdentifier> getPid() const override { return {axError::success, -1}; }
  AXUIElement createApplication(ProcessIdentifier) const override { return another(); }
  std::optional<std::string> roleDescription(std::string_view, std::optional<std::string_view>) const override {
    return std::nullopt;
  }
  bool isEqual(const AXUIElementPrimitives& other) const override { return this == &other; }

 private:
  Answer answer_;
  int& reads_;
};

AXUIElement another(const AXUIElement& element) {
  return dynamic_cast<const HostileElement&>(element.primitives()).another();
}

std::vector<AXUIElement> crowd(const AXUIElement& element, std::size_t count) {
  return std::vector(count, another(element));
}

/// Elements without end in every direction, each with this role and nothing else.
HostileElement::Answer endless(std::string_view role) {
  return [role](const AXUIElement& self, std::string_view attribute) -> AXAttributeValue {
    if (attribute == attribute::role) return std::string(role);
    if (attribute == attribute::parent || attribute == attribute::titleUIElement) return another(self);
    if (attribute.starts_with("AXSelected")) return crowd(self, 2);
    if (attribute.ends_with("Children")) return crowd(self, 20);
    return {};
  };
}

/// The same with a name, so that searches end and paths do not.
HostileElement::Answer endlessAndNamed(std::string_view role) {
  return [role](const AXUIElement& self, std::string_view attribute) -> AXAttributeValue {
    if (attribute == attribute::title) return std::string("name");
    return endless(role)(self, attribute);
  };
}

AXAttributeValue circle(const AXUIElement& self, std::string_view attribute) {
  if (attribute == attribute::role) return std::string(role::menuItem);
  if (attribute == attribute::title) return std::string("name");
  if (attribute == attribute::parent || attribute == attribute::titleUIElement) return self;
  return {};
}

/// Answers with what nobody asked for.
HostileElement::Answer always(AXAttributeValue value) {
  return [value = std::move(value)](const AXUIElement&, std::string_view) { return value; };
}

AXAttributeValue cellFarAway(const AXUIElement& self, std::string_view attribute) {
  if (attribute == attribute::columnIndexRange) return CFRange{-9'000'000'000, -1};
  return endlessAndNamed(role::cell)(self, attribute);
}

/// Everything that is done to an element sooner or later.
void interact(const AXUIElement& element) {
  for (const bool isRetry : {false, true}) actionsForClick(element, MouseButton::left, isRetry);
  FocusedElementData focused(element);
  takeTextChange(focused, true);
  changedSelectedRows(element, &focused);
  changedSelectedCells(element, &focused);
  changedSelectedChildren(element, &focused);
  parentWebAreaURL(element);
}

struct Row {
  std::string title;
  HostileElement::Answer answer;
  int maxReads;  // about twice what they are
};

TEST(HostileData, CostsABoundedNumberOfReads) {
  const std::vector<Row> rows{
      {"buttons without end", endless(role::button), 2'100'000},
      {"groups without end", endless("AXGroup"), 600'000},
      {"cells without end", endless(role::cell), 1'800'000},
      {"menus without end", endlessAndNamed(role::menuItem), 44'000},
      {"text areas without end", endlessAndNamed(role::textArea), 400},
      {"its own parent", circle, 400},
      {"a column that there is not", cellFarAway, 400},
      {"texts only", always(std::string("text")), 140},
      {"text that is none", always(std::string("\xff\xc3\xed\xa0\x80")), 140},
      {"numbers only", always(NSNumber{1e308}), 140},
      {"ranges only", always(CFRange{-1, -1}), 140},
      {"no elements in lists", always(std::vector<AXUIElement>{}), 140},
  };
  for (const auto& [title, answer, maxReads] : rows) {
    int reads = 0;
    interact(AXUIElement(std::make_shared<HostileElement>(answer, reads)));
    EXPECT_LT(reads, maxReads) << title;
  }
}

TEST(HostileData, JoinsNoNamesBeyondTheirBudgetAndLooksOnlySoLong) {
  for (const auto& [name, maxAsked] : {std::pair(std::optional<std::string>("ten letter"), 7), {std::nullopt, 2'000}}) {
    int asked = 0;
    const auto list = joinedLazilyCollectedNames([&](auto) { return ++asked, name; }, 1'000'000);
    EXPECT_LE(characterCount(list), 100U);
    EXPECT_LE(asked, maxAsked);
  }
}

TEST(HostileData, DoesNotMakeNamesLong) {
  int reads = 0;
  const auto answer = [](const AXUIElement&, std::string_view attribute) -> AXAttributeValue {
    return attribute == attribute::role ? std::string(role::button) : std::string(1 << 20, 'n');
  };
  const auto actions =
      actionsForClick(AXUIElement(std::make_shared<HostileElement>(answer, reads)), MouseButton::left, false);
  ASSERT_EQ(actions.size(), 1U);
  EXPECT_EQ(characterCount(std::get<ClickData>(actions[0]).elementName), 100U);
}

}  // namespace
}  // namespace norra
