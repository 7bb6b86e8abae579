// Export mark of the host.
#pragma once

#define MORVANE_API __attribute__((visibility("default")))
