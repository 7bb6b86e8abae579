// Export mark of the block-command library.
#pragma once

#define BLOCKCOMMON_API __attribute__((visibility("default")))
