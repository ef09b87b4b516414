#include "Platform/Simulated/AccessibilityTree.h"

namespace norra::simulated {

class AccessibilityTree::Observer final : public AXObserver {
 public:
  Observer(AccessibilityTree& tree, ProcessIdentifier process, AXObserverCallback callback)
      : tree_(tree), process_(process), callback_(std::move(callback)) {
    tree_.observers_.add(this);
  }
  ~Observer() override { tree_.observers_.remove(this); }

  AXError addNotification(const AXUIElement& element, std::string_view notification) override {
    tree_.countCall("AXObserverAddNotification");
    const Registration registration = of(element, notification);
    const auto result = registration.first->registrationResult(registration.second);
    if (result == axError::success) registrations_.insert(registration);
    return result;
  }

  AXError removeNotification(const AXUIElement& element, std::string_view notification) override {
    tree_.countCall("AXObserverRemoveNotification");
    return registrations_.erase(of(element, notification)) > 0 ? axError::success : axError::notificationNotRegistered;
  }

  void addSourceToMainRunLoop() override { isOnRunLoop_ = true; }
  void removeSourceFromMainRunLoop() override { isOnRunLoop_ = false; }

  bool isRegistered(const Element& element, const std::string& notification) const {
    return registrations_.contains({&element, notification});
  }
  ProcessIdentifier process() const { return process_; }

  void deliver(const Element& element, const std::string& notification) const {
    if (!isOnRunLoop_) return;
    const auto callback = callback_;  // the call may be this observer's end
    callback(element.handle(), notification);
  }

 private:
  using Registration = std::pair<const Element*, std::string>;

  static Registration of(const AXUIElement& element, std::string_view notification) {
    return {&dynamic_cast<const Element&>(element.primitives()), std::string(notification)};
  }

  AccessibilityTree& tree_;
  ProcessIdentifier process_;
  AXObserverCallback callback_;
  std::set<Registration> registrations_;
  bool isOnRunLoop_ = false;
};

AccessibilityTree::AccessibilityTree(const DesktopDescription& description)
    : screen_(description.screen),
      nothingAtPosition_(description.nothingAtPosition),
      roleDescriptions_(description.roleDescriptions) {
  addElement(std::string(systemWideIdentifier), {});
  for (const auto& [identifier, element] : description.elements) addElement(identifier, element);
  for (const auto& application : description.applications) addApplication(application);
}

AXUIElement AccessibilityTree::createSystemWide() { return element({std::string(systemWideIdentifier)}).handle(); }

AXUIElement AccessibilityTree::createApplication(ProcessIdentifier process) {
  auto& root = roots_[process];
  if (!root) {
    root = std::make_shared<Element>(*this, ElementDescription{.process = process});
    root->destroy();
  }
  return root->handle();
}

AXResult<std::unique_ptr<AXObserver>> AccessibilityTree::createObserver(ProcessIdentifier process,
                                                                        AXObserverCallback callback) {
  const auto error = observerErrors_.find(process);
  if (error != observerErrors_.end() && error->second != axError::success) return {error->second, nullptr};
  return {axError::success, std::make_unique<Observer>(*this, process, std::move(callback))};
}

void AccessibilityTree::addElement(const std::string& identifier, ElementDescription description) {
  elements_[identifier] = std::make_shared<Element>(*this, std::move(description));
}

void AccessibilityTree::addApplication(const ApplicationDescription& application) {
  if (application.element) roots_[application.process] = elements_.at(application.element->identifier);
  observerErrors_[application.process] = application.observerError;
}

AXResult<std::optional<AXUIElement>> AccessibilityTree::hitTest(float x, float y) const {
  // Points come in single precision; so do the edges, or a point on an edge could fall on either side of it.
  const auto isBetween = [](float value, double from, double length) {
    return value >= static_cast<float>(from) && value < static_cast<float>(from + length);
  };
  for (auto entry = screen_.rbegin(); entry != screen_.rend(); ++entry) {
    const auto& frame = entry->frame;
    if (isBetween(x, frame.x, frame.width) && isBetween(y, frame.y, frame.height)) {
      return {axError::success, element(entry->element).handle()};
    }
  }
  return {nothingAtPosition_, std::nullopt};
}

std::optional<std::string> AccessibilityTree::roleDescription(std::string_view role,
                                                              std::optional<std::string_view> subrole) const {
  const std::string key(role);
  auto found = subrole ? roleDescriptions_.find(key + "/" + std::string(*subrole)) : roleDescriptions_.end();
  if (found == roleDescriptions_.end()) found = roleDescriptions_.find(key);
  return found == roleDescriptions_.end() ? std::nullopt : std::optional(found->second);
}

bool AccessibilityTree::isTerminated(const Element& element) const {
  if (element.process() && terminated_.contains(*element.process())) return true;
  return std::ranges::any_of(terminated_, [&](auto process) {
    const auto root = roots_.find(process);
    return root != roots_.end() && root->second.get() == &element;
  });
}

void AccessibilityTree::notify(const Element& element, const std::string& notification) const {
  observers_.tellAll([&](const Observer& observer) {
    if (observer.isRegistered(element, notification)) observer.deliver(element, notification);
  });
}

void AccessibilityTree::forceNotification(const Element& element, const std::string& notification) const {
  observers_.tellAll([&](const Observer& observer) {
    if (element.process() == observer.process()) observer.deliver(element, notification);
  });
}

void AccessibilityTree::countCall(std::string_view primitive) {
  const auto found = calls_.find(primitive);
  if (found == calls_.end()) {
    calls_.emplace(primitive, 1);
  } else {
    ++found->second;
  }
}

}  // namespace norra::simulated
