// What is known of the applications on the accessibility bus, each by its bus name, for as long as it is there.
#pragma once

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_set>

#include "Platform/Linux/reading/AtspiFacts.h"

namespace norra::linux_desktop {

/// What an application's accessibles were made with; it decides which of their answers mean what they say.
enum class Toolkit : std::uint8_t { other, gtk3, gtk4, qt, chromium, gecko };

/// By what an application says of itself.
Toolkit toolkitNamed(std::string_view name, std::string_view version);

struct AtspiApplication {
  explicit AtspiApplication(Toolkit madeWith) : toolkit(madeWith) {}

  const Toolkit toolkit;
  /// Whether a question is of no use here, because one element of this application does not know it and none will.
  bool isUnknown(Ask ask) const { return Asks::fromBits(unknown_).has(ask); }
  void noteUnknown(Ask ask) { unknown_ |= Asks(ask).bits(); }

  /// The localized names of roles that were asked for; empty: not yet. Only where a role has one name.
  std::string roleName(std::uint32_t role) const;
  void noteRoleName(std::uint32_t role, std::string name);

  /// Whether an element was found to be a field with a hidden text; it stays one.
  bool wasPassword(const std::string& path) const;
  void notePassword(const std::string& path);

  /// Whether a role is called the same on every element, so that its name can be remembered.
  bool hasOneNameForEachRole() const {
    return toolkit == Toolkit::gtk3 || toolkit == Toolkit::chromium || toolkit == Toolkit::gecko;
  }
  /// Whether its accessibles are, or may be, those of web pages.
  bool showsWebPages() const { return toolkit == Toolkit::chromium || toolkit == Toolkit::gecko; }

 private:
  std::atomic<std::uint32_t> unknown_ = 0;
  mutable std::mutex mutex_;
  // guarded by mutex_
  std::map<std::uint32_t, std::string> roleNames_;
  std::unordered_set<std::string> passwords_;
};

/// Any thread.
class AtspiApplications {
 public:
  /// Null: not met yet.
  std::shared_ptr<AtspiApplication> find(std::string_view busName) const;
  void add(std::string busName, std::shared_ptr<AtspiApplication> application);
  void remove(std::string_view busName);
  void clear();

 private:
  mutable std::mutex mutex_;
  std::map<std::string, std::shared_ptr<AtspiApplication>, std::less<>> applications_;  // guarded by mutex_
};

}  // namespace norra::linux_desktop
