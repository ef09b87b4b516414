// norra-collector-service: the service on a Linux desktop.
#include <CLI/CLI.hpp>
#include <cstdio>

#include "NorraLogging/NorraOSLoggerFactory.h"
#include "Platform/Linux/LinuxPlatform.h"
#include "Platform/Linux/runtime/JournalSink.h"
#include "UserInteractionsCollectorService/ServiceEntry.h"

namespace {

constexpr const char* description =
    "Watches what a person does in the applications of this desktop and reports it to its clients over the session "
    "bus. "
    "The bus starts it when a client needs it; it ends by itself 30 seconds after the last one has gone.";
constexpr int wrongUse = 2;

int serve() {
  const auto [platform, problem] = norra::linux_desktop::LinuxPlatform::create();
  if (!platform) {
    std::fprintf(stderr, "norra-collector-service: %s\n", problem.c_str());
    return 1;
  }
  return norra::runService(platform->facilities());
}

}  // namespace

int main(int argumentCount, char** arguments) {
  CLI::App app(description, "norra-collector-service");
  app.set_version_flag("--version", "norra-collector-service " NORRA_VERSION);
  try {
    app.parse(argumentCount, arguments);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : wrongUse;
  }
  const auto sink = norra::linux_desktop::newLogSink();
  norra::NorraOSLoggerFactory::setSink(sink.get());
  const int status = serve();
  norra::NorraOSLoggerFactory::setSink(nullptr);
  return status;
}
