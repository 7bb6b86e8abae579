// The tagged value in which system variables are passed.
#pragma once

#include "OdString.h"

// `restype` states which member has the value (result_codes.h); the others have their defaults. The record owns its
// text.
struct mvsiresbuf {
  short groupCode = 0;
  short rint = 0;
  long rlong = 0;
  double rreal = 0.0;
  double rpoint[3] = {0.0, 0.0, 0.0};
  OdString rstring;
};
