// Export marks of the drawing SDK.
#pragma once

// Marks what the library exports.
#define MVDRAWING_API __attribute__((visibility("default")))
