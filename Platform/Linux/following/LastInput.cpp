#include "Platform/Linux/following/LastInput.h"

namespace norra::linux_desktop {
namespace {

// The button is released a while after it was pressed on the item, and the application tells of it a while after that.
constexpr std::chrono::seconds choiceTakes{2};

bool mayLieIn(const ElementView& field, CGPoint point) {
  const auto& facts = field.needOnly(Ask::extents);
  if (!field.toolkit().saysPlacesOnScreen || !facts.answered(Ask::extents)) return true;
  return contains(facts.extents, field.application().pixels().of(point));
}

}  // namespace

void LastInput::noteKey() {
  const std::lock_guard lock(mutex_);
  press_.reset();
}

void LastInput::notePress(CGPoint point, bool isInPopUp) {
  const std::lock_guard lock(mutex_);
  press_ = {point, isInPopUp, std::chrono::steady_clock::now()};
}

void LastInput::notePressed(const ElementView& element, const AtspiReference& comboBox) {
  const auto role = element.role();
  const std::lock_guard lock(mutex_);
  if (!press_) return;
  if (press_->element.isNull()) press_->element = element.reference();
  press_->isOnHeader = role == AtspiRole::tableColumnHeader || role == AtspiRole::columnHeader;
  press_->comboBox = comboBox;
}

std::optional<LastInput::Press> LastInput::press() const {
  const std::lock_guard lock(mutex_);
  return press_;
}

bool LastInput::wasElsewhere(const ElementView& field, TimePoint followedSince) const {
  const auto press = this->press();
  if (!press || press->isInPopUp || field.toolkit().showsWebPages || !is(field.role(), RoleKind::field)) return false;
  return press->time < followedSince || !mayLieIn(field, press->point);
}

bool LastInput::wasOutside(const ElementView& container) const {
  const auto press = this->press();
  if (!press || press->isInPopUp || container.toolkit().showsWebPages) return false;
  return press->isOnHeader || !mayLieIn(container, press->point);
}

std::optional<LastInput::Pressed> LastInput::pressed() const {
  const auto press = this->press();
  if (!press || press->isInPopUp || press->element.isNull()) return std::nullopt;
  return Pressed{press->point, press->element};
}

bool LastInput::wasChoiceIn(const AtspiReference& comboBox) const {
  const auto press = this->press();
  const bool isRecent = press && std::chrono::steady_clock::now() - press->time < choiceTakes;
  return isRecent && !comboBox.isNull() && press->comboBox == comboBox;
}

}  // namespace norra::linux_desktop
