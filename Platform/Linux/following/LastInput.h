// What the user did last, for telling what they wrote from what their application did on its own.
#pragma once

#include <chrono>
#include <mutex>
#include <optional>

#include "Platform/Linux/atspi/AtspiReference.h"
#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {

/// Any thread.
class LastInput {
 public:
  using TimePoint = std::chrono::steady_clock::time_point;

  void noteKey();
  /// A button was pressed at a point of the screen; `isInPopUp`: in a menu, a list or the like.
  void notePress(CGPoint point, bool isInPopUp);

  /// The button was pressed on this; told again of where it was released. `comboBox` is the one whose open list it is
  /// an item of, or null.
  void notePressed(const ElementView& element, const AtspiReference& comboBox);
  struct Pressed {
    CGPoint point;
    AtspiReference element;
  };
  /// Nothing: it was in a menu or the like, or on nothing that is known, or something else was done since.
  std::optional<Pressed> pressed() const;

  /// Whether the text of a field that has been followed since then cannot have been changed by the user, since the last
  /// that they did was to press a button elsewhere, or before.
  bool wasElsewhere(const ElementView& field, TimePoint followedSince) const;
  /// Whether what is selected in a list, a table or a tree cannot have been chosen by the user, since the last that
  /// they did was to press a button elsewhere, or on the header of a column.
  bool wasOutside(const ElementView& container) const;
  /// Whether an item of the combo box's list was clicked just now, and nothing was done since: what the box holds then
  /// is told with the click.
  bool wasChoiceIn(const AtspiReference& comboBox) const;

 private:
  struct Press {
    CGPoint point;
    bool isInPopUp = false;
    TimePoint time;
    AtspiReference element = {};
    bool isOnHeader = false;
    AtspiReference comboBox = {};
  };

  std::optional<Press> press() const;

  mutable std::mutex mutex_;
  std::optional<Press> press_;  // the last thing that was done; guarded by mutex_
};

}  // namespace norra::linux_desktop
