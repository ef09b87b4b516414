#include "Platform/Linux/following/LastInput.h"

namespace norra::linux_desktop {
namespace {

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

bool LastInput::wasElsewhere(const ElementView& field, TimePoint followedSince) const {
  const auto press = [this] {
    const std::lock_guard lock(mutex_);
    return press_;
  }();
  if (!press || press->isInPopUp || field.toolkit().showsWebPages || !is(field.role(), RoleKind::field)) return false;
  return press->time < followedSince || !mayLieIn(field, press->point);
}

}  // namespace norra::linux_desktop
