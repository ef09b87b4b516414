#include "tests/soak/SoakEvents.h"

#include "tests/soak/SoakDesktop.h"

namespace norra::soak {
namespace {

using namespace std::chrono_literals;
using simulated::ElementReference;
using simulated::PointerButton;
using simulated::ServiceOperation;
using References = std::vector<ElementReference>;

class SilentClient final : public ClientProtocol {
 public:
  void addEvent(std::string, std::chrono::system_clock::time_point, bool) override {}
};

}  // namespace

void SoakEvents::playOne() {
  using Event = void (SoakEvents::*)();
  static constexpr std::array<Event, 16> events{
      &SoakEvents::click,           &SoakEvents::click,           &SoakEvents::click,
      &SoakEvents::pressKey,        &SoakEvents::pressKey,        &SoakEvents::pressKey,
      &SoakEvents::changeValue,     &SoakEvents::changeValue,     &SoakEvents::changeValue,
      &SoakEvents::changeValue,     &SoakEvents::moveFocus,       &SoakEvents::moveFocus,
      &SoakEvents::changeSelection, &SoakEvents::changeSelection, &SoakEvents::switchApplication,
      &SoakEvents::disturb};
  (this->*events[below(events.size())])();
  if (below(4) == 0) desktop_.advance(std::chrono::milliseconds(below(2000)));
}

void SoakEvents::click() {
  const CGPoint place{static_cast<double>(below(320)), static_cast<double>(below(rowCount)) * rowHeight};
  desktop_.click(place, static_cast<PointerButton>(below(3)));
}

void SoakEvents::pressKey() {
  using namespace modifierFlag;
  static const std::vector<NSEvent> keys{{false, std::nullopt, "a", shift},
                                         {false, std::nullopt, "c", command},
                                         {false, NSEvent::SpecialKey::carriageReturn, "\r", 0},
                                         {false, NSEvent::SpecialKey::upArrow, std::nullopt, function | numericPad},
                                         {true, NSEvent::SpecialKey::downArrow, std::nullopt, 0}};
  const auto drawn = below(keys.size() + 1);
  desktop_.pressKey(drawn < keys.size() ? std::optional(keys[drawn]) : std::nullopt);
}

void SoakEvents::changeValue() {
  desktop_.setAttributes(focused_, {{"AXValue", randomText()}});
  desktop_.notify(focused_, "AXValueChanged");
}

void SoakEvents::moveFocus() { focus(focusableElements()[below(focusableElements().size())]); }

void SoakEvents::changeSelection() {
  static constexpr std::array kinds{"Rows", "Cells", "Children"};
  static constexpr std::array names{"row", "second row", "item", "second item", "cell", "button"};
  References selected;
  while (below(3) != 0) selected.push_back({identifier(front_, names[below(names.size())])});
  const std::string attribute = std::string("AXSelected") + kinds[below(kinds.size())];
  desktop_.setAttributes(focused_, {{attribute, std::move(selected)}});
  desktop_.notify(focused_, attribute + "Changed");
}

void SoakEvents::switchApplication() {
  front_ = processes[below(processes.size())];
  focused_ = identifier(front_, "text");
  desktop_.setAttributes(identifier(front_, "application"), {{"AXFocusedUIElement", ElementReference{focused_}}});
  desktop_.activate(front_);
}

void SoakEvents::disturb() {
  using Event = void (SoakEvents::*)();
  static constexpr std::array<Event, 3> events{&SoakEvents::pauseAndResume, &SoakEvents::rebuildElement,
                                               &SoakEvents::bringASecondClient};
  (this->*events[below(events.size())])();
}

void SoakEvents::pauseAndResume() {
  call(ServiceOperation::pause);
  click();
  if (below(2) == 0) desktop_.advance(200ms);
  call(ServiceOperation::resume);
}

void SoakEvents::rebuildElement() {
  const auto& name = focusableElements()[below(focusableElements().size())];
  desktop_.destroy(identifier(front_, name));
  click();
  desktop_.add(identifier(front_, name), element(front_, name));
  focus(name);
}

void SoakEvents::bringASecondClient() {
  desktop_.connect("second client", std::make_shared<SilentClient>());
  desktop_.call("second client", ServiceOperation::resume, [](auto) {});
  desktop_.interrupt("second client");
  desktop_.disconnect("second client");
  desktop_.disableTaps(CGEventType::tapDisabledByTimeout);
}

void SoakEvents::call(ServiceOperation operation) {
  desktop_.call(client, operation, [](auto) {});
}

void SoakEvents::settle() {
  for (const auto process : processes) {
    front_ = process;
    for (const auto& name : focusableElements()) desktop_.add(identifier(process, name), element(process, name));
    focus("text");
  }
  desktop_.activate(processes.front());
  call(ServiceOperation::pause);
  desktop_.advance(5s);
  call(ServiceOperation::resume);
  switchApplication();
  desktop_.activate(processes.front());
  front_ = processes.front();
  focus("text");
}

void SoakEvents::focus(const std::string& name) {
  focused_ = identifier(front_, name);
  const auto application = identifier(front_, "application");
  desktop_.setAttributes(application, {{"AXFocusedUIElement", ElementReference{focused_}}});
  desktop_.setAttributes(std::string(simulated::systemWideIdentifier),
                         {{"AXFocusedUIElement", ElementReference{focused_}}});
  desktop_.notify(application, "AXFocusedUIElementChanged");
}

std::size_t SoakEvents::below(std::size_t count) { return static_cast<std::size_t>(random_() % count); }

std::string SoakEvents::randomText() {
  static constexpr std::array characters{"a", "Z", "7", " ", "é", "e\u0301", "漢", "👩‍👩‍👧", "\"", "/"};
  std::string text;
  for (auto count = below(below(8) == 0 ? 130 : 12); count > 0; --count) text += characters[below(characters.size())];
  return text;
}

}  // namespace norra::soak
