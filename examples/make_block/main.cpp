// A command module in small: makes a block of everything on a layer.
//
//   make_block IN.dxf OUT.dxf LAYER NAME
#include "DbBlockTable.h"
#include "blockcommon/blockcommon.h"
#include "drawing/file.h"
#include "morvane/drawing_tools.h"
#include "morvane/host.h"

#include <cstdio>
#include <cstdlib>

namespace {

int fail(const std::string& why) {
  std::fprintf(stderr, "make_block: %s\n", why.c_str());
  return EXIT_FAILURE;
}

OdString promptForText(morvane::Host& host, const wchar_t* prompt) {
  OdString answer;
  host.input().getString(true, prompt, answer); // empty when it was cancelled
  return answer;
}

// Opening an object for reading is enough to look at it; it closes when its pointer goes away.
OdDbObjectIdArray objectsOnLayer(OdDbDatabase& database, OdDbObjectId layer) {
  OdDbObjectIdArray ids;
  const OdDbBlockTableRecordPtr space = database.getModelSpaceId().safeOpenObject();
  for (const auto iterator = space->newIterator(); !iterator->done(); iterator->step()) {
    if (LayerTools::getEntityLayerId(iterator->objectId()) == layer)
      ids.append(iterator->objectId());
  }
  return ids;
}

int makeBlock(morvane::Host& host, OdDbDatabase& database) {
  const OdDbObjectId layer = database.symbol(OdDb::kLayerTable, promptForText(host, L"Layer: "));
  const OdString name = promptForText(host, L"Block name: ");
  bool hasNoUtf8 = false;
  if (!blockUtils::isLigitimacyName(name, hasNoUtf8))
    return fail("a block cannot have that name");
  OdDbObjectIdArray ids = objectsOnLayer(database, layer);
  if (ids.isEmpty())
    return fail("there is nothing on that layer");

  // The id alone does not indicate success: a block that is only half filled has one, too. `ids` is returned without
  // the objects that a block cannot contain. A longer-lived module would run this inside an undo step.
  bool created = false;
  const OdDbObjectId block =
      blockUtils::create(&database, name, ids, false, created, OdGePoint3d::kOrigin, L"Everything on a layer");
  if (!created || !blockUtils::setBtrInsertUnit(block, OdDb::kUnitsMillimeters))
    return fail("the block was not made");
  std::printf("%s: %d objects\n", name.toUtf8Lossless().c_str(), static_cast<int>(ids.length()));
  return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
  if (argc != 5)
    return fail("usage: make_block IN.dxf OUT.dxf LAYER NAME");

  // The library asks the installed host for everything around the drawing: the UCS, variables, services. This one
  // remembers no configuration, and its prompts are answered from a list; a StreamSource on std::cin would ask a
  // person.
  morvane::HostOptions options;
  options.keepsConfig = false;
  morvane::Host host(options);
  host.install();
  host.input().setEcho(true);
  host.input().pushSource(std::make_shared<morvane::ListSource>(
      std::vector<OdString>{OdString::fromUtf8(argv[3]), OdString::fromUtf8(argv[4])}));

  const drawing::ReadResult read = drawing::readDrawing(argv[1]);
  if (read.database.isNull())
    return fail(read.message);
  for (const drawing::Issue& issue : read.report.issues()) // damage does not stop the program, and is always reported
    std::fprintf(stderr, "%s: %s\n", argv[1], drawing::describe(issue).c_str());

  host.documents().open(read.database, host.paths().toDrawing(argv[1])); // commands work on the current document
  if (makeBlock(host, *read.database) != EXIT_SUCCESS)
    return EXIT_FAILURE;
  const drawing::WriteResult written = drawing::writeDrawing(*read.database, argv[2]);
  return written.result == eOk ? EXIT_SUCCESS : fail(written.message);
}
