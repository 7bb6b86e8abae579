#include "examples/functions/setup.h"

#include "DbAnnotationScale.h"
#include "DbDictionary.h"

#include <cstdlib>
#include <stdexcept>
#include <stdlib.h>

namespace examples {
namespace {

template <class Record>
OdDbObjectId addRecord(OdDbObjectId table, const OdString& name) {
  const OdSmartPtr<Record> record = Record::createObject();
  record->setName(name);
  return open<OdDbSymbolTable>(table, OdDb::kForWrite)->add(record.get());
}

OdDbObjectId append(OdDbDatabase& drawing, OdDbEntity& entity, OdDbObjectId block) {
  entity.setDatabaseDefaults(&drawing);
  const OdDbObjectId owner = block.isNull() ? drawing.getModelSpaceId() : block;
  return open<OdDbBlockTableRecord>(owner, OdDb::kForWrite)->appendEntity(&entity);
}

} // namespace

OdDbObjectId addBlock(OdDbDatabase& drawing, const OdString& name) {
  return addRecord<OdDbBlockTableRecord>(drawing.getBlockTableId(), name);
}

OdDbObjectId addLayer(OdDbDatabase& drawing, const OdString& name) {
  return addRecord<OdDbLayerTableRecord>(drawing.getLayerTableId(), name);
}

OdDbObjectId addLine(OdDbDatabase& drawing, const OdGePoint3d& from, const OdGePoint3d& to, OdDbObjectId block) {
  const OdSmartPtr<OdDbLine> line = OdDbLine::createObject();
  line->setStartPoint(from);
  line->setEndPoint(to);
  return append(drawing, *line, block);
}

OdDbObjectId addReference(OdDbDatabase& drawing, OdDbObjectId definition, const OdGePoint3d& at, OdDbObjectId block) {
  const OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
  reference->setBlockTableRecord(definition);
  reference->setPosition(at);
  return append(drawing, *reference, block);
}

OdDbObjectId addAttributeDefinition(OdDbDatabase& drawing, const OdString& tag, const OdString& prompt,
                                    const OdString& text, OdDbObjectId block) {
  const OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::createObject();
  definition->setTag(tag);
  definition->setPrompt(prompt);
  definition->setTextString(text);
  definition->setHeight(2.5);
  return append(drawing, *definition, block);
}

void setAnnotationScale(OdDbDatabase& drawing, const OdString& name, double paperUnits, double drawingUnits) {
  const OdString list = L"ACAD_SCALELIST";
  const OdDbDictionaryPtr named = open<OdDbDictionary>(drawing.getNamedObjectsDictionaryId(), OdDb::kForWrite);
  if (!named->has(list))
    named->setAt(list, OdDbDictionary::createObject().get());
  const OdSmartPtr<OdDbScale> scale = OdDbScale::createObject();
  scale->setScaleName(name);
  scale->setUnits(paperUnits, drawingUnits);
  open<OdDbDictionary>(named->getAt(list), OdDb::kForWrite)->setAt(name, scale.get());
  drawing.setCannoscale(name);
}

Folder::Folder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "example-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr)
    throw std::runtime_error("no folder for the files of an example");
  path_ = std::filesystem::canonical(pattern);
}

Folder::~Folder() {
  std::error_code ignored; // what is left in a temporary folder does no harm
  std::filesystem::remove_all(path_, ignored);
}

Session::Session(std::vector<OdString> answers) : host(std::move(answers)) {
  document = host.host().documents().open(drawing);
  host.host().paths().setDrive(L'P', folder.path().string());
  host.host().messageBoxes().setShow([this](const morvane::MessageBox& box) {
    boxes.push_back(box.body);
    return button;
  });
  door = addBlock(*drawing, L"DOOR");
  addLine(*drawing, OdGePoint3d::kOrigin, OdGePoint3d(900, 0, 0), door);
  addLine(*drawing, OdGePoint3d::kOrigin, OdGePoint3d(0, 900, 0), door);
  label = addBlock(*drawing, L"LABEL");
  addAttributeDefinition(*drawing, L"ROOM", L"Room:", L"101", label);
  walls = addLayer(*drawing, L"WALLS");
  wall = addLine(*drawing, OdGePoint3d::kOrigin, OdGePoint3d(5000, 0, 0));
  open<OdDbEntity>(wall, OdDb::kForWrite)->setLayer(walls);
  reference = addReference(*drawing, door, OdGePoint3d(1000, 0, 0));
}

OdString Session::addFile(const OdString& name) const {
  const OdDbDatabasePtr file = OdDbDatabase::create();
  addLine(*file, OdGePoint3d::kOrigin, OdGePoint3d(100, 0, 0));
  const drawing::WriteResult written = ::drawing::writeDrawing(*file, (folder.path() / name.toUtf8()).string());
  if (written.result != eOk)
    throw std::runtime_error(written.message);
  return OdString(L"P:\\") + name;
}

} // namespace examples
