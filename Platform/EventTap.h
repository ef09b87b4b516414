// Low-level input events, observed and never changed.
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

/// Bits of NSEvent::modifierFlags.
namespace modifierFlag {
inline constexpr std::uint64_t capsLock = 0x10000;
inline constexpr std::uint64_t shift = 0x20000;
inline constexpr std::uint64_t control = 0x40000;
inline constexpr std::uint64_t option = 0x80000;
inline constexpr std::uint64_t command = 0x100000;
inline constexpr std::uint64_t numericPad = 0x200000;
inline constexpr std::uint64_t help = 0x400000;
inline constexpr std::uint64_t function = 0x800000;
}  // namespace modifierFlag

/// The code point that identifies a key without a character of its own, such as U+F700 for the up arrow.
enum class NSSpecialKey : std::uint32_t {};

/// A key press as the application would get it.
struct NSEvent {
  bool isARepeat = false;
  std::optional<NSSpecialKey> specialKey;
  /// What the key types without its modifiers, Shift excepted. Nothing where the event has no characters; a platform
  /// may keep to itself too what is typed without any modifier of a shortcut, since it may be a secret.
  std::optional<std::string> charactersIgnoringModifiers;
  std::uint64_t modifierFlags = 0;
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
