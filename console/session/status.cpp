#include "console/session/status.h"

namespace console {
namespace {

int weight(Status status) {
  switch (status) {
  case Status::Done:
    return 0;
  case Status::Repaired:
    return 1;
  case Status::Cancelled:
    return 2;
  case Status::Refused:
    return 3;
  case Status::Unreadable:
    return 4;
  case Status::SaveFailed:
    return 5;
  case Status::Usage:
    break;
  }
  return 6;
}

} // namespace

Status worse(Status one, Status other) {
  return weight(other) > weight(one) ? other : one;
}

} // namespace console
