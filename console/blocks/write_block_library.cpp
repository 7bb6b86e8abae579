#include "console/blocks/write_block_library.h"
#include "console/messages/catalog/drawings.h"
#include "console/messages/catalog/wblock.h"

#include "console/blocks/write_target.h"
#include "console/drawings/drawing_io.h"
#include "console/messages/portable_file_name.h"
#include "console/report/report_json.h"

#include "DbBlockTable.h"
#include "DbDynBlockReference.h"
#include "drawing/picture.h"

#include <filesystem>

namespace console {
namespace {

namespace fs = std::filesystem;
constexpr char kManifest[] = "manifest.json";

struct LibraryEntry {
  OdDbObjectId block;
  OdString name;
  std::string file, preview; // within the folder
};

Json nameAndHandle(const OdDbBlockTableRecord& block) {
  return {{"block", block.getName().toUtf8Lossless()}, {"handle", block.getDbHandle().ascii()}};
}

class Library {
public:
  Library(Session& session, const LibraryRequest& request) : session_(session), request_(request) { list(); }

  Json write() {
    makeFolder();
    for (const LibraryEntry& entry : entries_)
      refuseOpenDrawing(session_, pathOf(entry.file));
    if (!request_.each.mayReplace)
      refuseExisting();
    for (const LibraryEntry& entry : entries_)
      blocks_.push_back(writeOne(entry));
    Json manifest = {{"version", 1}, {"drawing", session_.drawing().path}, {"blocks", blocks_}, {"leftOut", skipped_}};
    writeBytes(pathOf(kManifest), report::jsonText(manifest).toUtf8(), request_.each.mayReplace);
    return manifest;
  }

private:
  void list() {
    PortableNames names;
    const OdDbBlockTablePtr table = session_.database().getBlockTableId().safeOpenObject();
    for (const auto iterator = table->newIterator(); !iterator->done(); iterator->step()) {
      const OdDbBlockTableRecordPtr block = iterator->getRecordId().safeOpenObject();
      if (block->isLayout())
        continue;
      if (const char* reason = reasonToSkip(*block); reason != nullptr) {
        skipped_.push_back(nameAndHandle(*block));
        skipped_.back()["reason"] = reason;
        continue;
      }
      const std::string name = names.add(block->getName()).toUtf8();
      entries_.push_back({block->objectId(), block->getName(), name + ".dxf", name + ".png"});
    }
  }

  const char* reasonToSkip(const OdDbBlockTableRecord& block) const {
    if (block.isFromExternalReference() || block.isDependent())
      return "external reference";
    return block.isAnonymous() && !request_.withAnonymous ? "anonymous" : nullptr;
  }

  std::string pathOf(const std::string& file) const { return (fs::path(request_.folder) / file).string(); }

  void makeFolder() const {
    std::error_code error;
    fs::create_directory(request_.folder, error);
    if (!fs::is_directory(request_.folder, error))
      throw Failure{Status::kSaveFailed, {msg::kNoLibraryFolder, {OdString::fromUtf8(request_.folder)}}};
  }

  void refuseExisting() const {
    const auto check = [this](const std::string& file) {
      if (fileExists(pathOf(file)))
        refuse(msg::kFileExists, {OdString::fromUtf8(pathOf(file))});
    };
    check(kManifest);
    for (const LibraryEntry& entry : entries_) {
      check(entry.file);
      if (request_.withPreviews)
        check(entry.preview);
    }
  }

  Json writeOne(const LibraryEntry& entry) {
    BlockFileRequest request = request_.each;
    request.source = entry.block;
    request.path = fs::absolute(pathOf(entry.file)).string();
    const BlockFile written = writeBlockFile(session_, request);
    const OdDbBlockTableRecordPtr block = entry.block.safeOpenObject();
    Json json = nameAndHandle(*block);
    json["file"] = entry.file;
    json["objects"] = written.count.objects;
    json["types"] = written.count.types;
    json["definitions"] = written.count.definitions;
    json["base"] = Json::array({written.basePoint.x, written.basePoint.y, written.basePoint.z});
    json["units"] = static_cast<int>(written.units);
    json["anonymous"] = block->isAnonymous();
    json["dynamic"] = OdDbDynBlockTableRecord(entry.block).isDynamicBlock();
    if (request_.withPreviews)
      drawPreview(entry, json);
    return json;
  }

  void drawPreview(const LibraryEntry& entry, Json& json) const {
    const drawing::Picture picture(entry.block);
    writeBytes(pathOf(entry.preview), picture.png(), request_.each.mayReplace);
    std::size_t notDrawn = 0;
    for (const drawing::NotDrawn& one : picture.report().notDrawn)
      notDrawn += one.count;
    json["preview"] = entry.preview;
    json["notDrawn"] = notDrawn;
    const OdGeExtents3d& extents = picture.report().extents;
    json["extents"] =
        extents.isValidExtents()
            ? Json::array({extents.minPoint().x, extents.minPoint().y, extents.maxPoint().x, extents.maxPoint().y})
            : Json();
  }

  Session& session_;
  const LibraryRequest& request_;
  std::vector<LibraryEntry> entries_;
  Json blocks_ = Json::array(), skipped_ = Json::array();
};

} // namespace

Json writeLibrary(Session& session, const LibraryRequest& request) {
  return Library(session, request).write();
}

} // namespace console
