#include "host/api_version.h"

#include "install/search_path.h"

namespace {

constexpr std::uint32_t generation = libraryGeneration << 16;
static_assert(generation == 0x110000, "the assembler source holds this value too");

std::uint32_t g_versionState = 0;

}  // namespace

std::uint32_t AnswerApiVersion(std::uint32_t& state, std::uint32_t argument) {
    std::uint32_t answer = generation;
    if (state == 0) {
        state = argument ^ generation;
    } else {
        state ^= argument;
        answer = state;
    }
    if (argument == 0) state = 0;
    return answer;
}

std::uint32_t ContinueApiVersion(std::uint32_t argument) {
    return AnswerApiVersion(g_versionState, argument);
}
