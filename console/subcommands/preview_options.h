// Values of the options of pictures.
#pragma once

#include "drawing/picture.h"

#include <string>

namespace console::subcommands {

// WIDTHxHEIGHT within the limits of pictures; false, and nothing changed, for anything else.
bool readPictureSize(const std::string& text, drawing::PictureOptions& options);
// white, black, none, or six hexadecimal digits with or without # in front.
bool readBackground(const std::string& text, drawing::PictureOptions& options);

} // namespace console::subcommands
