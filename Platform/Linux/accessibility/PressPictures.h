// Takes a picture at every press of a button, on a thread of its own, so that nobody waits for an application while the
// button is held.
#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "Platform/Linux/accessibility/ElementHandles.h"
#include "Platform/Linux/accessibility/Picture.h"
#include "Platform/Linux/display/WindowsOnScreen.h"

namespace norra::linux_desktop {

class PressPictures {
 public:
  /// The longest that a click waits for the picture of its press.
  static constexpr std::chrono::milliseconds patience{250};
  /// How long a picture is kept for a click, its second look included.
  static constexpr std::chrono::seconds keptFor{3};
  /// The longest between the presses of a double click; toolkits take 400 ms unless the user wants another time.
  static constexpr std::chrono::milliseconds doubleClickTime{500};

  /// All references must outlive this. `rehearse` is called on the thread of the pictures; empty: no pictures are
  /// taken.
  PressPictures(AtspiSession& session, PointedElement& pointed, const ElementHandles& handles, ClickRehearsal rehearse);
  ~PressPictures();
  PressPictures(const PressPictures&) = delete;
  PressPictures& operator=(const PressPictures&) = delete;

  /// A button that clicks was pressed, or released. Nothing: it is not known where the pointer is. Main thread, which
  /// is not held up.
  void notePress(std::optional<CGPoint> place);
  void noteRelease();

  /// Another window is active. The element that it is will be looked up before a button is pressed in it. Main thread,
  /// which is not held up.
  void noteActivation();

  /// What lay at the place when the button was pressed that was released last, if it was released on what was pressed,
  /// and that is something that a click on it is told of; nothing: ask what lies there now. Waits for a picture that is
  /// still being taken.
  std::optional<AXUIElement> elementAt(CGPoint point);

 private:
  struct Press {
    explicit Press(std::optional<CGPoint> pressedPlace) : place(pressedPlace) {}

    const std::optional<CGPoint> place;
    const std::chrono::steady_clock::time_point time = std::chrono::steady_clock::now();
    const std::shared_ptr<Picture> picture = std::make_shared<Picture>();
    // written before the picture is finished
    std::optional<AXUIElement> element;
    std::optional<AtspiRectangle> area;  // of what was pressed, on the screen; nothing: not known
    bool isOnItem = false;               // that a double click opens
  };
  using PressPtr = std::shared_ptr<Press>;

  void run();
  bool awaitWork(std::unique_lock<std::mutex>& lock);
  void prepare();
  void take(Press& press);
  bool completesDoubleClick(const Press& press) const;
  bool mayLookAfter(std::chrono::milliseconds pause, const Press& press);
  bool isInWebPage(const AtspiReference& element) const;
  bool look(Press& press);
  void makeSure(Press& press, const AtspiReference& guessed);
  bool rehearse(Press& press, const AtspiReference& pressed);
  bool isSamePress(const Press& press, CGPoint released) const;

  AtspiSession& session_;
  PointedElement& pointed_;
  const ElementHandles& handles_;
  const ClickRehearsal rehearse_;

  std::mutex mutex_;
  std::condition_variable changed_;
  // guarded by mutex_
  PressPtr untaken_;          // to be taken
  PressPtr pressed_;          // the last one
  PressPtr released_;         // of the click that is told
  bool isActivated_ = false;  // a window, which was not looked up yet
  bool isEnding_ = false;

  PressPtr taken_;  // the last one; of the thread of the pictures

  std::thread thread_;
};

}  // namespace norra::linux_desktop
