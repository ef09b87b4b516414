// The root of an application, known by its process, which may have no accessible yet, or several. It answers for the
// one that has children; its focused window is known to the display server also where the application says nothing.
#pragma once

#include "Platform/Linux/accessibility/ElementHandles.h"

namespace norra::linux_desktop {

class AtspiApplicationElement final : public DesktopElement {
 public:
  AtspiApplicationElement(const ElementHandles& handles, AtspiSession& session, Focus& focus, WindowsOnScreen& windows,
                          ProcessIdentifier process)
      : DesktopElement(handles), session_(session), focus_(focus), windows_(windows), process_(process) {}

  ProcessIdentifier process() const { return process_; }

  AXResult<AXAttributeValue> copyAttributeValue(std::string_view attribute) const override;
  AXResult<std::vector<std::string>> copyAttributeNames() const override;
  AXResult<std::vector<std::string>> copyActionNames() const override;
  AXResult<ProcessIdentifier> getPid() const override { return {axError::success, process_}; }
  bool isEqual(const AXUIElementPrimitives& other) const override;

 private:
  AtspiReference root() const { return session_.processes.rootOf(process_, session_.reader()); }
  AXResult<AXAttributeValue> focusedWindow(const AtspiReference& root) const;
  AXResult<AXAttributeValue> followedElement() const;
  AXResult<AXAttributeValue> handleOrNothing(const AtspiReference& reference) const;

  AtspiSession& session_;
  Focus& focus_;
  WindowsOnScreen& windows_;
  const ProcessIdentifier process_;
};

}  // namespace norra::linux_desktop
