// Texts of the console: attributes.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kHelpAttedit{"help.attedit", L"Change the attributes of a reference"};
inline constexpr MessageText kHelpAttsync{"help.attsync", L"Update the attributes of references from their block"};
inline constexpr MessageText kPromptAttdefPosition{"prompt.attdef-place",
                                                   L"Start point of the text [Justify/Modes/Rotation/Style]:"};
inline constexpr MessageText kKeywordsAttdef{"keywords.attdef",
                                             L"Justify Modes Rotation Style _Justify Modes Rotation Style"};
inline constexpr MessageText kPromptModes{"prompt.attribute-modes",
                                          L"Mode to change [Invisible/Constant/Verify/Preset/Lock/Multiple] <done>:"};
inline constexpr MessageText kKeywordsModes{
    "keywords.attribute-modes",
    L"Invisible Constant Verify Preset Lock Multiple _Invisible Constant Verify Preset Lock Multiple"};
inline constexpr MessageText kModesOn{"attribute.modes", L"Modes on: {1}."};
inline constexpr MessageText kPromptJustify{
    "prompt.justify", L"Justify [Left/Center/Right/Align/Middle/Fit/TL/TC/TR/ML/MC/MR/BL/BC/BR] <Left>:"};
inline constexpr MessageText kKeywordsJustify{"keywords.justify",
                                              L"Left Center Right Align Middle Fit TL TC TR ML MC MR BL BC BR _Left "
                                              L"Center Right Align Middle Fit TL TC TR ML MC MR BL BC BR"};
inline constexpr MessageText kPromptSecondPoint{"prompt.base-line", L"End point of the baseline:"};
inline constexpr MessageText kNoBaseLine{"text.base-line", L"The two ends of the baseline coincide."};
inline constexpr MessageText kPromptStyle{"prompt.text-style", L"Text style:"};
inline constexpr MessageText kNoSuchStyle{"text.unknown-style", L"Text style \"{1}\" not found."};
inline constexpr MessageText kPromptAttributeTag{"prompt.attribute", L"Attribute, as TAG or TAG#2 [?] <done>:"};
inline constexpr MessageText kPromptAttributeValue{"prompt.attribute-value", L"New value, \"\" for none <{1}>:"};
inline constexpr MessageText kOneReference{"attribute.one-reference", L"Select one reference only."};
inline constexpr MessageText kNoAttributes{"attribute.no-reference", L"No reference with attributes is selected."};
inline constexpr MessageText kAttributeLine{"attribute.line", L"{1} = \"{2}\""};
inline constexpr MessageText kNoSuchAttribute{"attribute.unknown",
                                              L"The reference has no attribute \"{1}\". ? lists its attributes."};
inline constexpr MessageText kAttributeSet{"attribute.set", L"{1} set to \"{2}\"."};
inline constexpr MessageText kAttributeSetWithoutField{"attribute.set-without-field",
                                                       L"{1} set to \"{2}\"; its field is removed."};
inline constexpr MessageText kAttributeSame{"attribute.same", L"{1} is already \"{2}\"."};
inline constexpr MessageText kAttributeLocked{"attribute.locked", L"{1} is on a locked layer."};
inline constexpr MessageText kAttributeConstant{"attribute.constant", L"{1} is constant."};
inline constexpr MessageText kAttributeLines{"attribute.lines",
                                             L"{1} is a single-line attribute and cannot contain line breaks."};
inline constexpr MessageText kNoSuchBlock{"block.unknown", L"Block \"{1}\" not found."};
inline constexpr MessageText kSyncBlock{"attsync.block", L"Block \"{1}\": {2} {2:reference|references}"};
inline constexpr MessageText kNoSyncBlocks{"attsync.no-blocks", L"No block has attribute definitions."};
inline constexpr MessageText kSyncSurplus{"attsync.surplus",
                                          L"Reference {1}: {2} = \"{3}\" is removed; the block no longer defines it."};
inline constexpr MessageText kSyncLocked{"attsync.locked", L"Reference {1} is on a locked layer and is unchanged."};
inline constexpr MessageText kSynced{"attsync.done", L"{1} {1:reference|references} updated."};
inline constexpr MessageText kAttributeRow{"attributes.row", L"{1}  \"{2}\"  {3} = \"{4}\""};
inline constexpr MessageText kAttributeCount{"attributes.count", L"{1} {1:attribute|attributes}."};
inline constexpr MessageText kImportNeedsOutput{"attributes.import-output", L"--import and -o OUT require each other."};
inline constexpr MessageText kImported{
    "attributes.imported", L"{1} {1:value|values} changed, {2} unchanged, {3} {3:row does|rows do} not match."};
inline constexpr MessageText kImportMisfit{"attributes.misfit", L"{1}, line {2}: {3}"};
inline constexpr MessageText kMisfitHandle{"attributes.no-handle", L"reference \"{1}\" not found"};
inline constexpr MessageText kMisfitBlock{"attributes.other-block", L"reference {1} is to block \"{2}\", not \"{3}\""};
inline constexpr MessageText kMisfitTag{"attributes.no-tag", L"reference {1} has no attribute \"{2}\""};
inline constexpr MessageText kMisfitOrdinal{
    "attributes.no-ordinal",
    L"reference {1} has {2} {2:attribute|attributes} \"{3}\", and none with the number \"{4}\""};
inline constexpr MessageText kMisfitTwice{"attributes.twice", L"line {1} already sets this attribute"};
inline constexpr MessageText kCsvUnreadable{"csv.unreadable", L"{1}"};
inline constexpr MessageText kCsvQuote{"csv.quote",
                                       L"{1}, line {2}: a quote is inside an unquoted cell; nothing was changed."};
inline constexpr MessageText kCsvOpen{"csv.open-quote", L"{1}, line {2}: a quote is not closed; nothing was changed."};
inline constexpr MessageText kCsvCells{"csv.cells",
                                       L"{1}, line {2}: {3} {3:cell|cells} instead of {4}; nothing was changed."};
inline constexpr MessageText kCsvColumn{"csv.column",
                                        L"{1}: the first line has no column \"{2}\"; nothing was changed."};

} // namespace console::msg
