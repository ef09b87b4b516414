// Low-level input events, observed and never changed.
//
// A tap sees what the person does with the mouse and the keyboard in every application, at the time at which the
// applications get it. It stands beside them and holds nothing up. The core asks for releases of mouse buttons and
// presses of keys; where the pointer goes it does not need to know, and what is typed into a field it hears of from the
// field.
//
// Keys come as the application would get them: in the layout of the person's keyboard, with the modifiers as flags. A
// key that types no character is named by the code point that stands for it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Platform/Accessibility.h"

namespace norra {

enum class CGEventType : std::uint32_t {
  leftMouseUp = 2,
  rightMouseUp = 4,
  keyDown = 10,
  otherMouseUp = 26,
  tapDisabledByTimeout = 0xFFFFFFFE,
  tapDisabledByUserInput = 0xFFFFFFFF,
};

/// A set of event types: bit n stands for the type n.
using CGEventMask = std::uint64_t;

constexpr CGEventMask maskOf(CGEventType type) { return CGEventMask{1} << static_cast<std::uint32_t>(type); }

/// A set of the bits below.
using NSEventModifierFlags = std::uint64_t;

namespace modifierFlag {
inline constexpr NSEventModifierFlags capsLock = 0x10000;
inline constexpr NSEventModifierFlags shift = 0x20000;
inline constexpr NSEventModifierFlags control = 0x40000;
inline constexpr NSEventModifierFlags option = 0x80000;
inline constexpr NSEventModifierFlags command = 0x100000;
inline constexpr NSEventModifierFlags numericPad = 0x200000;
inline constexpr NSEventModifierFlags help = 0x400000;
inline constexpr NSEventModifierFlags function = 0x800000;
}  // namespace modifierFlag

/// A key press as the application would get it.
struct NSEvent {
  /// A key without a character of its own, by the code point that stands for it. The list holds those that have a name;
  /// a platform may tell of others.
  enum class SpecialKey : std::uint32_t {
    enter = 0x0003,
    backspace = 0x0008,
    tab = 0x0009,
    newline = 0x000A,
    formFeed = 0x000C,
    carriageReturn = 0x000D,
    backTab = 0x0019,
    delete_ = 0x007F,
    lineSeparator = 0x2028,
    paragraphSeparator = 0x2029,
    upArrow = 0xF700,
    downArrow = 0xF701,
    leftArrow = 0xF702,
    rightArrow = 0xF703,
    // clang-format off
    f1 = 0xF704, f2, f3, f4, f5, f6, f7, f8, f9, f10, f11, f12, f13, f14, f15, f16, f17, f18,
    f19, f20, f21, f22, f23, f24, f25, f26, f27, f28, f29, f30, f31, f32, f33, f34, f35,
    // clang-format on
    insert = 0xF727,
    deleteForward = 0xF728,
    home = 0xF729,
    begin = 0xF72A,
    end = 0xF72B,
    pageUp = 0xF72C,
    pageDown = 0xF72D,
    printScreen = 0xF72E,
    scrollLock = 0xF72F,
    pause = 0xF730,
    sysReq = 0xF731,
    break_ = 0xF732,
    reset = 0xF733,
    stop = 0xF734,
    menu = 0xF735,
    user = 0xF736,
    system = 0xF737,
    print = 0xF738,
    clearLine = 0xF739,
    clearDisplay = 0xF73A,
    insertLine = 0xF73B,
    deleteLine = 0xF73C,
    insertCharacter = 0xF73D,
    deleteCharacter = 0xF73E,
    prev = 0xF73F,
    next = 0xF740,
    select = 0xF741,
    execute = 0xF742,
    undo = 0xF743,
    redo = 0xF744,
    find = 0xF745,
    help = 0xF746,
    modeSwitch = 0xF747,
  };

  bool isARepeat = false;
  std::optional<SpecialKey> specialKey;
  /// What the key types without its modifiers, Shift excepted. Nothing where the event has no characters; a platform
  /// may keep to itself too what is typed without any modifier of a shortcut, since it may be a secret.
  std::optional<std::string> charactersIgnoringModifiers;
  NSEventModifierFlags modifierFlags = 0;
};

struct CGEvent {
  CGEventType type = CGEventType::leftMouseUp;
  /// Where the pointer was.
  CGPoint location;
  /// Of a key press: the key. Nothing where no key event can be made of it.
  std::optional<NSEvent> keyEvent;
};

using CGEventTapCallback = std::function<void(const CGEvent& event)>;

/// A tap delivers events to its callback while its source is on the main run loop and it is enabled. The platform may
/// disable it; it then says so with one of the two tap-disabled events. Main thread only; no callback after
/// destruction.
class EventTap {
 public:
  virtual ~EventTap() = default;
  virtual void addSourceToMainRunLoop() = 0;
  virtual void removeSourceFromMainRunLoop() = 0;
  virtual void enable() = 0;
};

/// Where taps come from.
class EventTaps {
 public:
  virtual ~EventTaps() = default;
  /// A tap that is neither enabled nor on the run loop; null where input cannot be observed. Main thread.
  virtual std::unique_ptr<EventTap> createEventTap(CGEventMask eventsOfInterest, CGEventTapCallback callback) = 0;
};

}  // namespace norra
