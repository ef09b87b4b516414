#include "Platform/Simulated/Desktop.h"

namespace norra::simulated {

Desktop::Desktop(const DesktopDescription& description)
    : accessibility_(description), applications_(description), input_(description.canObserveInput) {}

Platform Desktop::platform() {
  return {accessibility_, input_, applications_, scheduler_, scheduler_, scheduler_, clients_, process_};
}

AXUIElement Desktop::add(const std::string& identifier, ElementDescription element) {
  accessibility_.addElement(identifier, std::move(element));
  return this->element(identifier).handle();
}

void Desktop::add(const ApplicationDescription& application) {
  accessibility_.addApplication(application);
  applications_.add(application);
}

void Desktop::connect(const std::string& client, std::shared_ptr<ClientProtocol> exported) {
  clients_.connect(client, std::move(exported));
  runReadyJobs();
}

void Desktop::call(const std::string& client, ServiceOperation operation, const ServiceReply& reply) {
  clients_.call(client, operation, reply);
  runReadyJobs();
}

void Desktop::disconnect(const std::string& client) {
  clients_.disconnect(client);
  runReadyJobs();
}

void Desktop::interrupt(const std::string& client) {
  clients_.interrupt(client);
  runReadyJobs();
}

void Desktop::click(CGPoint location, PointerButton button) {
  static constexpr std::array types{CGEventType::leftMouseUp, CGEventType::rightMouseUp, CGEventType::otherMouseUp};
  input_.send({.type = types[static_cast<std::size_t>(button)], .location = location, .keyEvent = std::nullopt});
  runReadyJobs();
}

void Desktop::pressKey(const std::optional<NSEvent>& key) {
  input_.send({.type = CGEventType::keyDown, .location = {}, .keyEvent = key});
  runReadyJobs();
}

void Desktop::disableTaps(CGEventType reason) {
  input_.disableTaps(reason);
  runReadyJobs();
}

void Desktop::activate(std::optional<ProcessIdentifier> process) {
  if (process) applications_.setFrontmost(process);
  applications_.announceActivation(process);
  runReadyJobs();
}

void Desktop::setFrontmost(std::optional<ProcessIdentifier> process) { applications_.setFrontmost(process); }

void Desktop::terminate(ProcessIdentifier process) {
  applications_.terminate(process);
  accessibility_.terminate(process);
}

void Desktop::setAttributes(const std::string& element, const Attributes& attributes) {
  this->element(element).replaceAttributes(attributes);
}

void Desktop::setActions(const std::string& element, std::vector<std::string> actions) {
  this->element(element).replaceActions(std::move(actions));
}

void Desktop::destroy(const std::string& element) { this->element(element).destroy(); }

void Desktop::setScreen(Screen screen) { accessibility_.setScreen(std::move(screen)); }

void Desktop::notify(const std::string& element, const std::string& notification) {
  accessibility_.notify(this->element(element), notification);
  runReadyJobs();
}

void Desktop::forceNotification(const std::string& element, const std::string& notification) {
  accessibility_.forceNotification(this->element(element), notification);
  runReadyJobs();
}

void Desktop::endAllWork() {
  clients_.dropConnections();
  scheduler_.dropWaitingJobs();
}

void Desktop::advance(std::chrono::nanoseconds by) {
  scheduler_.advance(by);
  runReadyJobs();
}

}  // namespace norra::simulated
