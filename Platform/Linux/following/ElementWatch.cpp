#include "Platform/Linux/following/ElementWatch.h"

#include <algorithm>
#include <utility>

#include "Platform/Linux/elements/Naming.h"
#include "Platform/Linux/elements/Text.h"
#include "Platform/Linux/following/WatchedEvents.h"

namespace norra::linux_desktop {
namespace {

constexpr std::string_view valueChanged = "AXValueChanged";
constexpr std::string_view focusChanged = "AXFocusedUIElementChanged";
// What an application needs to carry out what the user did.
constexpr std::uint64_t pauseAfterInputMicroseconds = 40'000;

}  // namespace

ElementWatch::ElementWatch(AtspiSession& session, AtspiEvents& events, AtspiReference element,
                           std::function<void(std::string_view)> changed)
    : session_(session),
      events_(events),
      element_(std::move(element)),
      changed_(std::move(changed)),
      changes_(events.loop(), [this] { tellChanges(); }) {}

bool ElementWatch::isWanted(std::string_view notification) const {
  return std::ranges::find(wanted_, notification) != wanted_.end();
}

void ElementWatch::want(std::string_view notification) {
  wanted_.emplace_back(notification);
  if (notification == valueChanged) {
    listenToValue();
  } else if (selectionEvents_.empty()) {
    listenToSelection();
  }
}

void ElementWatch::unwant(std::string_view notification) {
  std::erase(wanted_, notification);
  if (notification == valueChanged) valueEvents_.clear();
  if (std::ranges::none_of(wanted_, [](const auto& name) { return name != valueChanged; })) selectionEvents_.clear();
}

void ElementWatch::listenToValue() {
  const ElementView view(session_.reader(), element_);
  keepNames(view);
  isSilent_ = changesSilently(view);
  // As the parts of a date are, which a page leaves for the next one with the last digit.
  isLeftByTyping_ = view.role() == AtspiRole::spinButton && view.toolkit().showsWebPages;
  wasHidden_ = hidesText(view);
  if (isSilent_) fingerprint_ = valueFingerprint(view);
  for (auto& kind : valueEvents(view)) {
    valueEvents_.push_back(events_.subscribe(std::move(kind), [this](const AtspiEvent&) {
      isValueDue_ = true;
      changes_.request();
    }));
  }
}

void ElementWatch::listenToSelection() {
  for (auto& kind : selectionEvents(ElementView(session_.reader(), element_))) {
    selectionEvents_.push_back(events_.subscribe(std::move(kind), [this](const AtspiEvent& event) {
      if (event.source == element_)
        isSelectionDue_ = true;
      else if (changedItems_.size() < SelectedItems::maxItems)
        changedItems_.push_back(event.source);
      changes_.request();
    }));
  }
}

void ElementWatch::settle() {
  if (isLeftByTyping_) isValueDue_ = true;
  if (isValueDue_) tellChanges();
}

void ElementWatch::noteInput() {
  if (!isSilent_) return;
  isValueDue_ = true;
  changes_.requestAfter(pauseAfterInputMicroseconds);
}

// Of a silent element every sign counts only if the value is another.
bool ElementWatch::isValueNew() {
  if (!isSilent_) return true;
  const ElementView view(session_.reader(), element_);
  const auto before = std::exchange(fingerprint_, valueFingerprint(view));
  return fingerprint_ != before;
}

// Items tell of themselves to whoever listens to their application.
void ElementWatch::noteChangedItems() {
  const auto items = std::exchange(changedItems_, {});
  auto& reader = session_.reader();
  std::vector<AtspiQuestion> questions;
  for (const auto& item : items) questions.push_back({item, Ask::parent});
  reader.read(questions);
  for (const auto& item : items) {
    if (reader.known(item).parent != element_) continue;
    session_.applications.of(element_.busName)->selectedItems.note(element_, item);
    isSelectionDue_ = true;
  }
}

void ElementWatch::tellChanges() {
  const ElementView view(session_.reader(), element_);
  // All that a letter needs before the text itself.
  view.needOnly({Ask::role, Ask::states});
  const bool isHidden = hidesText(view);
  // What turns out to be a field with a hidden text has to be looked at anew before its text is.
  if (std::exchange(wasHidden_, isHidden) != isHidden) changed_(focusChanged);
  if (std::exchange(isValueDue_, false) && isValueNew()) tell(valueChanged);
  noteChangedItems();
  if (!std::exchange(isSelectionDue_, false)) return;
  tell(selectionNotification(view));
}

void ElementWatch::tell(std::string_view notification) {
  if (isWanted(notification)) changed_(notification);
}

}  // namespace norra::linux_desktop
