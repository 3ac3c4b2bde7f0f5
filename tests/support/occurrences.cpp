#include "support/occurrences.h"

namespace {

template <typename Text>
std::size_t Count(const Text& text, const Text& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != Text::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

}  // namespace

std::size_t Occurrences(const std::string& text, const std::string& part) {
    return Count(text, part);
}

std::size_t Occurrences(const std::wstring& text, const std::wstring& part) {
    return Count(text, part);
}
