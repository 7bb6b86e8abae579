// Texts of the console: rendering.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kPictureMade{"preview.made", L"Image {1}, {2} by {3} pixels."};
inline constexpr MessageText kPictureEmpty{"preview.empty", L"Nothing is visible; the image is empty."};
inline constexpr MessageText kPictureLimit{"preview.limit",
                                           L"The drawing is too large for one image; the rest is omitted."};
inline constexpr MessageText kNotDrawn{"preview.not-drawn",
                                       L"Not drawn, or drawn in part: {1} of type {2}, {3}; the first is {4}."};
inline constexpr MessageText kNoSuchLayout{"layout.unknown", L"Layout \"{1}\" not found."};
inline constexpr MessageText kBadPictureSize{"usage.picture-size", L"{1} takes WIDTHxHEIGHT in pixels, not \"{2}\"."};
inline constexpr MessageText kBadBackground{"usage.background",
                                            L"{1} takes white, black, none or RRGGBB, not \"{2}\"."};
inline constexpr MessageText kBadPictureName{
    "usage.picture-name", L"{1} takes the name of a .png or .svg file, not \"{2}\"; or use --png or --svg."};
inline constexpr MessageText kNotDrawnBody{"preview.body", L"solid and surface bodies are not rendered"};
inline constexpr MessageText kNotDrawnCycle{"preview.cycle", L"the block contains itself"};
inline constexpr MessageText kNotDrawnDepthClip{"preview.depth-clip", L"front and back clipping is not applied"};
inline constexpr MessageText kNotDrawnDocument{"preview.document", L"only the frame of the document is drawn"};
inline constexpr MessageText kNotDrawnFinePattern{"preview.fine-pattern",
                                                  L"the pattern is too fine and is drawn as a tint"};
inline constexpr MessageText kNotDrawnKind{"preview.kind", L"entity type not supported"};
inline constexpr MessageText kNotDrawnGlyphs{"preview.letters", L"no font has some of the glyphs"};
inline constexpr MessageText kNotDrawnNoBlock{"preview.no-block", L"the referenced block does not exist"};
inline constexpr MessageText kNotDrawnNoPicture{
    "preview.no-picture", L"the drawing has no graphics of it; a simple form is drawn if its type has one"};
inline constexpr MessageText kNotDrawnPage{"preview.page", L"pages of other documents are not read"};
inline constexpr MessageText kNotDrawnPerspective{"preview.perspective", L"the view is drawn without perspective"};
inline constexpr MessageText kNotDrawnPictureFile{"preview.picture-file", L"only the frame of the image is drawn"};
inline constexpr MessageText kNotDrawnProxy{"preview.proxy", L"only the application that created it can draw it"};
inline constexpr MessageText kNotDrawnShapeFile{"preview.shape-file", L"shape files are not read"};
inline constexpr MessageText kNotDrawnSmoothing{"preview.smoothing", L"the mesh is drawn before smoothing"};
inline constexpr MessageText kNotDrawnToleranceNote{"preview.tolerance-note",
                                                    L"the tolerances in the note are omitted"};
inline constexpr MessageText kNotDrawnXref{"preview.xref-not-loaded", L"the external drawing is not loaded"};
inline constexpr MessageText kNotDrawnXrefUnloaded{"preview.xref-unloaded", L"the external drawing is unloaded"};

} // namespace console::msg
