// The tagged value record in which system variables travel.
#pragma once

#include "OdString.h"

// `restype` names the one member that holds the value (result_codes.h); the others keep their defaults.
// The record owns its text.
struct mvsiresbuf {
  short groupCode = 0;
  short rint = 0;
  long rlong = 0;
  double rreal = 0.0;
  double rpoint[3] = {0.0, 0.0, 0.0};
  OdString rstring;
};
