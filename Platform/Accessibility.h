// Accessibility elements as the core sees them: opaque handles that answer a few primitives with an error code and,
// perhaps, a value.
//
// The primitives are few and plain on purpose. A platform gives what its applications give, under the attribute names
// that the core asks by, and says with a code why there is nothing. What counts as absent, which type an attribute must
// have and where else to look are the core's rules (NorraDataCollector/elements/), the same over every platform; so a
// platform needs to know nothing of what is reported.
//
// Handles are values. One may be kept after its element has gone, and then every read of it fails; one may be handed to
// another thread. Two handles of the same element are equal, however each was come by, since the core remembers
// elements and compares them later.
//
// An observer is for one process and is served by the main thread. It is told which notifications of which elements are
// wanted, and tells of nothing else.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace norra {

/// Identifier of a process; 0 means unknown or none.
using ProcessIdentifier = std::int32_t;

/// Code of an accessibility operation; 0 is success.
using AXError = std::int32_t;

namespace axError {
inline constexpr AXError success = 0;
inline constexpr AXError failure = -25200;
inline constexpr AXError illegalArgument = -25201;
inline constexpr AXError invalidUIElement = -25202;
inline constexpr AXError cannotComplete = -25204;
inline constexpr AXError attributeUnsupported = -25205;
inline constexpr AXError notificationUnsupported = -25207;
inline constexpr AXError notificationAlreadyRegistered = -25209;
inline constexpr AXError notificationNotRegistered = -25210;
inline constexpr AXError apiDisabled = -25211;
inline constexpr AXError noValue = -25212;
}  // namespace axError

/// An error code and what came with it. A value beside an error means nothing.
template <typename Value>
struct AXResult {
  AXError error = axError::success;
  Value value{};
};

/// A number object; a Boolean is a number object too.
struct NSNumber {
  std::variant<bool, std::int64_t, double> value;
  bool operator==(const NSNumber&) const = default;
};

/// An address as whoever has it writes it: it may hold what no address may, and the core repairs or refuses it.
struct NSURL {
  std::string absoluteString;
  bool operator==(const NSURL&) const = default;
};

/// A packed range.
struct CFRange {
  std::int64_t location = 0;
  std::int64_t length = 0;
  bool operator==(const CFRange&) const = default;
};

/// A packed point; as a place on the screen in global coordinates, from the top left.
struct CGPoint {
  double x = 0;
  double y = 0;
  bool operator==(const CGPoint&) const = default;
};

/// An object of a type that the core does not know.
struct CFOther {
  std::string description;
  bool operator==(const CFOther&) const = default;
};

class AXUIElement;

/// What an attribute holds; the first alternative is nothing.
using AXAttributeValue = std::variant<std::monostate, std::string, NSNumber, AXUIElement, std::vector<AXUIElement>,
                                      NSURL, CFRange, CGPoint, CFOther>;

/// A platform's side of one element. Reached only through AXUIElement.
///
/// A read that waits for another process ends within a bound and then gives an error. Callable from the main thread
/// and from the thread of any serial executor.
class AXUIElementPrimitives {
 public:
  virtual ~AXUIElementPrimitives() = default;

  virtual AXResult<AXAttributeValue> copyAttributeValue(std::string_view attribute) const = 0;
  virtual AXResult<std::vector<std::string>> copyAttributeNames() const { return {axError::attributeUnsupported, {}}; }
  /// None, unless the element can do something.
  virtual AXResult<std::vector<std::string>> copyActionNames() const { return {}; }

  /// The deepest element under a point; success without an element is a possible answer. Only the system-wide element
  /// is asked; any other refuses.
  virtual AXResult<std::optional<AXUIElement>> copyElementAtPosition(float x, float y) const;
  virtual AXResult<ProcessIdentifier> getPid() const = 0;

  /// The root element of a process. Always gives a handle; one of a process that has no elements fails at every read.
  virtual AXUIElement createApplication(ProcessIdentifier process) const = 0;

  /// The platform's words for a role; nothing where it has none.
  virtual std::optional<std::string> roleDescription(std::string_view role,
                                                     std::optional<std::string_view> subrole) const = 0;

  virtual bool isEqual(const AXUIElementPrimitives& other) const = 0;
};

/// A shared handle of one element of some process, of an application's root, or of the whole system. Never empty.
/// Equality is the platform's: two handles of the same element are equal.
class AXUIElement {
 public:
  explicit AXUIElement(std::shared_ptr<const AXUIElementPrimitives> primitives) : primitives_(std::move(primitives)) {}

  const AXUIElementPrimitives& primitives() const { return *primitives_; }

  friend bool operator==(const AXUIElement& left, const AXUIElement& right) {
    return left.primitives_ == right.primitives_ || left.primitives_->isEqual(*right.primitives_);
  }

 private:
  std::shared_ptr<const AXUIElementPrimitives> primitives_;
};

inline AXResult<std::optional<AXUIElement>> AXUIElementPrimitives::copyElementAtPosition(float /*x*/,
                                                                                         float /*y*/) const {
  return {axError::illegalArgument, std::nullopt};
}

/// Receives the element that sent a notification and the notification's name. Main thread.
using AXObserverCallback = std::function<void(const AXUIElement& element, std::string_view notification)>;

/// Watches elements of one process. Main thread only; destruction ends every registration, and no callback runs after.
class AXObserver {
 public:
  virtual ~AXObserver() = default;

  virtual AXError addNotification(const AXUIElement& element, std::string_view notification) = 0;
  virtual AXError removeNotification(const AXUIElement& element, std::string_view notification) = 0;

  /// Notifications are delivered only while the observer's source is on the main run loop. Both may be repeated.
  virtual void addSourceToMainRunLoop() = 0;
  virtual void removeSourceFromMainRunLoop() = 0;
};

/// Where elements and observers come from.
class Accessibility {
 public:
  virtual ~Accessibility() = default;

  /// Any thread.
  virtual AXUIElement createSystemWide() = 0;
  /// Any thread. See AXUIElementPrimitives::createApplication.
  virtual AXUIElement createApplication(ProcessIdentifier process) = 0;
  /// Main thread. Null beside an error.
  virtual AXResult<std::unique_ptr<AXObserver>> createObserver(ProcessIdentifier process,
                                                               AXObserverCallback callback) = 0;
};

}  // namespace norra
