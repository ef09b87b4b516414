// The XML files that describe the two protocols, against what the programs export.
#include <gmock/gmock.h>
#include <systemd/sd-bus.h>

#include <fstream>
#include <map>
#include <regex>
#include <string>

#include "NorraUserInteractionsCollectorServiceProtocol/BusNames.h"
#include "tests/Client/RunningProgram.h"
#include "tests/Platform/Linux/PrivateBus.h"

namespace norra {
namespace {

using testing::HasSubstr;

/// The methods, properties and arguments that an introspection text names, one a line, whatever the order of its
/// attributes.
std::string signatureOf(const std::string& introspection, const std::string& interface) {
  const auto begin = introspection.find("<interface name=\"" + interface + "\"");
  const auto text = introspection.substr(begin, introspection.find("</interface>", begin) - begin);
  const std::regex element("<(method|property|arg) ([^>]*?)/?>");
  const std::regex attribute("(\\w+)=\"([^\"]*)\"");
  std::string signature;
  for (std::sregex_iterator found(text.begin(), text.end(), element), end; found != end; ++found) {
    const auto attributes = (*found)[2].str();
    std::map<std::string, std::string> values;
    for (std::sregex_iterator each(attributes.begin(), attributes.end(), attribute); each != end; ++each) {
      values[(*each)[1]] = (*each)[2];
    }
    signature += (*found)[1].str() + " " + values["name"] + " " + values["type"] + " " + values["direction"] +
                 values["access"] + "\n";
  }
  return signature;
}

std::string readFile(const std::string& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Of the object that the bus name exports.
std::string introspect(const char* name, const char* path) {
  sd_bus* bus = nullptr;
  sd_bus_open_user(&bus);
  sd_bus_message* reply = nullptr;
  const char* text = "";
  sd_bus_call_method(bus, name, path, "org.freedesktop.DBus.Introspectable", "Introspect", nullptr, &reply, "");
  if (reply != nullptr) sd_bus_message_read(reply, "s", &text);
  std::string description = text;
  sd_bus_message_unref(reply);
  sd_bus_flush_close_unref(bus);
  return description;
}

TEST(ProtocolDescription, TheServiceIsWhatItsDescriptionsSay) {
  const linux_desktop::PrivateBus bus(NORRA_SERVICES_FOLDER);
  const auto introspection = introspect(busNames::service, busNames::servicePath);
  for (const auto& [interface, detail] :
       {std::pair("com.norra.ServiceProtocol", "method startCollectorWith  \narg reply s out\n"),
        std::pair("com.norra.ServiceStatistics", "property reportsSent t read\n")}) {
    const auto described = signatureOf(readFile(std::string(NORRA_PROTOCOLS "/") + interface + ".xml"), interface);
    EXPECT_EQ(signatureOf(introspection, interface), described);
    EXPECT_THAT(described, HasSubstr(detail));
  }
}

}  // namespace
}  // namespace norra
