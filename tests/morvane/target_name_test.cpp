// Names of files to write: what the host makes of the typed one, and why it refuses some.
#include "tests/support/open_document.h"

namespace {

namespace fs = std::filesystem;

class TargetName : public tests::HostAndFolder {};

TEST_F(TargetName, IsCompletedOrRefusedWithTheReason) {
  fs::create_directories(root_ / "out/deep");
  const OdString here = host_.host().paths().toDrawing(fs::current_path().string());
  const wchar_t kName[] = L"P:\\out\\b";
  const struct {
    const wchar_t *name, *path, *folder;
    int answer;
    OdString result; // the full path, or what the message says
  } rows[] = {
      {L" \t", L"P:\\b", L"P:\\out", 1, L""},
      {L"~", L"P:\\b", L"", 1, L""},
      {L"b", L"", L"P:\\out", 0, kName},
      {L" b ", L"", L"P:/out/", 0, kName},
      {L"b", L"", L"P:", 0, L"P:\\b"},
      {L"~b.dxf", L"", L"P:\\out", 0, L"P:\\out\\~b.dxf"},
      {L"deep/b", L"", L"P:\\out", 3, here + L"\\deep\\"}, // no name alone
      {L"p:/out/b", L"", L"P:\\none", 0, L"p:\\out\\b"},
      {L"x*", L"P:\\out\\b", L"", 0, kName}, // the path is what counts
      {L"\u5757.d\u00fcf", L"", L"P:\\", 0, L"P:\\\u5757.d\u00fcf"},
      {L"b", L"", L"", 0, here + L"\\b"}, // no drawing is open
      {L"b?", L"", L"P:\\out", 2, L"b?"},
      {L"1:\\b", L"", L"P:\\out", 2, L"1:\\b"},
      {L"P:\\out\\b:c", L"", L"", 2, L"b:c"},
      {L"100%s\x1", L"", L"P:\\out", 2, L"100%s\x1"},
      {L"b", L"", L"P:\\none", 3, L"P:\\none\\"},
      {L"deep", L"", L"P:\\out", 4, L"P:\\out\\deep"},
      {L"P:", L"", L"", 4, L"P:\\"},
  };
  for (const auto& row : rows) {
    OdString name = row.name, path = row.path, message;
    EXPECT_EQ(qzutads::MvEdCheckFileName2(name, path, {}, row.folder, message), row.answer) << row.result.toUtf8();
    EXPECT_EQ(name, row.answer == 0 ? row.result : OdString(row.name));
    EXPECT_EQ(path, row.answer == 0 ? row.result : OdString(row.path));
    EXPECT_EQ(message.isEmpty(), row.answer < 2);
    EXPECT_TRUE(row.answer < 2 || message.find(row.result) > 0) << message.toUtf8();
  }
  for (const wchar_t* drawing : {L"P:\\out\\plan.dxf", L"P:/out/plan.dxf"}) {
    host_.host().documents().open(OdDbDatabase::create(), drawing);
    OdString name = L"b", path, message;
    EXPECT_EQ(qzutads::MvEdCheckFileName2(name, path, {}, L"", message), 0);
    EXPECT_EQ(path, kName);
    OdString below = L"deep/b", belowPath;
    EXPECT_EQ(qzutads::MvEdCheckFileName2(below, belowPath, {}, L"P:\\", message), 0);
    EXPECT_EQ(belowPath, L"P:\\out\\deep\\b");
    host_.failOperation("MvEdCheckFileName2");
    EXPECT_EQ(qzutads::MvEdCheckFileName2(name, path, {}, L"", message), RTERROR);
  }
}

} // namespace
