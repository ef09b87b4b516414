#include "Client/DesktopCheck.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "Client/ServiceCheck.h"
#include "Platform/Linux/runtime/SessionBus.h"
#include "Platform/Linux/x11/X11Connection.h"

namespace norra {
namespace {

using linux_desktop::accessibilityReadiness, linux_desktop::displayReadiness, linux_desktop::inputReadiness,
    linux_desktop::lookAtDisplay, linux_desktop::toolkitReadiness, linux_desktop::windowReadiness;
using linux_desktop::DisplayFacts;
using linux_desktop::EventLoop;
using linux_desktop::missing;
using linux_desktop::openSessionBus;
using linux_desktop::Readiness;
using linux_desktop::X11Connection;

DesktopFinding sessionBus(EventLoop& loop) {
  const auto opened = openSessionBus(loop.event(), "check");
  return opened.bus ? DesktopFinding{} : missing(opened.problem);
}

/// Of what the X server tells.
template <DesktopFinding (*readiness)(const DisplayFacts&)>
DesktopFinding ofDisplay(EventLoop& loop) {
  return readiness(lookAtDisplay(loop.event()));
}

template <DesktopFinding (*readiness)(sd_event*)>
DesktopFinding ofBus(EventLoop& loop) {
  return readiness(loop.event());
}

struct Check {
  std::string_view what;
  DesktopFinding (*look)(EventLoop&);
};

constexpr std::string_view input = "clicks and keys";

constexpr std::array checks{Check{"session bus", sessionBus},
                            Check{"service", checkService},
                            Check{"display", ofDisplay<displayReadiness>},
                            Check{"service's display", checkDisplayOfService},
                            Check{input, ofDisplay<inputReadiness>},
                            Check{"window in front", ofDisplay<windowReadiness>},
                            Check{"accessibility bus", ofBus<accessibilityReadiness>},
                            Check{"applications speak", ofBus<toolkitReadiness>}};

std::string_view wordFor(Readiness readiness) {
  constexpr std::array words{"ready", "limited", "missing"};
  return words.at(static_cast<std::size_t>(readiness));
}

/// Filled up to a width.
std::string padded(std::string_view text, std::size_t width) {
  return std::string(text).append(width - std::min(width, text.size()), ' ');
}

}  // namespace

std::vector<DesktopFinding> checkDesktop(linux_desktop::EventLoop& loop) {
  const auto kept = X11Connection::open();  // a server that the last client leaves resets, and serves nobody meanwhile
  std::vector<DesktopFinding> findings;
  for (const auto& check : checks) {
    findings.push_back(check.look(loop));
    findings.back().what = check.what;
  }
  return findings;
}

std::string textOf(const std::vector<DesktopFinding>& findings) {
  std::string text;
  for (const auto& [what, readiness, advice] : findings) {
    text += padded(wordFor(readiness), 9) + (advice.empty() ? what : padded(what, 20) + advice) + "\n";
  }
  return text;
}

bool isReady(const std::vector<DesktopFinding>& findings) {
  const auto isMissing = [](const auto& finding) {
    return finding.readiness == Readiness::missing || (finding.what == input && finding.readiness != Readiness::ready);
  };
  return std::ranges::none_of(findings, isMissing);
}

}  // namespace norra
