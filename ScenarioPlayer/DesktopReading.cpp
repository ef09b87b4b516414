#include "ScenarioPlayer/DesktopReading.h"

namespace norra::scenario {
namespace {

ProcessIdentifier readProcess(const JsonCursor& cursor) { return cursor.integer<ProcessIdentifier>(); }

AXError readCode(const JsonCursor& cursor) { return cursor.integer<AXError>(); }

simulated::ApplicationDescription readApplication(const JsonCursor& cursor, const References& references) {
  const JsonMembers application(cursor,
                                {"pid", "bundleIdentifier", "executableURL", "localizedName", "element", "observer"});
  return {.process = readProcess(application.required("pid")),
          .bundleIdentifier = application.optional("bundleIdentifier", &JsonCursor::text),
          .executableURL = application.optional("executableURL", &JsonCursor::text),
          .localizedName = application.optional("localizedName", &JsonCursor::text),
          .element = application.optional("element", [&](const auto& value) { return references.element(value); }),
          .observerError = application.optional("observer", readCode).value_or(axError::success)};
}

std::map<std::string, AXError> readCodes(const JsonCursor& cursor) {
  std::map<std::string, AXError> codes;
  const JsonMembers members(cursor);
  for (const auto& name : members.keys()) codes[name] = readCode(members[name]);
  return codes;
}

simulated::ElementDescription readElement(const JsonCursor& cursor, const References& references) {
  const JsonMembers element(
      cursor, {"pid", "attributes", "actions", "actionsError", "attributeNamesError", "notificationErrors"});
  const auto attributesOf = [&](const auto& value) { return readAttributes(value, references); };
  return {.process = element.optional("pid", readProcess),
          .attributes = element.optional("attributes", attributesOf).value_or(simulated::Attributes{}),
          .actions = element.optional("actions", &JsonCursor::texts).value_or(std::vector<std::string>{}),
          .actionsError = element.optional("actionsError", readCode).value_or(axError::success),
          .attributeNamesError = element.optional("attributeNamesError", readCode).value_or(axError::success),
          .notificationErrors =
              element.optional("notificationErrors", readCodes).value_or(std::map<std::string, AXError>{})};
}

std::vector<simulated::ApplicationDescription> readApplications(const JsonCursor& cursor,
                                                                const References& references) {
  std::vector<simulated::ApplicationDescription> applications;
  for (const auto& item : cursor.items()) applications.push_back(readApplication(item, references));
  return applications;
}

std::map<std::string, simulated::ElementDescription> readElements(const JsonCursor& cursor,
                                                                  const References& references) {
  std::map<std::string, simulated::ElementDescription> elements;
  const JsonMembers members(cursor);
  for (const auto& identifier : members.keys()) elements[identifier] = readElement(members[identifier], references);
  return elements;
}

std::map<std::string, std::string> readTexts(const JsonCursor& cursor) {
  std::map<std::string, std::string> texts;
  const JsonMembers members(cursor);
  for (const auto& key : members.keys()) texts[key] = members[key].text();
  return texts;
}

void enterApplication(const JsonCursor& cursor, References& references) {
  const auto pid = JsonMembers(cursor).required("pid");
  const auto process = readProcess(pid);
  if (process == 0) pid.fault("an application's process identifier is not 0");
  if (!references.applications.insert(process).second) pid.fault("another application has this process identifier");
}

}  // namespace

References readReferences(const JsonMembers& file) {
  References references;
  references.elements.insert(std::string(simulated::systemWideIdentifier));
  if (file.has("elements")) {
    for (auto& identifier : JsonMembers(file["elements"]).keys()) references.elements.insert(std::move(identifier));
  }
  if (file.has("applications")) {
    for (const auto& item : file["applications"].items()) enterApplication(item, references);
  }
  return references;
}

simulated::Screen readScreen(const JsonCursor& cursor, const References& references) {
  simulated::Screen screen;
  for (const auto& item : cursor.items()) {
    const JsonMembers entry(item, {"frame", "element"});
    const auto frame = entry.required("frame").numbers(4);
    screen.push_back({{frame[0], frame[1], frame[2], frame[3]}, references.element(entry.required("element"))});
  }
  return screen;
}

simulated::DesktopDescription readDesktop(const JsonMembers& file, const References& references) {
  simulated::DesktopDescription desktop;
  if (file.has("applications")) desktop.applications = readApplications(file["applications"], references);
  if (file.has("elements")) desktop.elements = readElements(file["elements"], references);
  if (file.has("frontmost")) desktop.frontmost = references.applicationOrNone(file["frontmost"]);
  if (file.has("screen")) desktop.screen = readScreen(file["screen"], references);
  if (file.has("nothingAtPosition")) desktop.nothingAtPosition = readCode(file["nothingAtPosition"]);
  if (file.has("eventTap")) desktop.canObserveInput = file["eventTap"].boolean();
  if (file.has("roleDescriptions")) desktop.roleDescriptions = readTexts(file["roleDescriptions"]);
  return desktop;
}

}  // namespace norra::scenario
