#include "Platform/Linux/reading/AtspiApplication.h"

#include <utility>

#include "Platform/Linux/atspi/AtspiRole.h"

namespace norra::linux_desktop {
namespace {

constexpr std::size_t maxPasswords = 10000;
// Whoever reads a list takes no longer.
constexpr std::chrono::seconds changeTakes{20};

}  // namespace

void AtspiApplication::noteToolkit(const Toolkit& toolkit, bool isItsOwnWord) {
  toolkit_ = &toolkit;
  isMet_ = isItsOwnWord;
}

OwnPixels AtspiApplication::pixels() const {
  const std::lock_guard lock(mutex_);
  return pixels_;
}

void AtspiApplication::notePixels(const OwnPixels& pixels) {
  const std::lock_guard lock(mutex_);
  pixels_ = pixels;
}

std::string AtspiApplication::roleName(std::uint32_t role) const {
  const std::lock_guard lock(mutex_);
  const auto found = roleNames_.find(role);
  return found == roleNames_.end() ? std::string() : found->second;
}

void AtspiApplication::noteRoleName(std::uint32_t role, std::string name) {
  const std::lock_guard lock(mutex_);
  if (role < roleLimit) roleNames_.insert_or_assign(role, std::move(name));
}

bool AtspiApplication::wasPassword(const std::string& path) const {
  const std::lock_guard lock(mutex_);
  return passwords_.contains(path);
}

// A path is never given to another element soon, so forgetting all of a great many harms nobody but a hostile
// application.
void AtspiApplication::notePassword(const std::string& path) {
  const std::lock_guard lock(mutex_);
  if (passwords_.size() >= maxPasswords) passwords_.clear();
  passwords_.insert(path);
}

void AtspiApplication::noteFormerValue(const AtspiReference& element, AXAttributeValue value) {
  const std::lock_guard lock(mutex_);
  changing_ = element;
  formerValue_ = std::move(value);
  changingSince_ = std::chrono::steady_clock::now();
}

std::optional<AXAttributeValue> AtspiApplication::takeFormerValue(const AtspiReference& element) {
  const std::lock_guard lock(mutex_);
  if (element.isNull() || changing_ != element) return std::nullopt;
  changing_ = {};
  if (std::chrono::steady_clock::now() - changingSince_ > changeTakes) return std::nullopt;
  return std::exchange(formerValue_, AXAttributeValue{});
}

std::shared_ptr<AtspiApplication> AtspiApplications::of(const std::string& busName) {
  const std::lock_guard lock(mutex_);
  auto& application = applications_[busName];
  if (!application) application = std::make_shared<AtspiApplication>();
  return application;
}

std::shared_ptr<AtspiApplication> AtspiApplications::find(std::string_view busName) const {
  const std::lock_guard lock(mutex_);
  const auto found = applications_.find(busName);
  return found == applications_.end() ? nullptr : found->second;
}

void AtspiApplications::forget(std::string_view busName) {
  const std::lock_guard lock(mutex_);
  const auto found = applications_.find(busName);
  if (found != applications_.end()) applications_.erase(found);
}

void AtspiApplications::clear() {
  const std::lock_guard lock(mutex_);
  applications_.clear();
}

}  // namespace norra::linux_desktop
