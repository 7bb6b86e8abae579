// The picture of a drawing: its bytes come back whatever their number and the form of the file, one that a file brought
// is never lost, and a damaged one stays as it is.
#include "tests/support/drawings.h"

namespace {

using tests::dxf;
using tests::section;

std::string bytesOf(std::size_t count) {
  std::string bytes;
  for (std::size_t i = 0; i < count; ++i)
    bytes += static_cast<char>(i * 7 + i / 256);
  return bytes;
}

OdDbDatabasePtr throughFile(const OdDbDatabase& database, drawing::WriteOptions::Form form) {
  drawing::WriteOptions options;
  options.form = form;
  return drawing::readDrawingFromMemory(drawing::writeDrawingToMemory(database, options)).database;
}

TEST(Thumbnail, RoundTripsByteForByte) {
  for (const auto form : {drawing::WriteOptions::kText, drawing::WriteOptions::kBinary}) {
    for (const std::size_t size : {0u, 1u, 126u, 127u, 128u, 254u, 255u, 5000u}) {
      const std::string bytes = bytesOf(size);
      const OdDbDatabasePtr database = OdDbDatabase::create();
      EXPECT_EQ(database->setThumbnailBitmap(bytesOf(9).data(), 9), eOk);
      EXPECT_EQ(database->setThumbnailBitmap(bytes.data(), size), eOk); // in place of the first
      EXPECT_EQ(database->thumbnailBitmap(), bytes);
      EXPECT_EQ(throughFile(*database, form)->thumbnailBitmap(), ""); // nobody wanted it kept
      database->setRetainOriginalThumbnailBitmap(true);
      const OdDbDatabasePtr read = throughFile(*database, form);
      EXPECT_EQ(read->thumbnailBitmap(), bytes) << size;
      EXPECT_FALSE(read->retainOriginalThumbnailBitmap());
      EXPECT_EQ(throughFile(*read, form)->thumbnailBitmap(), bytes); // it came with the file
    }
  }
  const OdDbDatabasePtr database = OdDbDatabase::create();
  database->setThumbnailBitmap("x", 1);
  EXPECT_EQ(database->setThumbnailBitmap("x", std::size_t{1} << 31), eInvalidInput);
  EXPECT_EQ(database->thumbnailBitmap(), "x");
  database->setThumbnailBitmap(nullptr, 40);
  EXPECT_EQ(database->thumbnailBitmap(), "");
}

TEST(Thumbnail, IsReadAsFilesStoreIt) {
  const std::pair<const char*, std::string> rows[] = {
      {"90|3\n310|0102FF\n", "\x01\x02\xff"}, {"90|3\n310|01\n310|02ff\n", "\x01\x02\xff"}, {"90|0\n", ""}, {"", ""},
      {"90|3\n310|01\n310|nonsense\n", ""}, // half a picture is none
  };
  for (const auto& [lines, bytes] : rows) {
    const drawing::ReadResult read = tests::readWell(dxf(section("THUMBNAILIMAGE", lines)));
    EXPECT_EQ(read.database->thumbnailBitmap(), bytes) << lines;
    const std::string again = drawing::writeDrawingToMemory(*read.database);
    EXPECT_EQ(again.find("nonsense") != std::string::npos, std::string(lines).find("nonsense") != std::string::npos);
  }
}

} // namespace
