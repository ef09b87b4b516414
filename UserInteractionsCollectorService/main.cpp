// norra-collector-service: the service on a Linux desktop.
#include <CLI/CLI.hpp>
#include <cstdio>

#include "NorraDataCollector/TapEventsCollector/Rehearsal.h"
#include "NorraLogging/NorraOSLogger.h"
#include "Platform/Linux/LinuxPlatform.h"
#include "Platform/Linux/runtime/JournalSink.h"
#include "UserInteractionsCollectorService/ServiceEntry.h"

namespace {

constexpr const char* description =
    "Watches what a person does in the applications of this desktop and reports it to its clients over the session "
    "bus. "
    "The bus starts it when a client needs it; it ends by itself 30 seconds after the last one has gone.";
constexpr int usageError = 2;

int serve() {
  const auto created = norra::linux_desktop::LinuxPlatform::create({norra::rehearseClick, norra::rehearseKey});
  if (!created.platform) {
    std::fprintf(stderr, "norra-collector-service: %s\n", created.problem.c_str());
    return 1;
  }
  const auto status = norra::runService([&created] { return created.platform->facilities(); });
  if (status == 0) norra::serviceLogger().info("Service stopped");  // a client asked for it
  return status.value_or(0);
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app(description, "norra-collector-service");
  app.set_version_flag("--version", "norra-collector-service " NORRA_VERSION);
  bool isDebugging = false;
  app.add_flag("--debug", isDebugging, "Write debug messages too, among them why a click was not reported");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : usageError;
  }
  const auto sink = norra::linux_desktop::newLogSink(isDebugging ? norra::linux_desktop::Messages::all
                                                                 : norra::linux_desktop::Messages::enabled);
  norra::NorraOSLoggerFactory::setSink(sink.get());
  const int status = serve();
  norra::NorraOSLoggerFactory::setSink(nullptr);
  return status;
}
