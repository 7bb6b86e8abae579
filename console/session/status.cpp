#include "console/session/status.h"

namespace console {
namespace {

int weight(Status status) {
  switch (status) {
  case Status::kDone:
    return 0;
  case Status::kRepaired:
    return 1;
  case Status::kCancelled:
    return 2;
  case Status::kRefused:
    return 3;
  case Status::kUnreadable:
    return 4;
  case Status::kSaveFailed:
    return 5;
  case Status::kUsage:
    break;
  }
  return 6;
}

} // namespace

Status worse(Status one, Status other) {
  return weight(other) > weight(one) ? other : one;
}

} // namespace console
