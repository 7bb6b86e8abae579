#include "blockcommon/write_block.h"

namespace registerFun {
namespace {

constexpr int kUsersOwn = 2; // of the configuration

constexpr char kFormatSection[] = "wblock_dialog";
constexpr char kType[] = "SaveFormatType";
constexpr char kVersion[] = "SaveFormatVersion";

constexpr char kOptionSection[] = "block_dialog";
constexpr char kBasePointOnScreen[] = "BasePointOnScreen";
constexpr char kObjectsOnScreen[] = "ObjectsOnScreen";
constexpr char kObjectsPostprocessing[] = "ObjectsPostprocessing";
constexpr char kExplode[] = "Explode";
constexpr char kScaleUniform[] = "ScaleUniform";
constexpr char kOpenInEditor[] = "bOpenInEditor";

void storeFormat(const MvJsonPtr& section, OdDb::SaveType type, OdDb::DwgVersion version) {
  if (section.isNull())
    return;
  section->SetDataI(kType, type);
  section->SetDataI(kVersion, version);
}

int readOption(const MvJsonPtr& section, const char* key, bool missing) {
  return (section.isNull() ? missing : section->GetDataB(key, missing)) ? 1 : 0;
}

} // namespace

void GetBlockSaveFormat(OdDb::SaveType& type, OdDb::DwgVersion& version) {
  type = OdDb::kSaveDwg;
  version = OdDb::kRelease2018;
  const MvJsonPtr section = mv_user_config(kFormatSection, kUsersOwn);
  if (section.isNull()) {
    storeFormat(mv_user_config_create(kFormatSection, kUsersOwn), type, version);
    return;
  }
  type = static_cast<OdDb::SaveType>(section->GetDataI(kType));
  version = static_cast<OdDb::DwgVersion>(section->GetDataI(kVersion));
}

void SetBlockFormatIndex(OdDb::SaveType& type, OdDb::DwgVersion& version) {
  storeFormat(mv_user_config(kFormatSection, kUsersOwn), type, version);
}

bool getRegistedOptions(int& basePointOnScreen, int& explode, int& objectsOnScreen, int& objectsPostprocessing,
                        int& openInEditor, int&, int& scaleUniform) {
  constexpr int kObjectsBecomeTheBlock = 1;
  const MvJsonPtr section = mv_user_config(kOptionSection, kUsersOwn);
  basePointOnScreen = readOption(section, kBasePointOnScreen, false);
  objectsOnScreen = readOption(section, kObjectsOnScreen, false);
  objectsPostprocessing =
      section.isNull() ? kObjectsBecomeTheBlock : section->GetDataI(kObjectsPostprocessing, kObjectsBecomeTheBlock);
  explode = readOption(section, kExplode, true);
  scaleUniform = readOption(section, kScaleUniform, true);
  openInEditor = readOption(section, kOpenInEditor, false);
  return true;
}

bool setRegistedOptions(int basePointOnScreen, int explode, int objectsOnScreen, int objectsPostprocessing,
                        int openInEditor, int scaleUniform) {
  const MvJsonPtr section = mv_user_config_create(kOptionSection, kUsersOwn);
  if (section.isNull())
    return true;
  section->SetDataB(kBasePointOnScreen, basePointOnScreen != 0);
  section->SetDataB(kObjectsOnScreen, objectsOnScreen != 0);
  section->SetDataI(kObjectsPostprocessing, objectsPostprocessing);
  section->SetDataB(kScaleUniform, scaleUniform != 0);
  section->SetDataB(kExplode, explode != 0);
  section->SetDataB(kOpenInEditor, openInEditor != 0);
  return true;
}

} // namespace registerFun
