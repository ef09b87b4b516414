// What is known of the applications on the accessibility bus, each by its bus name, for as long as it is there.
//
// Applications differ by what they were made with, and some questions are of no use to some of them. Both are learnt
// from the first answers and remembered here, so that later clicks are cheaper than the first one. That an element is a
// field for passwords is remembered too, and never unlearnt: a field that shows its text for a moment stays a secret.
#pragma once

#include <atomic>
#include <chrono>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

#include "Platform/Accessibility.h"
#include "Platform/Linux/reading/AtspiFacts.h"
#include "Platform/Linux/reading/FocusMemory.h"
#include "Platform/Linux/reading/OwnPixels.h"
#include "Platform/Linux/reading/SelectedItems.h"
#include "Platform/Linux/reading/Toolkit.h"

namespace norra::linux_desktop {

/// All that is known of one application. Any thread.
class AtspiApplication {
 public:
  /// What it was made with, as far as it is known.
  const Toolkit& toolkit() const { return *toolkit_; }
  /// Whether it has said so itself.
  bool isMet() const { return isMet_; }
  void noteToolkit(const Toolkit& toolkit, bool isItsOwnWord);

  /// Whether a question is of no use here, because one element of this application does not know it and none will.
  bool isUnknown(Ask ask) const { return Asks::fromBits(unknown_).has(ask); }
  void noteUnknown(Ask ask) { unknown_ |= Asks(ask).bits(); }

  /// The localized names of roles that were asked for; empty: not yet. Only where a role has one name.
  std::string roleName(std::uint32_t role) const;
  void noteRoleName(std::uint32_t role, std::string name);

  /// Whether an element was found to be a field with a hidden text; it stays one.
  bool wasPassword(const std::string& path) const;
  void notePassword(const std::string& path);

  /// In which it tells places; those of the window that was looked into last.
  OwnPixels pixels() const;
  void notePixels(const OwnPixels& pixels);

  /// What the element held before the user began to change it, for who follows it only afterwards: a number that
  /// changes with the press that gives it the focus, a drop-down whose list has the focus until another item is chosen.
  void noteFormerValue(const AtspiReference& element, AXAttributeValue value);
  /// Once; nothing: none was noted of it lately.
  std::optional<AXAttributeValue> takeFormerValue(const AtspiReference& element);

  FocusMemory focus;
  SelectedItems selectedItems;

 private:
  std::atomic<const Toolkit*> toolkit_ = &unknownToolkit;
  std::atomic<bool> isMet_ = false;
  std::atomic<std::uint32_t> unknown_ = 0;
  mutable std::mutex mutex_;
  // guarded by mutex_
  OwnPixels pixels_;
  std::map<std::uint32_t, std::string> roleNames_;
  std::unordered_set<std::string> passwords_;
  AtspiReference changing_;
  AXAttributeValue formerValue_;
  std::chrono::steady_clock::time_point changingSince_;
};

/// Any thread.
class AtspiApplications {
 public:
  explicit AtspiApplications(ToolkitLookup lookUp) : toolkitOf_(lookUp) {}

  /// See ToolkitLookup.
  const Toolkit& toolkitOf(std::string_view name, std::string_view version, std::string_view path) const {
    return toolkitOf_(name, version, path);
  }
  /// Made at the first time. Never null.
  std::shared_ptr<AtspiApplication> of(const std::string& busName);
  /// Null: nothing is known of it.
  std::shared_ptr<AtspiApplication> find(std::string_view busName) const;
  void forget(std::string_view busName);
  void clear();

 private:
  const ToolkitLookup toolkitOf_;
  mutable std::mutex mutex_;
  std::map<std::string, std::shared_ptr<AtspiApplication>, std::less<>> applications_;  // guarded by mutex_
};

}  // namespace norra::linux_desktop
