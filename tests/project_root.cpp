// Paths in tests start at the folder of the project, wherever the program is started.
#include <filesystem>

namespace {

[[maybe_unused]] const bool kIsThere = (std::filesystem::current_path(PROJECT_ROOT), true);

} // namespace
