#include "console/session/line_sink.h"

namespace console {

void LineSink::write(const OdString& text) {
  const bool breaksAtStart = !begun_ && !text.isEmpty() && text.getAt(0) == L'\n';
  const OdString rest = breaksAtStart ? text.mid(1) : text;
  if (rest.isEmpty())
    return;
  writer_(rest);
  begun_ = rest.getAt(rest.getLength() - 1) != L'\n';
}

void LineSink::freshLine() {
  if (begun_)
    write(L"\n");
}

} // namespace console
