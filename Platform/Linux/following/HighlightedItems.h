// Items of menus that were highlighted lately.
//
// A menu closes with the click on its item, so by the time that the click is looked at, the item may be nowhere any
// more. But before it was clicked it was highlighted, and the toolkit told so: the pointer over an item gives it the
// focus. So the items that were highlighted are remembered with their places, and a click that lies on one of them,
// within a short grace after the application went on to something else, is a click on that item.
//
// Lists of combo boxes open the other way round: under the pointer, on the item that is chosen, with the click that
// opens them. A click that highlights the first item of a list is therefore one on the combo box until it is over.
#pragma once

#include <chrono>
#include <deque>
#include <mutex>
#include <optional>
#include <string_view>

#include "Platform/Accessibility.h"
#include "Platform/Linux/atspi/AtspiMessage.h"
#include "Platform/Linux/atspi/AtspiReference.h"

namespace norra::linux_desktop {

/// Any thread.
class HighlightedItems {
 public:
  using TimePoint = std::chrono::steady_clock::time_point;

  /// How long an item counts after its application went on to something else.
  static constexpr std::chrono::milliseconds grace{300};

  /// `owner` is the combo box whose list the item lies in, or null.
  void highlighted(const AtspiReference& item, const AtspiRectangle& place, const AtspiReference& owner, TimePoint now);
  /// The focus of the application went elsewhere.
  void left(std::string_view busName, TimePoint now);
  /// The focus went to the list of a combo box, which opens with it. None of the list's items is highlighted yet.
  void wentToList(const AtspiReference& list, const AtspiReference& comboBox, TimePoint now);

  /// How long the click that opened a list may last. The list opens under the pointer, on the item that is chosen.
  static constexpr std::chrono::milliseconds openingClick{400};

  /// The item at a point of the screen that is highlighted, or was a moment ago; null: none. While the list of a combo
  /// box has only just opened, the combo box.
  AtspiReference at(CGPoint point, TimePoint now) const;
  /// The same for a click, with which its menu closes.
  AtspiReference clicked(CGPoint point, TimePoint now);
  /// The last item that was highlighted in the list of a combo box of the application, open or not; null: none was.
  AtspiReference highlightedIn(std::string_view busName) const;
  /// Whether the list of the combo box is open, and for longer than that click.
  bool isOpen(const AtspiReference& comboBox, TimePoint now) const;

  void clear();

 private:
  void add(const AtspiReference& item, const AtspiRectangle& place, const AtspiReference& owner, TimePoint now);
  void end(std::string_view busName, TimePoint now);

  struct Item {
    AtspiReference reference;
    AtspiRectangle place;
    AtspiReference owner;
    TimePoint since;
    bool isFirst = true;  // of its list
    std::optional<TimePoint> until;

    bool isThere(TimePoint now) const { return !until || now < *until; }
    bool isOpening(TimePoint now) const { return isFirst && !owner.isNull() && now - since < openingClick; }
  };

  mutable std::mutex mutex_;
  // guarded by mutex_
  std::deque<Item> items_;  // the last one first
};

}  // namespace norra::linux_desktop
