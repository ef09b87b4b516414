// What the service tells a client.
#pragma once

#include <chrono>
#include <string>

namespace norra {

/// Implemented by the client, called by the service.
class ClientProtocol {
 public:
  virtual ~ClientProtocol() = default;

  /// One report. `event` is the JSON text of one action, empty when the action could not be written; `date` is when it
  /// was forwarded; `isApplicationEvent` is true exactly for a change of the application in front. One-way: nothing is
  /// awaited, and reports arrive in the order of the calls. Any thread.
  virtual void addEvent(std::string event, std::chrono::system_clock::time_point date, bool isApplicationEvent) = 0;
};

}  // namespace norra
