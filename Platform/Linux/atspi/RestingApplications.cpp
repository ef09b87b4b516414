#include "Platform/Linux/atspi/RestingApplications.h"

#include <algorithm>

namespace norra::linux_desktop {

bool RestingApplications::isResting(std::string_view busName, TimePoint now) const {
  const std::lock_guard lock(mutex_);
  const auto rest = rests_.find(busName);
  return rest != rests_.end() && now < rest->second.until;
}

void RestingApplications::didNotAnswer(std::string_view busName, TimePoint now) {
  const std::lock_guard lock(mutex_);
  auto& rest = rests_[std::string(busName)];
  if (now < rest.until) return;
  rest.length = std::clamp(rest.length * 2, firstRest, longestRest);
  rest.until = now + rest.length;
}

void RestingApplications::showedLife(std::string_view busName) {
  const std::lock_guard lock(mutex_);
  const auto rest = rests_.find(busName);
  if (rest == rests_.end()) return;
  rest->second.until = {};
  rest->second.length = {};
}

void RestingApplications::sentEvent(std::string_view busName, TimePoint now) {
  const std::lock_guard lock(mutex_);
  const auto rest = rests_.find(busName);
  if (rest == rests_.end() || now >= rest->second.until || now < rest->second.nextChanceByEvent) return;
  rest->second.until = now;
  rest->second.nextChanceByEvent = now + pauseBetweenChances;
}

void RestingApplications::forget(std::string_view busName) {
  const std::lock_guard lock(mutex_);
  const auto rest = rests_.find(busName);
  if (rest != rests_.end()) rests_.erase(rest);
}

std::size_t RestingApplications::count(TimePoint now) const {
  const std::lock_guard lock(mutex_);
  return static_cast<std::size_t>(
      std::ranges::count_if(rests_, [now](const auto& entry) { return now < entry.second.until; }));
}

void RestingApplications::clear() {
  const std::lock_guard lock(mutex_);
  rests_.clear();
}

}  // namespace norra::linux_desktop
