// What the host itself says on the command line.
#pragma once

namespace morvane::texts {

inline constexpr wchar_t kAnswerRequired[] = L"\nAn answer is required.";
inline constexpr wchar_t kNoSuchKeyword[] = L"\nThat is none of the options.";
inline constexpr wchar_t kInvalidPoint[] = L"\nThat is not a point.";
inline constexpr wchar_t kInvalidNumber[] = L"\nThat is not a number.";
inline constexpr wchar_t kChooseButton[] = L"\nNumber or name of the button: ";
inline constexpr wchar_t kNoSuchButton[] = L"\nThere is no such button.";
inline constexpr wchar_t kForbiddenInFileName[] = L"\nThe file name %s has characters that none may have.";
inline constexpr wchar_t kNoSuchFolder[] = L"\nThere is no folder %s.";
inline constexpr wchar_t kFileIsFolder[] = L"\n%s is a folder.";
inline constexpr wchar_t kUnknownVariable[] = L"\nThere is no variable %s.";

} // namespace morvane::texts
