// Which element has the keyboard focus.
#pragma once

#include <string>

#include "Platform/Linux/following/HighlightedItems.h"
#include "Platform/Linux/following/LastInput.h"
#include "Platform/Linux/reading/AtspiSession.h"
#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {

/// Any thread. What is told by events is looked at later: when a burst of them is over, or somebody asks.
class Focus {
 public:
  /// `session` must outlive this.
  explicit Focus(AtspiSession& session);

  /// An event told that the element has the focus. Reads nothing.
  void arrived(const AtspiReference& element);
  /// Looks at the element that events of an application told of last, if that was not done yet, and gives the one that
  /// is followed now; null: none is known. An item of a menu, or of the list of a combo box, is remembered as such and
  /// not followed.
  AtspiReference settle(const std::string& busName);

  /// The element of a process that has the focus, as its events told, else as a bounded search finds it; null: none. In
  /// lists, tables and trees it is the container.
  AtspiReference of(ProcessIdentifier process);

  /// An event told that the element has lost the focus. Gives the one that has it although it was told of before: in a
  /// window that has come to the front, of an application that does not tell of all that get it. Null: none is known.
  /// Reads nothing.
  AtspiReference left(const AtspiReference& lost);
  /// Whether the element, which lost the focus, was the last to be told of in an application that does not tell of all
  /// that get it. Reads nothing.
  bool mayHaveGoneUntold(const AtspiReference& lost) const;
  /// Whether the element, in which the caret moved, is a line to write into that does not tell of its focus.
  bool isUntold(const AtspiReference& written);

  /// Whether the element that is followed was told of, not found.
  bool isTold(const std::string& busName) const;
  /// Whether the element of the process that is followed is known to be a field with a hidden text. Reads no element.
  bool isSecret(ProcessIdentifier process);

  HighlightedItems& highlightedItems() { return highlightedItems_; }
  LastInput& lastInput() { return lastInput_; }

 private:
  AtspiReference remembered(ProcessIdentifier process);
  bool isStillFocused(const AtspiReference& found);
  void look(const ElementView& arrived, const std::vector<AtspiReference>& burst);
  void rememberHighlight(const ElementView& item);
  AtspiReference search(ProcessIdentifier process);

  AtspiSession& session_;
  HighlightedItems highlightedItems_;
  LastInput lastInput_;
};

/// The combo box that an item of an open list belongs to. A browser may show the list in a window with a nameless combo
/// box of its own; then it is the one that has the focus. Null: it belongs to none that is known.
AtspiReference ownerOfOpenList(const ElementView& item);

/// The top-level of an application that is active; null: none.
AtspiReference activeWindowOf(const ElementView& root);

}  // namespace norra::linux_desktop
