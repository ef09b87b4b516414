// Handles of elements, as the core holds them.
#pragma once

#include "Platform/Linux/elements/AttributeContent.h"
#include "Platform/Linux/following/Focus.h"
#include "Platform/Linux/pointer/PointedElement.h"

namespace norra::linux_desktop {

class FocusPicture;
class PressPictures;

/// What is known from before the user acted. Null: nothing is.
struct Pictures {
  PressPictures* pressed = nullptr;
  FocusPicture* focused = nullptr;
};

/// Makes them. Any thread.
class ElementHandles {
 public:
  /// All must outlive this, and this the handles.
  ElementHandles(AtspiSession& session, Focus& focus, PointedElement& pointed, WindowsOnScreen& windows)
      : session_(session), focus_(focus), pointed_(pointed), windows_(windows) {}

  AXUIElement element(const AtspiReference& reference) const { return element(ElementKey{reference}); }
  AXUIElement element(const ElementKey& key) const;
  AXUIElement application(ProcessIdentifier process) const;
  /// The pictures must outlive the handle.
  AXUIElement systemWide(Pictures pictures = {}) const;

  /// With handles for the elements that it names.
  AXResult<AXAttributeValue> valueOf(const AttributeResult& result) const;

 private:
  AtspiSession& session_;
  Focus& focus_;
  PointedElement& pointed_;
  WindowsOnScreen& windows_;
};

/// What all elements of the desktop answer alike, unless they know better.
class DesktopElement : public AXUIElementPrimitives {
 public:
  explicit DesktopElement(const ElementHandles& handles) : handles_(handles) {}

  AXUIElement createApplication(ProcessIdentifier process) const override { return handles_.application(process); }
  std::optional<std::string> roleDescription(std::string_view role,
                                             std::optional<std::string_view> subrole) const override;

 protected:
  const ElementHandles& handles() const { return handles_; }

 private:
  const ElementHandles& handles_;
};

}  // namespace norra::linux_desktop
