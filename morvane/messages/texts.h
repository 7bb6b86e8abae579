// What the host itself says on the command line.
#pragma once

namespace morvane::texts {

inline constexpr wchar_t kAnswerRequired[] = L"\nAn answer is required.";
inline constexpr wchar_t kNoSuchKeyword[] = L"\nNot one of the options.";
inline constexpr wchar_t kInvalidPoint[] = L"\nNot a point. Enter X,Y, @dX,dY or distance<angle.";
inline constexpr wchar_t kInvalidNumber[] = L"\nNot a number.";
inline constexpr wchar_t kChooseButton[] = L"\nNumber or name of the button: ";
inline constexpr wchar_t kNoSuchButton[] = L"\nNot one of the buttons.";
inline constexpr wchar_t kForbiddenInFileName[] = L"\nThe file name %s contains characters that are not allowed.";
inline constexpr wchar_t kNoSuchFolder[] = L"\nFolder %s not found.";
inline constexpr wchar_t kFileIsFolder[] = L"\n%s is a folder.";
inline constexpr wchar_t kUnknownVariable[] = L"\nUnknown variable %s.";

} // namespace morvane::texts
