#include "drawing/maintenance/dump_sink.h"

#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "drawing/model/object_store.h"
#include "drawing/records/section.h"

#include <charconv>

namespace drawing {

void DumpSink::real(int code, double value) {
  char digits[40];
  const auto end = std::to_chars(digits, digits + sizeof digits, value == 0 ? 0.0 : value).ptr;
  line(code, std::string_view(digits, static_cast<std::size_t>(end - digits)));
}

void DumpSink::handle(int code, OdDbHandle value) {
  line(code, namesHandles_ && !value.isNull() ? nameOf(database_.objectIdOf(value)) : std::string(value.ascii()));
}

void DumpSink::binary(int code, std::string_view bytes) {
  std::string text = "bytes ";
  for (const char c : bytes) {
    text += "0123456789abcdef"[static_cast<unsigned char>(c) >> 4];
    text += "0123456789abcdef"[static_cast<unsigned char>(c) & 15];
  }
  line(code, text);
}

void DumpSink::line(int code, std::string_view text) {
  out_ += "  ";
  out_ += std::to_string(code);
  out_ += ' ';
  out_.append(text);
  out_ += '\n';
}

void dumpExtras(const OdDbObject& object, DumpSink& sink) {
  const auto* extras = object.extrasOrNull();
  if (extras == nullptr)
    return;
  extras->applicationGroups.writeTo(sink);
  if (isAlive(extras->extensionDictionary))
    sink.reference(360, extras->extensionDictionary);
  for (OdDbObjectId id : extras->reactors)
    sink.reference(330, id);
}

void dumpContents(const OdDbObject& object, DumpSink& sink) {
  writeSubclasses(object, sink);
  if (object.isKindOf(OdDbBlockTableRecord::desc())) {
    const auto& block = static_cast<const OdDbBlockTableRecord&>(object);
    sink.integer(70, block.derivedFlags());
    GroupList head;
    writeSubclass(block, OdDbBlockTableRecord::blockHeaderSubclass(), head);
    head.writeTo(sink, 1, head.size() - 1); // the flags as read are not what counts
  }
  if (const GroupList* xData = object.xDataGroups())
    xData->writeTo(sink);
}

} // namespace drawing
