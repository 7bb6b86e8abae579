// Texts and ids as failing tests show them.
#pragma once

#include "DbObject.h"

#include <ostream>

inline void PrintTo(const OdString& text, std::ostream* out) {
  *out << '"' << text.toUtf8Lossless() << '"';
}

inline void PrintTo(const OdDbObjectId& id, std::ostream* out) {
  *out << id.getHandle().ascii();
}
