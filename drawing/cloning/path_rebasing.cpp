#include "drawing/cloning/path_rebasing.h"

#include "DbDatabase.h"
#include "DbEntity.h"
#include "DbImageObjects.h"
#include "drawing/files.h"
#include "drawing/model/object_store.h"

#include <filesystem>
#include <optional>

namespace drawing {
namespace {

namespace fs = std::filesystem;

bool startsAtADrive(const OdString& path) {
  return path.getLength() > 1 && path.getAt(1) == L':';
}

// Nothing where the path stays.
std::optional<OdString> rebased(const OdString& path, const OdDbDatabase& source, const OdDbDatabase& target) {
  OdString spelled = path;
  spelled.replace(L'\\', L'/');
  const fs::path named = spelled.toUtf8Lossless();
  const std::string& own = target.fileInfo().path;
  if (named.empty() || source.fileInfo().path.empty() || named.is_absolute() || startsAtADrive(spelled))
    return {};
  const fs::path full = (fs::absolute(source.fileInfo().path).parent_path() / named).lexically_normal();
  FileStatus status;
  if (!fileOperations().stat(full.string(), status).ok())
    return {};
  const fs::path stored = own.empty() ? full : full.lexically_proximate(fs::absolute(own).parent_path());
  OdString relative = OdString::fromUtf8(stored.string());
  relative.replace(L'/', L'\\');
  return relative;
}

template <class Definition>
void rebaseSource(Definition& definition, const OdDbDatabase& source, const OdDbDatabase& target) {
  const std::optional<OdString> path = rebased(definition.sourceFileName(), source, target);
  if (!path)
    return;
  const WriteScope scope(definition);
  definition.setSourceFileName(*path);
}

void rebaseXref(OdDbBlockTableRecord& xref, const OdDbDatabase& source, const OdDbDatabase& target) {
  const std::optional<OdString> path =
      xref.isFromExternalReference() ? rebased(xref.pathName(), source, target) : std::nullopt;
  if (!path)
    return;
  const WriteScope scope(xref);
  xref.setPathName(*path);
}

} // namespace

void rebasePath(OdDbObject& object, const OdDbDatabase& source, const OdDbDatabase& target) {
  if (auto* block = dynamic_cast<OdDbBlockTableRecord*>(&object))
    rebaseXref(*block, source, target);
  else if (auto* image = dynamic_cast<OdDbRasterImageDef*>(&object))
    rebaseSource(*image, source, target);
  else if (auto* underlay = dynamic_cast<OdDbUnderlayDefinition*>(&object))
    rebaseSource(*underlay, source, target);
}

void rebasePaths(const OdDbIdMapping& mapping) {
  for (const OdDbIdPair& pair : mapping.pairs()) {
    OdDbObject* clone = pair.isCloned() ? lookup(pair.value()) : nullptr;
    if (clone != nullptr && !clone->isKindOf(OdDbEntity::desc())) // most are, and hold no path
      rebasePath(*clone, *mapping.origDb(), *mapping.destDb());
  }
}

} // namespace drawing
