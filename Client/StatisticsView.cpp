#include "Client/StatisticsView.h"

#include <algorithm>
#include <string_view>

#include "NorraUserInteractionsCollectorServiceProtocol/BusNames.h"
#include "Platform/Linux/runtime/SessionBus.h"

namespace norra {
namespace {

using linux_desktop::describe;
using linux_desktop::MessagePtr;

constexpr std::uint64_t limitMicroseconds = 5'000'000;
constexpr std::size_t widthOfWords = 40;

std::string problemOf(const sd_bus_error& error) {
  const std::string_view name = error.name;
  if (name == SD_BUS_ERROR_SERVICE_UNKNOWN || name == SD_BUS_ERROR_NAME_HAS_NO_OWNER) {
    return "The service is not running, so it has nothing to say of its work. It runs while a client collects.";
  }
  if (name == SD_BUS_ERROR_UNKNOWN_INTERFACE) return "The service that runs is of a version that has no statistics.";
  return "The service cannot be asked: " + describe(error);
}

MessagePtr newQuestion(sd_bus* bus) {
  sd_bus_message* message = nullptr;
  sd_bus_message_new_method_call(bus, &message, busNames::service, busNames::servicePath,
                                 "org.freedesktop.DBus.Properties", "GetAll");
  MessagePtr question(message);
  if (sd_bus_message_append(message, "s", busNames::statisticsInterface) < 0) return nullptr;
  return sd_bus_message_set_auto_start(message, 0) < 0 ? nullptr : std::move(question);
}

/// Takes the value of a property out of the message; a property that is not known here is skipped.
int readValue(sd_bus_message* message, std::string_view name, ServiceStatistics& statistics) {
  for (const auto& number : statisticsNumbers) {
    if (name == number.name) return sd_bus_message_read(message, "v", "t", &(statistics.*number.value));
  }
  for (const auto& text : statisticsTexts) {
    const char* value = "";
    if (name != text.name) continue;
    const int result = sd_bus_message_read(message, "v", "s", &value);
    statistics.*text.value = value;
    return result;
  }
  return sd_bus_message_skip(message, "v");
}

int readAll(sd_bus_message* answer, ServiceStatistics& statistics) {
  int result = sd_bus_message_enter_container(answer, 'a', "{sv}");
  while (result >= 0 && (result = sd_bus_message_enter_container(answer, 'e', "sv")) > 0) {
    const char* name = "";
    result = sd_bus_message_read(answer, "s", &name);
    if (result >= 0) result = readValue(answer, name, statistics);
    if (result >= 0) result = sd_bus_message_exit_container(answer);
  }
  return result;
}

std::string line(std::string words, const std::string& value) {
  const auto length = static_cast<std::size_t>(std::ranges::count_if(words, [](char c) { return (c & 0xC0) != 0x80; }));
  return words.append(widthOfWords - std::min(widthOfWords - 1, length), ' ') + value + "\n";
}

}  // namespace

std::variant<ServiceStatistics, NoStatistics> readStatistics(linux_desktop::EventLoop& loop) {
  const auto [bus, problem] = linux_desktop::openSessionBus(loop.event(), "statistics");
  if (!bus) return NoStatistics{problem};
  const auto question = newQuestion(bus.get());
  sd_bus_error error = SD_BUS_ERROR_NULL;
  sd_bus_message* message = nullptr;
  int result = sd_bus_call(bus.get(), question.get(), limitMicroseconds, &error, &message);
  const MessagePtr answer(message);
  if (result < 0) {
    NoStatistics none{problemOf(error)};
    sd_bus_error_free(&error);
    return none;
  }
  ServiceStatistics statistics;
  result = readAll(message, statistics);
  if (result < 0) return NoStatistics{"The service gave an answer of another kind: " + describe(result)};
  return statistics;
}

std::vector<std::string> shortcomingsIn(const ServiceStatistics& statistics) {
  std::vector<std::string> shortcomings;
  for (const auto& text : statisticsTexts) {
    const auto sentence = statistics.*text.value + ".";
    if (sentence != "." && std::ranges::find(shortcomings, sentence) == shortcomings.end()) {
      shortcomings.push_back(sentence);
    }
  }
  return shortcomings;
}

std::string textOf(const ServiceStatistics& statistics) {
  std::string text;
  for (const auto& [name, words, value] : statisticsNumbers) text += line(words, std::to_string(statistics.*value));
  for (const auto& [name, words, value] : statisticsTexts) {
    const auto& problem = statistics.*value;
    text += line(words, problem.empty() ? "works" : problem);
  }
  return text;
}

}  // namespace norra
