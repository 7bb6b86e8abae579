// How a command stops: the reason reaches the one place that rolls back and reports to the user.
#pragma once

#include "console/messages/catalog/session.h"
#include "console/messages/messages.h"
#include "console/session/status.h"

#include <utility>

namespace console {

struct Failure {
  Status status;
  Message message;
};

[[noreturn]] inline void refuse(MessageText format, std::vector<OdString> arguments = {}) {
  throw Failure{Status::kRefused, {format, std::move(arguments)}};
}

[[noreturn]] inline void cancel() {
  throw Failure{Status::kCancelled, {msg::kCancelled, {}}};
}

} // namespace console
