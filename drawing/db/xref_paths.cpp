#include "db/xref_paths.h"

#include "DbDatabase.h"
#include "OdFiles.h"
#include "db/store.h"

#include <filesystem>

namespace drawing::db {
namespace {

bool startsAtADrive(const OdString& path) {
  return path.getLength() > 1 && path.getAt(1) == L':';
}

} // namespace

void rebaseXrefPath(OdDbBlockTableRecord& xref, const OdDbDatabase& source, const OdDbDatabase& target) {
  namespace fs = std::filesystem;
  OdString spelled = xref.pathName();
  spelled.replace(L'\\', L'/');
  const fs::path named = spelled.toUtf8Lossless();
  const std::string& own = target.facts().path;
  if (!xref.isFromExternalReference() || source.facts().path.empty() || named.is_absolute() || startsAtADrive(spelled))
    return;
  const fs::path full = (fs::absolute(source.facts().path).parent_path() / named).lexically_normal();
  FileStatus status;
  if (!fileOperations().stat(full.string(), status).ok())
    return;
  const fs::path stored = own.empty() ? full : full.lexically_proximate(fs::absolute(own).parent_path());
  OdString path = OdString::fromUtf8(stored.string());
  path.replace(L'/', L'\\');
  const WriteScope scope(xref);
  xref.setPathName(path);
}

void rebaseXrefPaths(const OdDbIdMapping& mapping) {
  for (const OdDbIdPair& pair : mapping.pairs()) {
    auto* xref = pair.isCloned() ? peekAs<OdDbBlockTableRecord>(pair.value()) : nullptr;
    if (xref != nullptr)
      rebaseXrefPath(*xref, *mapping.origDb(), *mapping.destDb());
  }
}

} // namespace drawing::db
