// Export marks of the drawing SDK.
#pragma once

#define MVDRAWING_API __attribute__((visibility("default")))
