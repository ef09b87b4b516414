#include "Platform/Linux/accessibility/PicturedElement.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "Platform/Linux/accessibility/AtspiElement.h"

namespace norra::linux_desktop {
namespace {

AXResult<AXAttributeValue> yes() { return {axError::success, NSNumber{true}}; }

// A busy application ticks a box a moment after the click, and a switch may have to move before it is on.
constexpr std::chrono::milliseconds patienceForStates{100};
constexpr std::chrono::milliseconds patienceForSwitches{400};
constexpr std::chrono::milliseconds pauseBetweenStates{10};

bool isUnanswered(AXError error) { return error == axError::cannotComplete || error == axError::invalidUIElement; }

// Whether what was asked anew of the element was not answered, and why.
AXError errorAmong(const AtspiFacts& facts) {
  for (std::size_t bit = 0; bit < askCount; ++bit) {
    const auto ask = static_cast<Ask>(bit);
    if (Picture::changingFacts.has(ask) && facts.asked.has(ask) && isUnanswered(facts.error(ask)))
      return facts.error(ask);
  }
  return axError::success;
}

}  // namespace

PicturedAnswers& PicturedElement::answers() const {
  if (!answers_) answers_ = &picture_->answersOf(element_);
  return *answers_;
}

AXResult<AXAttributeValue> PicturedElement::copyAttributeValue(std::string_view attribute) const {
  return inPicture(picture_->isFinished() ? recall(attribute) : take(attribute));
}

// The rehearsal goes on as if the click had done what it may do, so that what is asked then is asked.
AXResult<AXAttributeValue> PicturedElement::take(std::string_view attribute) const {
  if (picture_->isGivenUp()) return {axError::cannotComplete, {}};
  auto& attributes = answers().attributes;
  auto answer = attributes.find(attribute);
  if (answer == attributes.end()) answer = attributes.emplace(attribute, own().copyAttributeValue(attribute)).first;
  const bool mayBecomeTrue = attribute == "AXSelected" || (attribute == "AXFocused" && hasRole({"AXTextField"}));
  return mayBecomeTrue && answer->second.error == axError::success ? yes() : answer->second;
}

AXResult<AXAttributeValue> PicturedElement::recall(std::string_view attribute) const {
  const auto answer = answers().attributes.find(attribute);
  const bool isKnown = answer != answers().attributes.end() && answer->second.error != axError::cannotComplete;
  if (!isKnown) return own().copyAttributeValue(attribute);
  if (!isAskedAnew(attribute)) return answer->second;
  auto now = awaitOther(attribute, answer->second);
  if (!isUnanswered(now.error)) return now;
  if (attribute == "AXValue") return {axError::noValue, {}};
  if (attribute == "AXSelected" && now.error == axError::invalidUIElement) return yes();
  return answer->second;
}

bool PicturedElement::isAskedAnew(std::string_view attribute) const {
  if (picture_->changing() == Picture::Changing::kept) return false;
  if (attribute == "AXFocused") return !hasRole({"AXStaticText", "AXHeading", "AXImage"});
  if (attribute == "AXSelected" || attribute == "AXSelectedCells") return true;
  return attribute == "AXValue" && hasRole({"AXCheckBox", "AXComboBox", "AXSlider"});
}

bool PicturedElement::hasAnswer(std::string_view attribute, std::initializer_list<std::string_view> texts) const {
  const auto answer = answers().attributes.find(attribute);
  const auto* text = answer != answers().attributes.end() ? std::get_if<std::string>(&answer->second.value) : nullptr;
  return text && std::ranges::find(texts, *text) != texts.end();
}

bool PicturedElement::hasRole(std::initializer_list<std::string_view> roles) const {
  return hasAnswer("AXRole", roles);
}

AXResult<AXAttributeValue> PicturedElement::askAnew(std::string_view attribute) const {
  const auto* element = dynamic_cast<const AtspiElement*>(&own());
  auto& reader = session_.reader();
  reader.takeOver(picture_->facts());
  auto answer = own().copyAttributeValue(attribute);
  if (!element || answer.error != axError::success) return answer;
  const auto error = errorAmong(reader.known(element->reference()));
  return error == axError::success ? answer : AXResult<AXAttributeValue>{error, {}};
}

bool PicturedElement::mayBeLate(std::string_view attribute, const AXAttributeValue& before) const {
  if (attribute == "AXFocused") return before != yes().value && hasRole({"AXTextField", "AXTextArea"});
  return attribute == "AXValue" && hasRole({"AXCheckBox"});
}

// What the click did: one on what can be ticked changes it as a rule, one on a field gives it the focus, so these
// states are waited for.
AXResult<AXAttributeValue> PicturedElement::awaitOther(std::string_view attribute,
                                                       const AXResult<AXAttributeValue>& before) const {
  auto now = askAnew(attribute);
  if (!mayBeLate(attribute, before.value)) return now;
  const auto patience = hasAnswer("AXSubrole", {"AXSwitch"}) ? patienceForSwitches : patienceForStates;
  auto& end = answers().awaitedUntil;
  if (!end) end = std::chrono::steady_clock::now() + patience;
  bool isOver = false;
  while (!isOver && now.error == axError::success && now.value == before.value) {
    isOver = std::chrono::steady_clock::now() >= *end;
    std::this_thread::sleep_for(pauseBetweenStates);
    session_.reader().askAnew(dynamic_cast<const AtspiElement&>(own()).reference());
    now = askAnew(attribute);
  }
  return now;
}

AXResult<std::vector<std::string>> PicturedElement::copyActionNames() const {
  auto& actions = answers().actions;
  if (actions) return *actions;
  if (picture_->isFinished()) return own().copyActionNames();
  if (picture_->isGivenUp()) return {axError::cannotComplete, {}};
  return *(actions = own().copyActionNames());
}

AXResult<ProcessIdentifier> PicturedElement::getPid() const {
  auto& process = answers().process;
  if (process) return *process;
  if (picture_->isFinished()) return own().getPid();
  return *(process = own().getPid());
}

bool PicturedElement::isEqual(const AXUIElementPrimitives& other) const {
  const auto* pictured = dynamic_cast<const PicturedElement*>(&other);
  return own().isEqual(pictured ? pictured->own() : other);
}

AXResult<AXAttributeValue> PicturedElement::inPicture(AXResult<AXAttributeValue> answer) const {
  if (const auto* element = std::get_if<AXUIElement>(&answer.value)) {
    answer.value = inPicture(*element);
  } else if (auto* elements = std::get_if<std::vector<AXUIElement>>(&answer.value)) {
    for (auto& one : *elements) one = inPicture(one);
  }
  return answer;
}

AXUIElement PicturedElement::inPicture(const AXUIElement& element) const {
  return AXUIElement(std::make_shared<PicturedElement>(session_, picture_, element));
}

}  // namespace norra::linux_desktop
