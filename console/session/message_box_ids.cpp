#include "console/session/message_box_ids.h"

#include "blockcommon/box_texts.h"

#include <optional>
#include <string_view>

namespace console {
namespace {

// The body of a box around its placeholders.
struct BodyFormat {
  std::vector<OdString> literals;
  std::vector<int> parameterOf; // which parameter is between them; a name that occurs twice is one
};

BodyFormat bodyFormat(std::wstring_view body) {
  BodyFormat format;
  int names = 0;
  for (auto at = body.find(L'%'); at != std::wstring_view::npos; at = body.find(L'%')) {
    const bool isName = body[at + 1] == L's';
    format.literals.push_back(OdString(body.substr(0, at)));
    format.parameterOf.push_back(isName ? 0 : names);
    names = isName ? 1 : names;
    body.remove_prefix(at + 2);
  }
  format.literals.push_back(OdString(body));
  return format;
}

// The first occurrence of a name decides what it is.
std::optional<std::vector<OdString>> parametersOf(const BodyFormat& format, const OdString& body) {
  const OdString& tail = format.literals.back();
  std::vector<OdString> parameters;
  int from = 0;
  for (std::size_t at = 0; at < format.literals.size(); ++at) {
    const OdString& literal = format.literals[at];
    const bool isLast = at + 1 == format.literals.size();
    const int position = at == 0 ? 0 : isLast ? body.getLength() - tail.getLength() : body.find(literal, from);
    if (position < from || body.mid(position, literal.getLength()) != literal || (at == 0 && isLast && body != literal))
      return std::nullopt;
    if (at > 0 && static_cast<std::size_t>(format.parameterOf[at - 1]) == parameters.size())
      parameters.push_back(body.mid(from, position - from));
    from = position + literal.getLength();
  }
  return parameters;
}

} // namespace

BoxName boxNameOf(const morvane::MessageBox& box) {
  for (const dlgTips::BoxText* text : dlgTips::kBoxTexts) {
    if (box.caption != text->caption)
      continue;
    if (auto parameters = parametersOf(bodyFormat(text->body), box.body))
      return {text->id, std::move(*parameters)};
  }
  return {"box.other", {}};
}

} // namespace console
