// Which code page the texts of a file are really in.
#pragma once

#include "DbDatabase.h"
#include "drawing/io/text_codec.h"

namespace drawing::dxf {

class GroupSource;

// What the file says, and what its texts say against it.
struct Encoding {
  std::string page; // for a codec
  TextCodec::Mode mode = TextCodec::Mode::kCodePage;
  bool isContradicted = false;
};

// The declared encoding (UTF-8 from 2007, the code page before) unless all texts with other characters than ASCII speak
// against it:
// - Under a code page: every one of them is valid UTF-8. For pages with characters of two bytes, pairs of which may
//   pass for UTF-8 by accident, at least three characters in all and one of three bytes or more are asked for.
// - From 2007 on: none of them is UTF-8, and every byte is a character of the code page that the header declares
//   anyway. Reads the source to its end.
Encoding encodingOf(const FileInfo& info, GroupSource& source);

} // namespace drawing::dxf
