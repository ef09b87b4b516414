// norra-export: makes a file for other programs from a recorded session.
#include <CLI/CLI.hpp>
#include <map>

#include "Export/XesLog.h"
#include "Report/SessionProgram.h"

namespace {

using norra::exporting::CaseNotion;
using Format = void (*)(std::ostream&, const std::vector<norra::report::RecordedReport>&, CaseNotion);

const std::map<std::string, Format> formats{{"xes", norra::exporting::writeXesLog}};

const std::map<std::string, CaseNotion> notions{
    {"application", CaseNotion::application}, {"visit", CaseNotion::visit}, {"collection", CaseNotion::collection}};

}  // namespace

int main(int argc, char** argv) {
  namespace report = norra::report;
  report::SessionArguments arguments;
  std::string format = "xes";
  std::string notion = "application";
  CLI::App app(
      "Makes a file for other programs from a session that norra-collect recorded: an event log for process mining. "
      "Lines "
      "that cannot be read are named on standard error and passed over; the exit status is then 1.",
      "norra-export");
  report::addSessionOptions(app, arguments, "log");
  app.add_option("--format", format, "What to write: xes is IEEE 1849")
      ->check(CLI::IsMember(formats))
      ->option_text("xes");
  app.add_option("--cases", notion,
                 "What one case of the log is: the use of one process, a stay in front, or a collection")
      ->check(CLI::IsMember(notions))
      ->option_text("application|visit|collection");
  const auto write = [&](std::ostream& out, const report::SessionContent& content) {
    formats.at(format)(out, content.reports, notions.at(notion));
  };
  return report::runSessionProgram(app, argc, argv, arguments, write);
}
