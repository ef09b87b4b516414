#pragma once

#include <string>

#include "Client/formats/Report.h"

namespace norra {

/// The members of every kind in columns of their own (RFC 4180), those that the report does not have left empty.
std::string csvLine(const Report& report);

/// The names of the columns.
std::string csvHead();

}  // namespace norra
