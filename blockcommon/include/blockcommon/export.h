// Export mark of the block-command library.
#pragma once

// Marks what the library exports.
#define BLOCKCOMMON_API __attribute__((visibility("default")))
