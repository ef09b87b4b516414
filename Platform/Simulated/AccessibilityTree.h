// The elements of all applications of the simulated desktop, the screen they lie on, and the observers that watch them.
//
// There is no geometry below the screen: what lies at a point is the frontmost entry there, and the element that it
// names is the answer. Every call of a primitive is counted under its name, so that a scenario can say what a click may
// cost.
#pragma once

#include <set>
#include <utility>

#include "Platform/Simulated/Element.h"
#include "Platform/Simulated/Registry.h"

namespace norra::simulated {

/// How often each primitive was called, by its name.
using PrimitiveCalls = std::map<std::string, int, std::less<>>;

class AccessibilityTree final : public Accessibility {
 public:
  /// Copies what it needs of the description.
  explicit AccessibilityTree(const DesktopDescription& description);

  AXUIElement createSystemWide() override;
  AXUIElement createApplication(ProcessIdentifier process) override;
  AXResult<std::unique_ptr<AXObserver>> createObserver(ProcessIdentifier process, AXObserverCallback callback) override;

  void addElement(const std::string& identifier, ElementDescription description);
  void addApplication(const ApplicationDescription& application);
  void setScreen(Screen screen) { screen_ = std::move(screen); }

  /// The reference must name an element.
  Element& element(const ElementReference& reference) const { return *elements_.at(reference.identifier); }
  AXResult<std::optional<AXUIElement>> hitTest(float x, float y) const;
  std::optional<std::string> roleDescription(std::string_view role, std::optional<std::string_view> subrole) const;

  /// Every read of an element of the process, its root element included, fails from now on.
  void terminate(ProcessIdentifier process) { terminated_.insert(process); }
  bool isTerminated(const Element& element) const;

  /// The observers that registered the notification on the element are called now.
  void notify(const Element& element, const std::string& notification) const;
  /// Every observer of the element's process is called now, registered or not.
  void forceNotification(const Element& element, const std::string& notification) const;

  void countCall(std::string_view primitive);
  /// The calls since the last time.
  PrimitiveCalls takeCalls() { return std::exchange(calls_, {}); }

 private:
  class Observer;

  std::map<std::string, std::shared_ptr<Element>> elements_;
  std::map<ProcessIdentifier, std::shared_ptr<Element>> roots_;
  std::map<ProcessIdentifier, AXError> observerErrors_;
  std::set<ProcessIdentifier> terminated_;
  Screen screen_;
  AXError nothingAtPosition_;
  std::map<std::string, std::string> roleDescriptions_;
  Registry<Observer> observers_;
  PrimitiveCalls calls_;
};

}  // namespace norra::simulated
