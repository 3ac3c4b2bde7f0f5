#include "runtime/host/line_input.h"

namespace drafthost {

namespace {

LineInput* g_input = nullptr;

}  // namespace

void SetLineInput(LineInput* input) {
    g_input = input;
}

std::optional<std::wstring> ReadUserLine(const std::wstring& prompt) {
    return g_input == nullptr ? std::nullopt : g_input->ReadLine(prompt);
}

}  // namespace drafthost
