// What a person saw before the application acted. Applications act on a click as soon as the button is released, and on
// a key as soon as it is pressed: the dialog closes, "Play" becomes "Pause", the row is gone. Who asks then is told
// what came of it, not what was clicked or had the keyboard focus. So all that the core will ask is asked before, when
// nothing has happened yet, and kept: the picture.
#pragma once

#include <atomic>
#include <chrono>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Accessibility.h"
#include "Platform/Linux/reading/AtspiReader.h"

namespace norra::linux_desktop {

/// What one element answered.
struct PicturedAnswers {
  explicit PicturedAnswers(AXUIElement pictured) : element(std::move(pictured)) {}

  const AXUIElement element;
  std::map<std::string, AXResult<AXAttributeValue>, std::less<>> attributes;
  std::optional<AXResult<std::vector<std::string>>> actions;
  std::optional<AXResult<ProcessIdentifier>> process;
  /// Until when another value is waited for; nothing: that has not begun.
  std::optional<std::chrono::steady_clock::time_point> awaitedUntil;
};

/// Made and filled by one thread, and from the time that it is finished on for another.
class Picture {
 public:
  /// Whether what an action changes (ticked, chosen, a value) is asked anew, or told as it was.
  enum class Changing : bool { askedAnew, kept };

  explicit Picture(Changing changing = Changing::askedAnew) : changing_(changing) {}
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;

  Changing changing() const { return changing_; }

  /// Of an element of the picture, or one that becomes it. Valid as long as this.
  PicturedAnswers& answersOf(const AXUIElement& element);

  /// What a click changes: of this nothing is kept but the answers.
  static constexpr Asks changingFacts{Ask::states,        Ask::currentValue,       Ask::characterCount, Ask::wholeText,
                                      Ask::displayedText, Ask::selectedChildCount, Ask::selectedRows};
  /// The other facts that the answers were made of, for who asks anew.
  void keepFacts(AtspiFactsByElement facts);
  const AtspiFactsByElement& facts() const { return facts_; }

  void finish() { isFinished_ = true; }
  bool isFinished() const { return isFinished_; }

  /// Nobody waits for it any more: what is not in it yet need not be asked. Any thread.
  void giveUp() { isGivenUp_ = true; }
  bool isGivenUp() const { return isGivenUp_; }

 private:
  const Changing changing_;
  std::list<PicturedAnswers> answers_;
  AtspiFactsByElement facts_;
  std::atomic<bool> isFinished_ = false;
  std::atomic<bool> isGivenUp_ = false;
};

}  // namespace norra::linux_desktop
