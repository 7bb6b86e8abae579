// Draws a display list by cairo.
#pragma once

#include "drawing/gi/device.h"

#include <cairo.h>

namespace drawing::gi {

// The view that shows all of the box with a margin; what has no size is in the middle.
View viewOf(const Box& box, int width, int height, double margin);
void render(const DisplayList& list, const View& view, cairo_t* context);

} // namespace drawing::gi
