// Asking for the values of attributes.
#include "blockcommon/attributes.h"

#include "blockcommon/insert/attributes_defaults.h"
#include "blockcommon/insert/attributes_fields.h"
#include "blockcommon/prompts.h"
#include "blockcommon/selections.h"
#include "morvane/limits.h"
#include "morvane/print.h"
#include "morvane/result_codes.h"

namespace insertCommon {
namespace {

const wchar_t* const kNextLine = L"\n    "; // lines of a value are shown below each other

// False when the user cancelled. Multiline values end with an empty line; \P separates their lines.
bool readValue(const OdString& question, const OdString& defaultValue, bool multiLine, OdString& value) {
  constexpr int kNoFlags = 0, kSpacesAllowed = 1;
  value.empty();
  OdString prompt = question;
  for (int n = 1;; ++n) {
    wchar_t line[morvane::kMaxAnswerLength + 1] = {};
    if (commonFun::inPutString(kNoFlags, L"", kSpacesAllowed, prompt, line) == RTCANCELLED)
      return false;
    if (line[0] == L'\0') {
      if (n == 1)
        value = defaultValue;
      return true;
    }
    if (n > 1)
      value += L"\\P";
    value += line;
    if (!multiLine)
      return true;
    prompt = L"下一行或 <已完成>: ";
  }
}

OdString text(const wchar_t* format, const OdString& label, const OdString& value = OdString()) {
  OdString made;
  made.format(format, label.c_str(), value.c_str());
  return made;
}

// Asks for the value of one attribute, twice where the definition wants it verified.
class Question {
public:
  Question(const OdDbAttributeDefinition& definition, OdDbAttribute& attribute, bool keptByField)
      : definition_(definition), attribute_(attribute), keptByField_(keptByField),
        multiLine_(definition.isMTextAttributeDefinition()),
        label_(definition.prompt().isEmpty() ? definition.tag() : definition.prompt()),
        fieldText_(definition.textString()) {}

  // False when the user cancelled.
  bool run() {
    OdString value;
    if (!read(first(), value))
      return false;
    if (!definition_.isVerifiable())
      return true;
    mvsi::mvsiedPrompt(L"\n验证属性值");
    default_ = value;
    return read(again(), value);
  }

private:
  bool read(const OdString& question, OdString& value) {
    if (!readValue(question, default_, multiLine_, value))
      return false;
    if (!keptByField_ || value != fieldText_)
      attribute_.setTextString(value);
    return true;
  }

  OdString first() {
    default_ = fieldText_;
    if (default_.isEmpty())
      return text(L"\n%s: ", label_);
    if (!multiLine_)
      return text(L"%s <%s> : ", label_, default_);
    const OdDbMTextPtr lines = definition_.getMTextAttributeDefinition();
    OdString shown = lines->plainText();
    shown.replace(L"\n", kNextLine);
    default_ = lines->contents();
    mvsi::mvsiedPrompt(text(L"\n%s - 默认值:\n    %s\n", label_, shown));
    return text(L"%s <接受默认值> : ", label_);
  }

  OdString again() {
    if (default_.isEmpty())
      return text(L"\n%s: ", label_);
    if (!multiLine_)
      return text(L"\n%s <%s> : ", label_, default_);
    OdString shown = default_;
    shown.replace(L"\\P", kNextLine);
    mvsi::mvsiutPrintf(L"\n%s - 默认值:\n    %s\n", label_, shown);
    return text(L"%s <接受默认值> : ", label_);
  }

  const OdDbAttributeDefinition& definition_;
  OdDbAttribute& attribute_;
  const bool keptByField_;
  const bool multiLine_;
  const OdString label_;
  const OdString fieldText_;
  OdString default_;
};

// Opens a reference for write for its own lifetime unless it was open for write.
class OpenForWrite {
public:
  explicit OpenForWrite(const OdDbBlockReference& reference) : isOpen_(reference.isWriteEnabled()) {
    if (isOpen_)
      return;
    reopened_ = reference.objectId().safeOpenObject(OdDb::kForWrite);
    isOpen_ = !reopened_.isNull();
  }
  ~OpenForWrite() {
    if (!reopened_.isNull())
      reopened_->downgradeOpen();
  }
  OpenForWrite(const OpenForWrite&) = delete;
  OpenForWrite& operator=(const OpenForWrite&) = delete;
  bool isOpen() const { return isOpen_; }

private:
  OdDbBlockReferencePtr reopened_;
  bool isOpen_;
};

void appendAll(OdDbBlockReference& reference, const OdDbObjectIdArray& definitions) {
  for (const OdDbObjectId& id : definitions) {
    const OdDbAttributeDefinitionPtr definition = id.safeOpenObject();
    if (definition.isNull() || definition->isConstant())
      continue;
    if (!appendWithDefault(reference, *definition, reference.blockTransform()).isNull())
      isKeptByField(reference, *definition);
  }
}

bool promptForAll(const OdDbBlockReference& reference, const OdDbObjectIdArray& definitions,
                  const OdDbObjectIdArray& attributes) {
  bool headerPending = true;
  for (OdDbObjectIdArray::size_type i = 0; i < definitions.size(); ++i) {
    const OdDbObjectId attributeId = attributes[i];
    const OdDbAttributeDefinitionPtr definition = definitions[i].safeOpenObject();
    if (definition.isNull())
      continue;
    const CMvAutoUnLockEntityLayer unlocked(attributeId);
    const OdDbAttributePtr attribute = attributeId.safeOpenObject(OdDb::kForWrite);
    if (attribute.isNull())
      continue;
    const bool needsPrompt = !definition->isConstant() && !definition->isPreset();
    if (needsPrompt && headerPending)
      mvsi::mvsiedPrompt(L"\n输入属性值\n");
    const bool keptByField = isKeptByField(reference, *definition);
    if (!needsPrompt)
      continue;
    if (!Question(*definition, *attribute, keptByField).run())
      return false;
    headerPending = false;
  }
  return true;
}

} // namespace

bool processAttributesForInsert(OdSmartPtr<OdDbBlockReference> pRef, bool useDefaults) {
  if (pRef.isNull())
    return false;
  OdDbObjectIdArray definitions, attributes;
  if (!useDefaults) {
    getAllAttributeDefinesOfBlk(pRef, definitions);
    getAllAttributesOfBlkRef(pRef, attributes);
    if (definitions.isEmpty())
      return true;
  }
  const OpenForWrite writing(*pRef);
  if (!writing.isOpen())
    return false;
  if (useDefaults)
    return addDefaultAttributeToBlk(pRef);
  if (definitions.size() == attributes.size())
    return promptForAll(*pRef, definitions, attributes);
  appendAll(*pRef, definitions);
  return true;
}

} // namespace insertCommon

namespace blockUtils {

void processBlockTbRefAsDefaultAttri(OdDbBlockReference* pRef) {
  if (pRef == nullptr)
    return;
  struct Downgrade {
    OdDbBlockReference* reference;
    ~Downgrade() {
      if (reference != nullptr)
        reference->downgradeOpen();
    }
  } downgrade{pRef->isWriteEnabled() ? nullptr : pRef};
  pRef->upgradeOpen();
  insertCommon::processAttributesForInsert(OdDbBlockReferencePtr(pRef), false);
}

} // namespace blockUtils
