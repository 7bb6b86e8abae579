// Any bytes: they are a drawing or they are refused, within the memory that is allowed. What was read is audited,
// mended and drawn; it is written, and what was written is read again. Some of its blocks become drawings of their own
// and come back as blocks.
#include "DbBlockTable.h"
#include "drawing/audit.h"
#include "drawing/file.h"
#include "drawing/picture.h"
#include "drawing/wblock.h"

#include <cstdint>
#include <cstdlib>

namespace {

void writeBlocks(const OdDbDatabase& database) {
  int left = 4;
  const OdDbBlockTablePtr table = database.getBlockTableId().safeOpenObject();
  for (const auto iterator = table->newIterator(); !iterator->done() && left > 0; iterator->step()) {
    const OdDbBlockTableRecordPtr block = iterator->getRecordId().safeOpenObject();
    if (block->isLayout() || block->isFromExternalReference())
      continue;
    --left;
    const OdDbDatabasePtr made = drawing::wblockBlock(block->objectId());
    if (made.isNull())
      continue;
    if (drawing::readDrawingFromMemory(drawing::writeDrawingToMemory(*made), "block").database.isNull())
      std::abort();
    OdDbDatabase::create()->insert(L"again", made.get());
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  drawing::ReadOptions options;
  options.budget.bytes = std::uint64_t{256} << 20;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const drawing::ReadResult read = drawing::readDrawingFromMemory(bytes, "input", options);
  if (read.database.isNull())
    return 0;
  drawing::auditDrawing(*read.database, true);
  drawing::PictureOptions picture;
  picture.width = picture.height = 100;
  picture.points = picture.steps = 200'000;
  drawing::Picture(drawing::currentSpaceOf(*read.database), picture).bitmap();
  const std::string written = drawing::writeDrawingToMemory(*read.database);
  if (drawing::readDrawingFromMemory(written, "written").database.isNull())
    std::abort();
  writeBlocks(*read.database);
  return 0;
}
