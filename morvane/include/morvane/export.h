// Export mark of the host.
#pragma once

// Marks what the library exports.
#define MORVANE_API __attribute__((visibility("default")))
