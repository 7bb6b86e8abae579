// Texts of the console: making blocks.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kPromptBlockName{"prompt.block-name", L"Block name [?]:"};
inline constexpr MessageText kBadBlockQuery{"block.bad-query", L"Enter a name, or ? to list the blocks."};
inline constexpr MessageText kPromptBasePoint{"prompt.base-point", L"Base point <0,0,0>:"};
inline constexpr MessageText kPromptSourceObjects{"prompt.afterwards", L"The objects [Keep/Convert/Delete] <{1}>:"};
inline constexpr MessageText kKeywordsSourceObjects{"keywords.afterwards", L"Keep Convert Delete _Keep Convert Delete"};
inline constexpr MessageText kNameNotUtf8{"block.name-not-utf8",
                                          L"The name \"{1}\" contains characters that cannot be stored in a file."};
inline constexpr MessageText kNameEmpty{"block.name-empty", L"The block name is empty."};
inline constexpr MessageText kNameTooLong{"block.name-too-long", L"The block name is too long."};
inline constexpr MessageText kNameCharacter{"block.name-character",
                                            L"\"{1}\" is not allowed in a block name. Characters not allowed: {2}"};
inline constexpr MessageText kNameOfSpace{"block.name-of-space",
                                          L"\"{1}\" is the name of model space or paper space, not of a block."};
inline constexpr MessageText kNameAnonymous{"block.name-anonymous", L"\"{1}\" is the name of an anonymous block."};
inline constexpr MessageText kNameExternal{"block.name-external",
                                           L"\"{1}\" is an external reference or belongs to one."};
inline constexpr MessageText kNameBeingEdited{"block.name-edited", L"The block \"{1}\" is open in the block editor."};
inline constexpr MessageText kNameInvalid{"block.name-invalid", L"\"{1}\" is not a valid block name."};
inline constexpr MessageText kBlockExists{
    "block.exists", L"The block \"{1}\" already exists and has {2} {2:reference|references}; --redefine replaces it."};
inline constexpr MessageText kContainsItself{"block.contains-itself", L"The block \"{1}\" would contain itself: {2}."};
inline constexpr MessageText kChainStart{"block.chain-start", L"\"{1}\""};
inline constexpr MessageText kChainLink{"block.chain-link", L" contains \"{1}\" (reference {2})"};
inline constexpr MessageText kCamerasSkipped{"block.cameras", L"{1} {1:camera is|cameras are} skipped."};
inline constexpr MessageText kDropped{
    "block.dropped", L"{1} {1:object|objects} of type {2} cannot be added to the block and {1:is|are} left in place."};
inline constexpr MessageText kAllDropped{"block.all-dropped", L"None of the objects can be added to a block."};
inline constexpr MessageText kBlockFailed{"block.failed", L"The block \"{1}\" could not be made."};
inline constexpr MessageText kPropertyFailed{"block.property-failed",
                                             L"The option {2} cannot be set for the block \"{1}\"."};
inline constexpr MessageText kReferenceFailed{"block.reference-failed",
                                              L"The reference to \"{1}\" could not be placed."};
inline constexpr MessageText kBlockMade{"block.made", L"Block \"{1}\" made of {2} {2:object|objects}."};
inline constexpr MessageText kBlockRedefined{"block.redefined",
                                             L"Block \"{1}\" redefined with {2} {2:object|objects}."};
inline constexpr MessageText kKept{"block.objects-kept", L"The objects are kept."};
inline constexpr MessageText kConverted{"block.objects-converted", L"The objects are replaced by a reference."};
inline constexpr MessageText kDeleted{"block.objects-deleted", L"The objects are deleted."};

} // namespace console::msg
