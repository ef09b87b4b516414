#include "Platform/Linux/reading/AtspiProcesses.h"

#include <algorithm>
#include <utility>

#include "Platform/Linux/applications/ProcessFacts.h"
#include "Platform/Linux/reading/AtspiReader.h"

namespace norra::linux_desktop {
namespace {

constexpr std::size_t maxNames = 1024;

AtspiCall busCall(const char* member, std::vector<AtspiArgument> arguments) {
  return {{"org.freedesktop.DBus", "/org/freedesktop/DBus"}, "org.freedesktop.DBus", member, std::move(arguments)};
}

}  // namespace

std::vector<std::string> AtspiProcesses::knownNamesOf(ProcessIdentifier process) const {
  const std::lock_guard lock(mutex_);
  std::vector<std::string> names;
  for (const auto& [name, owner] : processes_) {
    if (owner == process) names.push_back(name);
  }
  return names;
}

// A proxy stands for its application from the time on that a window of this was met.
void AtspiProcesses::adoptProxyOf(ProcessIdentifier process) {
  const std::lock_guard lock(mutex_);
  for (auto& [name, owner] : processes_) {
    if (isSandboxOf(owner, process)) owner = process;
  }
}

void AtspiProcesses::adopt(const std::string& part, const std::string& whole) {
  const std::lock_guard lock(mutex_);
  const auto owner = processes_.find(whole);
  if (owner != processes_.end()) processes_.insert_or_assign(part, owner->second);
}

std::vector<std::string> AtspiProcesses::busNamesOf(ProcessIdentifier process, AtspiReader& reader) {
  if (process == 0) return {};
  auto names = knownNamesOf(process);
  if (!names.empty()) return names;
  lookAtNames(reader);
  names = knownNamesOf(process);
  if (!names.empty()) return names;
  adoptProxyOf(process);
  return knownNamesOf(process);
}

void AtspiProcesses::lookAtNames(AtspiReader& reader) {
  auto names = readTexts(reader.call(busCall("ListNames", {})).message.get()).value_or(std::vector<std::string>{});
  std::map<std::string, ProcessIdentifier> current;
  {
    const std::lock_guard lock(mutex_);
    for (const auto& name : names) {
      const auto known = processes_.find(name);
      if (known != processes_.end()) current.insert(*known);
    }
  }
  std::erase_if(names, [&](const auto& name) { return !name.starts_with(':') || current.contains(name); });
  if (names.size() > maxNames) names.resize(maxNames);
  std::vector<AtspiCall> calls;
  for (const auto& name : names) calls.push_back(busCall("GetConnectionUnixProcessID", {name}));
  const auto replies = reader.exchange(calls);
  for (std::size_t i = 0; i < replies.size(); ++i) {
    const auto process = readInteger(replies[i].message.get());
    if (process) current.insert_or_assign(names[i], static_cast<ProcessIdentifier>(*process));
  }
  const std::lock_guard lock(mutex_);
  processes_ = std::move(current);
}

AtspiReference AtspiProcesses::rootOf(ProcessIdentifier process, AtspiReader& reader) {
  std::vector<AtspiQuestion> questions;
  for (const auto& name : busNamesOf(process, reader)) {
    questions.push_back({{name, AtspiReference::rootPath}, Asks{Ask::childCount, Ask::children}});
  }
  reader.read(questions);
  const auto best = std::ranges::find_if(
      questions, [&](const auto& question) { return reader.known(question.element).childCount > 0; });
  return best != questions.end() ? best->element : AtspiReference{};
}

ProcessIdentifier AtspiProcesses::processOf(const std::string& busName, AtspiReader& reader) {
  {
    const std::lock_guard lock(mutex_);
    const auto known = processes_.find(busName);
    if (known != processes_.end()) return known->second;
  }
  lookAtNames(reader);
  const std::lock_guard lock(mutex_);
  const auto known = processes_.find(busName);
  return known != processes_.end() ? known->second : 0;
}

void AtspiProcesses::clear() {
  const std::lock_guard lock(mutex_);
  processes_.clear();
}

}  // namespace norra::linux_desktop
