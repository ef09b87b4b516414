// What is known of the applications on the accessibility bus, each by its bus name, for as long as it is there.
//
// Applications differ by what they were made with, and some questions are of no use to some of them. Both are learnt
// from the first answers and remembered here, so that later clicks are cheaper than the first one. That an element is a
// field for passwords is remembered too, and never unlearnt: a field that shows its text for a moment stays a secret.
#pragma once

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_set>

#include "Platform/Linux/reading/AtspiFacts.h"
#include "Platform/Linux/reading/FocusMemory.h"
#include "Platform/Linux/reading/SelectedItems.h"

namespace norra::linux_desktop {

/// What an application's accessibles were made with; it decides which of their answers mean what they say.
enum class Toolkit : std::uint8_t { other, gtk3, gtk4, qt, chromium, gecko };

/// By what an application says of itself.
Toolkit toolkitNamed(std::string_view name, std::string_view version);

/// All that is known of one application. Any thread.
class AtspiApplication {
 public:
  /// What it was made with, as far as it is known.
  Toolkit toolkit() const { return toolkit_; }
  /// Whether it has said so itself.
  bool isMet() const { return isMet_; }
  void noteToolkit(Toolkit toolkit, bool isItsOwnWord);

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
  bool hasOneNameForEachRole() const { return toolkit() == Toolkit::gtk3 || showsWebPages(); }
  /// Whether its accessibles are, or may be, those of web pages.
  bool showsWebPages() const { return toolkit() == Toolkit::chromium || toolkit() == Toolkit::gecko; }

  FocusMemory focus;
  SelectedItems selectedItems;

 private:
  std::atomic<Toolkit> toolkit_ = Toolkit::other;
  std::atomic<bool> isMet_ = false;
  std::atomic<std::uint32_t> unknown_ = 0;
  mutable std::mutex mutex_;
  // guarded by mutex_
  std::map<std::uint32_t, std::string> roleNames_;
  std::unordered_set<std::string> passwords_;
};

/// Any thread.
class AtspiApplications {
 public:
  /// Made at the first time. Never null.
  std::shared_ptr<AtspiApplication> of(const std::string& busName);
  /// Null: nothing is known of it.
  std::shared_ptr<AtspiApplication> find(std::string_view busName) const;
  void forget(std::string_view busName);
  void clear();

 private:
  mutable std::mutex mutex_;
  std::map<std::string, std::shared_ptr<AtspiApplication>, std::less<>> applications_;  // guarded by mutex_
};

}  // namespace norra::linux_desktop
