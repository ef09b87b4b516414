#include "Platform/Linux/RestingApplications.h"

#include <algorithm>

namespace norra::linux_desktop {

bool RestingApplications::isResting(std::string_view busName, TimePoint now) const {
  const std::lock_guard lock(mutex_);
  const auto rest = rests_.find(busName);
  return rest != rests_.end() && now < rest->second.until;
}

void RestingApplications::didNotAnswer(std::string_view busName, TimePoint now) {
  const std::lock_guard lock(mutex_);
  const auto [rest, isNew] = rests_.try_emplace(std::string(busName), Rest{now, now, firstRest});
  if (!isNew && now < rest->second.until) return;
  if (!isNew) rest->second.length = std::min(rest->second.length * 2, longestRest);
  rest->second.since = now;
  rest->second.until = now + rest->second.length;
}

void RestingApplications::showedLife(std::string_view busName) {
  const std::lock_guard lock(mutex_);
  const auto rest = rests_.find(busName);
  if (rest != rests_.end()) rests_.erase(rest);
}

void RestingApplications::sentEvent(std::string_view busName) {
  const std::lock_guard lock(mutex_);
  const auto rest = rests_.find(busName);
  if (rest == rests_.end()) return;
  auto& [since, until, length] = rest->second;
  until = std::min(until, since + length / 4);
}

std::size_t RestingApplications::count(TimePoint now) const {
  const std::lock_guard lock(mutex_);
  return static_cast<std::size_t>(
      std::ranges::count_if(rests_, [now](const auto& entry) { return now < entry.second.until; }));
}

}  // namespace norra::linux_desktop
